// SPDX-License-Identifier: GPL-3.0-or-later
// The update check in the running main window, against the author's server of the band.
#include "app/author_pages.h"
#include "app/new_version_window.h"
#include "author_pages.h"
#include "no_room.h"
#include "sites/list_changes_window.h"
#include "window_fixture.h"

namespace {

// Notes what the clock would have been set to.
class RecordingClock : public SystemClock {
 public:
  bool may = true;
  QList<QDateTime> set;
  bool MaySet() const override { return may; }
  bool SetTime(const QDateTime& time) override {
    set.append(time);
    return true;
  }
};

struct UpdateFixture : WindowFixture {
  RecordingClock recorded;
  Host* author = band.FindHost(u"Author"_s);
  AuthorList list{clock.now.date()};

  UpdateFixture() {
    systemClock = &recorded;
    hosts.Author = author->Base();
    for (const QString& call : {u"ZZ1AA"_s, u"ZZ2BB"_s}) {
      const Station& station = AddSite(call, static_cast<int>(list.sites.size()) + 1);
      list.sites.push_back({call, station.Url(), u"52.5"_s, u"-1.25"_s});
    }
  }
  void Serve(const QByteArray& file) const { author->SetAnswer(kUpdatesPath, {200, "text/plain", file, {}}); }
  // The end of the first poll, without its two seconds.
  void EndFirstPoll() const { form->Logic().poll.IfAllDoneTick(); }
  Form6* Changes() const { return qobject_cast<Form6*>(form->AllWindows().Find(WindowKind::SiteChanges)); }
  QStringList Calls() const {
    QStringList calls;
    for (const SiteRec& site : std::as_const(State().sites.Sites)) calls << site.Call;
    return calls;
  }
};

}  // namespace

class TestUpdateCheck : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void ReadsPages() {
    const auto time = [](const QByteArray& page) { return UtcTimeIn(page).value_or(QTime()).toString(u"HH:mm:ss"_s); };
    QCOMPARE(time("<BR>Nov. 22, 07:08:09 UTC"), u"07:08:09"_s);
    for (const char* page :
         {"", "no mark", "<BR>Nov. 22, 7:08:09 UTC", "<BR>Nov. 22, 27:08:09", "<BR>Nov. 22, 07:08:0"})
      QCOMPARE(time(page), QString());
    const QDateTime now(QDate(2026, 3, 1), QTime(23, 59, 0), Qt::UTC);
    QCOMPARE(NearestMoment(now, QTime(0, 0, 30)), now.addSecs(90));
    QCOMPARE(NearestMoment(now.addSecs(120), QTime(23, 59, 0)), now);
    const auto version = [](const QByteArray& text) { return NewerVersionIn("<p>Omni-Perch ver" + text, u"6.50"_s); };
    QCOMPARE(version(" 6.51 of today"), u"6.51"_s);
    for (const char* text : {" 6.50", " 6.49", " 10.0", " 7.5x", " 7-51", " 7.", ""})
      QCOMPARE(version(text), QString());
    QCOMPARE(NewerVersionIn("9.99", u"6.50"_s), QString());
    QCOMPARE(BadCallsIn("AB1C\r\nCD2E\r\n"), (QStringList{u"AB1C"_s, u"CD2E"_s, QString()}));
    QCOMPARE(BadCallsIn("AB1C"), QStringList());
    for (const QByteArray& page :
         {QByteArray("<html>\r\nAB1C\r\n"), QByteArray("AB1C\r\n\0", 7), QByteArray("A\r\n").repeated(400'000)})
      QVERIFY(!BadCallsIn(page));
  }

  // Everything that the check finds at once. The question about the version stays unanswered and keeps nothing away.
  void OffersAndCarriesOut() {
    UpdateFixture f;
    f.list.sites.erase(f.list.sites.begin());
    f.list.sites.front().url += u"?moved/image1"_s;
    f.list.sites.push_back({u"ZZ9NEW"_s, u"http://127.0.0.1:9/image1"_s, u"10"_s, u"20"_s});
    f.Serve(UpdatesFile(f.list));
    f.author->SetAnswer({}, {200, "text/html", VersionPage(u"6.51"_s), {}});
    f.author->SetAnswer(kBadCallsPath, {200, "text/plain", "ZZ7BAD\r\nZZ8BAD", {}});
    QVERIFY(f.StartAndPoll());
    QTRY_COMPARE(f.recorded.set.size(), 1);
    f.EndFirstPoll();
    QTRY_VERIFY(f.form->AllWindows().Find(WindowKind::NewVersion) != nullptr);
    QTRY_COMPARE(f.State().lstBadCalls, (QStringList{u"ZZ7BAD"_s, u"ZZ8BAD"_s}));
    // The address is replaced on arrival, after a copy of the files.
    QTRY_VERIFY(f.State().sites.Sites.at(1).Url.endsWith(u"?moved/image1"_s));
    QCOMPARE(QDir(f.folder.filePath(u"Backups"_s)).entryList({u"before-update-*"_s}).size(), 1);
    QTRY_VERIFY(f.Changes() != nullptr && f.Changes()->isVisible() && !f.form->isVisible());
    QCOMPARE(f.Calls(), (QStringList{u"ZZ1AA"_s, u"ZZ2BB"_s}));
    f.Changes()->close();
    QVERIFY(f.form->isVisible());
    QTRY_COMPARE(f.Calls(), (QStringList{u"ZZ2BB"_s, u"ZZ9NEW"_s}));
    QTRY_VERIFY(f.Read("Omni-Perch.lst").contains("ZZ9NEW"));
    QTRY_VERIFY(f.services->database.Find(u"ZZ9NEW"_s).has_value());
    // Once a run.
    f.State().page.CamPollDue = true;
    f.EndFirstPoll();
    QCOMPARE(f.author->Requests(kUpdatesPath), 1);
  }

  // Nothing is applied when the program ends first, and what is kept is not offered again.
  void KeepsWhatTheUserKeeps() {
    UpdateFixture f;
    f.list.sites.pop_back();
    f.Serve(UpdatesFile(f.list));
    for (const bool isEnded : {true, false}) {
      QVERIFY(f.StartAndPoll());
      f.EndFirstPoll();
      QTRY_VERIFY(f.Changes() != nullptr && f.Changes()->isVisible());
      if (isEnded) {
        f.Close();
        QCOMPARE(f.Read("Omni-Perch.lst").count("ZZ2BB"), 1);
        continue;
      }
      f.Changes()->findChild<QPushButton*>(u"markNone"_s)->click();
      f.Changes()->close();
      QTRY_VERIFY(f.State().sites.Sites.at(1).Url.startsWith(u"NoDelete"_s));
      // The next list has one difference more, and the kept site is no row of it.
      f.list.sites.push_back({u"ZZ9NEW"_s, u"http://127.0.0.1:9/image1"_s, u"10"_s, u"20"_s});
      f.Serve(UpdatesFile(f.list));
      QTRY_VERIFY(f.Changes() == nullptr);
      f.form->Updates().Check().CheckForUpdates();
      QTRY_VERIFY(f.Changes() != nullptr && f.Changes()->isVisible());
      QCOMPARE(f.Changes()->findChild<ChangeList*>(u"List1"_s)->Model().rowCount(), 1);
      QCOMPARE(f.Changes()->findChild<ChangeList*>(u"List2"_s)->Model().rowCount(), 0);
    }
  }

  // A full disk: the tables stay as they were, and the window comes back with its marks and names the file.
  void NamesWhatCannotBeWritten() {
    UpdateFixture f;
    f.list.sites.pop_back();
    for (int i = 0; i < 40; ++i) f.list.sites.push_back({u"ZZ9A%1"_s.arg(i), u"http://127.0.0.1:9/image1"_s, {}, {}});
    f.Serve(UpdatesFile(f.list));
    QVERIFY(f.StartAndPoll());
    f.EndFirstPoll();
    QTRY_VERIFY(f.Changes() != nullptr && f.Changes()->isVisible());
    f.Changes()->findChild<QPushButton*>(u"markNone"_s)->click();
    QVERIFY(WithoutRoom([&f]() {
      f.Changes()->close();
      return QTest::qWaitFor([&f]() { return f.Changes() != nullptr && f.Changes()->isVisible(); });
    }));
    QVERIFY(f.Changes()->findChild<QLabel*>(u"lblFailure"_s)->text().contains(u"Omni-Perch.lst"_s));
    QCOMPARE(f.Changes()->findChild<ChangeList*>(u"List2"_s)->Model().Unmarked(), QSet<int>{0});
    QCOMPARE(f.Calls(), (QStringList{u"ZZ1AA"_s, u"ZZ2BB"_s}));
    // There is room again.
    f.Changes()->close();
    QVERIFY(f.form->isVisible());
    QTRY_VERIFY(f.Read("Omni-Perch.lst").contains("NoDelete"));
  }

  // Without a list of sites a cam round begins; a failure under any other key says nothing and changes nothing.
  void FailuresAreSilent() {
    const auto fails = [](const char* what, Behaviour behaviour, bool isEmpty, bool isFailure) {
      const TableRow row(what);
      UpdateFixture f;
      f.author->Misbehave({}, behaviour);
      if (isEmpty) f.hosts.Author.clear();
      f.recorded.may = false;
      QVERIFY(f.StartAndPoll());
      const QStringList badCalls = f.State().lstBadCalls;
      f.State().page.CamRoundHeld = true;
      f.State().page.txtActive.clear();
      QSignalSpy failed(&f.form->Updates().Check(), &UpdateCheck::ListFailed);
      QSignalSpy came(&f.form->Updates().Check(), &UpdateCheck::ListCame);
      f.EndFirstPoll();
      QVERIFY(failed.isEmpty());
      QTRY_COMPARE(failed.count() + came.count(), 1);
      QCOMPARE(failed.count(), isFailure ? 1 : 0);
      QCOMPARE(f.State().page.txtActive, isFailure ? u"START"_s : QString());
      f.Close();
      QVERIFY(f.dialogs.told.isEmpty() && f.recorded.set.isEmpty());
      QCOMPARE(f.State().lstBadCalls, badCalls);
    };
    fails("no author", Behaviour::Normal, true, true);
    fails("an error page", Behaviour::NotFound, false, true);
    fails("refused", Behaviour::Refuse, false, true);
    fails("endless", Behaviour::Endless, false, true);
    fails("garbage", Behaviour::GarbageBody, false, false);
  }
};

OMNI_TEST(TestUpdateCheck)
#include "test_update_check.moc"
