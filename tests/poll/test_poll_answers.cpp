// SPDX-License-Identifier: GPL-3.0-or-later
// What may come in between the steps of a poll: answers in any order, another page, a removal, a full disk. The
// stations of these tests are silent; the answers are handed in as the download controls hand them in, in a seeded
// order.
#include <QRandomGenerator>

#include "core/page_files.h"
#include "no_room.h"
#include "page_fixture.h"

namespace {

const QByteArray kTail = "AB1CD * EP snr -3 *03:15:2026 10:30";

// Sites whose station takes every request and never answers.
struct SilentPage : PageFixture {
  Station& silent;

  explicit SilentPage(int sites, int page = 1) : PageFixture(UrlLimits()), silent(band.AddStation(u"ZZ9ZZ"_s)) {
    silent.Misbehave({}, Behaviour::Stall);
    program.config.ThumbLayout = 5;
    for (int slot = 0; slot < sites; ++slot) {
      SiteRec site;
      site.Call = u"ZZ1%1"_s.arg(slot, 2, 10, QLatin1Char('0'));
      site.Url = silent.Base() + u"/%1/image1"_s.arg(slot);
      site.PageSlots[5] = PlaceText(page, slot);
      program.sites.Sites.append(site);
    }
    Start();
  }

  static QString Key(int slot, int page = 1) { return PictureKey{page, slot, slot}.Text(); }
  void Marker(int slot, int height = 300) const {
    Q_EMIT logic->ucCkNew1.PictureReady(QString::number(slot), QSize(2, height));
  }
  void Body(int slot, const QByteArray& body, int page = 1) const {
    Q_EMIT logic->ucDnLoad.PictureReady(Key(slot, page), body);
  }
  void Failure(int slot) const { Q_EMIT logic->ucDnLoad.NoImage(Key(slot)); }
  bool HasFile(int page, int slot) const { return QFile::exists(Picture(page, slot)); }
  static QByteArray GoodBody() { return PlainPicture(kTail, QSize(48, 36)); }
};

}  // namespace

class TestPollAnswers : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  // Each slot's marker comes before its picture; beyond that any answer may be the next, with or without a turn of the
  // event loop between two of them.
  void EndsWhateverFails() {
    const auto check = [](const char* what, int failing, quint32 seed) {
      const TableRow row(what);
      constexpr int kSites = 35;
      SilentPage f(kSites);
      QRandomGenerator random(seed);
      QList<int> slots;
      for (int slot = 0; slot < kSites; ++slot) slots.append(slot);
      std::shuffle(slots.begin(), slots.end(), random);
      // The error page of an earlier run, shown as the error box before anything has been asked.
      const int stored = failing > 0 ? 1 : 0;
      if (stored > 0) f.folder.Put(f.PictureName(1, slots.first()), QByteArray(200, ' ') + "</html>");
      f.logic->poll.FirstPoll();
      QCOMPARE(f.program.page.SitesOnPage, kSites);
      QCOMPARE(f.program.page.SitesDone, stored);
      const QSet<int> bad(slots.cbegin(), slots.cbegin() + failing);
      QSet<int> unchanged;  // a third of the others answers by its marker alone
      for (const int slot : slots.sliced(failing)) {
        if (random.bounded(3) == 0) unchanged.insert(slot);
      }
      QList<int> next = slots + slots;
      std::shuffle(next.begin(), next.end(), random);
      QSet<int> checked;
      for (const int slot : std::as_const(next)) {
        const bool first = !checked.contains(slot);
        checked.insert(slot);
        if (first) {
          if (unchanged.contains(slot)) f.program.page.Field(slot, LastHeight) = u"300"_s;
          f.Marker(slot);
        } else if (bad.contains(slot)) {
          const int kind = static_cast<int>(random.bounded(3));
          if (kind == 0) f.Failure(slot);
          if (kind > 0) f.Body(slot, QByteArray(kind == 1 ? 50 : 500, 'x'));
        } else if (!unchanged.contains(slot)) {
          f.Body(slot, f.GoodBody());
        }
        if (random.bounded(2) == 0) QCoreApplication::processEvents();
      }
      QTRY_VERIFY(!f.logic->poll.Busy());
      // A slot that fails counts twice: when its bytes are missing and when its error box is shown.
      QTRY_COMPARE(f.program.page.SitesDone, kSites + failing + stored);
      QVERIFY(f.logic->poll.tmrIfAllDone.isActive());
      for (int slot = 0; slot < kSites; ++slot) {
        if (bad.contains(slot)) QVERIFY(f.CellOf(slot).errorBox);
        if (!bad.contains(slot) && !unchanged.contains(slot)) QVERIFY(f.HasPicture(slot));
      }
    };
    for (const int failing : {0, 1, 2, 35}) {
      for (quint32 seed = 1; seed <= 6; ++seed) {
        check(qPrintable(u"%1 failing, order %2"_s.arg(failing).arg(seed)), failing, seed);
      }
    }
  }

  // The page is left while a thumb is made; and a thumb that is missing is made again from the stored picture.
  void KeepsThumbsOfALeftPage() {
    SilentPage f(2);
    f.logic->poll.FirstPoll();
    f.Marker(0);
    f.Body(0, f.GoodBody());
    f.logic->poll.PageChange(2);
    QTRY_VERIFY(QFile::exists(f.Thumb(1, 0)) && f.HasFile(1, 0));
    QVERIFY(!f.HasPicture(0));
    for (const bool thumbIsLost : {false, true}) {
      if (thumbIsLost) {
        f.logic->poll.PageChange(2);
        QVERIFY(QFile::remove(f.Thumb(1, 0)));
      }
      f.logic->poll.PageChange(1);
      QTRY_VERIFY(f.HasPicture(0));
      QVERIFY(QFile::exists(f.Thumb(1, 0)));
    }
    QCOMPARE(f.program.page.SitesDone, 0);
  }

  // The error box comes back at once, without decoding and without counting, and in the present language.
  void RemembersWhatCannotBeShown() {
    SilentPage f(2);
    f.logic->poll.FirstPoll();
    f.Marker(0);
    f.Body(0, QByteArray(500, 'x'));
    QTRY_VERIFY(f.CellOf(0).errorBox);
    const QString english = f.BoxSecond(0);
    f.logic->poll.PageChange(2);
    QVERIFY(!f.CellOf(0).errorBox);
    f.logic->poll.PageChange(1);
    QVERIFY(f.CellOf(0).errorBox && f.BoxSecond(0) == english && f.program.page.SitesDone == 0);
    LoadLanguage(QStringLiteral(LANGUAGES_DIR), u"German"_s, 8, Program::ProgVersion(), f.program.language);
    QVERIFY(f.BoxSecond(0) != english);
    f.Start();
    f.logic->poll.ShowStoredPage();
    QVERIFY(f.CellOf(0).errorBox);
    QCOMPARE(f.BoxSecond(0), f.program.language[TextLine::kCorruptText]);
    QVERIFY(f.logic->files.HasFailed(1, 0));
    f.logic->poll.ReloadPage();
    QVERIFY2(!f.logic->files.HasFailed(1, 0), "tried again on a reload");
    QTRY_VERIFY(f.logic->files.HasFailed(1, 0));
    // Another file in its place is another picture.
    f.folder.Put(f.PictureName(1, 0), f.GoodBody());
    f.logic->poll.ShowStoredPage();
    QTRY_VERIFY(f.HasPicture(0));
  }

  void LeavesNothingTornOnAFullDisk() {
    SilentPage f(1);
    f.logic->poll.FirstPoll();
    for (const bool former : {false, true}) {
      if (former) {
        f.Body(0, f.GoodBody());
        QTRY_VERIFY(f.HasPicture(0));
        f.logic->poll.FirstPoll();
      }
      f.Marker(0, former ? 301 : 300);
      const bool failed = WithoutRoom([&f]() {
        f.Body(0, PlainPicture(kTail));
        return QTest::qWaitFor([&f]() { return f.CellOf(0).errorBox; });
      });
      QVERIFY(failed && !f.logic->poll.Busy());
      const QDir pictures(f.folder.filePath(u"images/dsstv"_s));
      QCOMPARE(pictures.entryList(QDir::Files | QDir::Hidden), QStringList(u"ckNewHeight.txt"_s));
      QCOMPARE(QDir(pictures.filePath(u"thumbs"_s)).entryList(QDir::Files | QDir::Hidden), QStringList());
      // The height has been recorded, and the missing file has the picture fetched all the same.
      QCOMPARE(f.logic->heights.Height(1, 0), former ? 301 : 300);
      f.logic->poll.PageChange(1);
      QVERIFY(!f.CellOf(0).picProg);
      f.Marker(0, former ? 301 : 300);
      QVERIFY(f.CellOf(0).picProg);
    }
  }

  void CountsALateAnswerOfARemovedSite() {
    const auto check = [](const char* what, int step) {
      const TableRow row(what);
      SilentPage f(2);
      f.logic->poll.FirstPoll();
      f.Marker(1);
      if (step != 1) f.Marker(0);
      if (step == 2) f.Body(0, f.GoodBody());
      if (step == 3) {
        f.Body(0, PlainPicture(kTail, QSize(3000, 2000)));
        // Its thumb is asked for in the turn that puts the picture in place, and can answer in a later turn only.
        while (!f.HasFile(1, 0)) QCoreApplication::processEvents();
      }
      f.program.page.SelectedSlot = 0;
      f.logic->sites.RemoveSite();
      if (step == 0) f.Body(0, f.GoodBody());
      if (step == 1) f.Marker(0);
      if (step == 4) f.Failure(0);
      QTRY_COMPARE(f.program.page.SitesDone, 1);
      QVERIFY(f.logic->poll.Busy());
      f.Body(1, f.GoodBody());
      QTRY_VERIFY(!f.logic->poll.Busy());
      QCOMPARE(f.program.page.SitesDone, 2);
      QTRY_VERIFY(f.HasPicture(1));
      QVERIFY(!f.HasPicture(0) && !f.CellOf(0).errorBox && f.CellOf(0).lblFrom.isEmpty());
      QVERIFY(!QFile::exists(f.Thumb(1, 0)));
      QCOMPARE(f.HasFile(1, 0), step == 3);  // it lay there before the removal, which keeps it for the undoing
      const QDir pictures(f.folder.filePath(u"images/dsstv"_s));
      QCOMPARE(pictures.entryList(QDir::Files).size(), step == 3 ? 3 : 2);
    };
    check("before its picture", 0);
    check("before its marker", 1);
    check("while it is stored", 2);
    check("while its thumb is made", 3);
    check("before its failure", 4);
  }

  // The page is chosen while the connection is being tested.
  void AsksTheWeatherPageFirst() {
    const auto check = [](const char* what, bool placed) {
      const TableRow row(what);
      PageFixture f;
      Station& station = f.band.AddStation(u"ZZ7WX"_s);
      station.SetFile(u"radar.jpg"_s, PlainPicture(kTail));
      f.AddWeatherSite(u"Radar"_s, station.Base() + u"/radar.jpg"_s, placed ? 1 : 0);
      f.Start();
      f.program.page.Online = false;
      f.logic->poll.PageChange(PageState::WxPage);
      QVERIFY(!f.logic->poll.Busy());
      f.program.page.Online = true;
      f.logic->poll.FirstPoll();
      QCOMPARE(f.logic->poll.Busy(), placed);
      if (placed) QTRY_VERIFY(f.HasPicture(0));
      QTRY_VERIFY(!f.logic->poll.Busy());
      QCOMPARE(station.Requests(u"radar.jpg"_s), placed ? 1 : 0);
    };
    check("a site that is placed", true);
    check("none", false);
  }
};

OMNI_TEST(TestPollAnswers)
#include "test_poll_answers.moc"
