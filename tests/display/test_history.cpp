// SPDX-License-Identifier: GPL-3.0-or-later
// The history of a site: what it asks for, how it judges what comes, and that nothing of an opening gets into the next.
#include "core/page_files.h"
#include "display/history.h"
#include "no_room.h"
#include "page_fixture.h"
#include "sample_pictures.h"

namespace {

constexpr int kPictures = 30;

// Two sites on a page; the picture of each number was sent by a caller of its own.
struct HistoryFixture : PageFixture {
  Station& first;
  Station& second;
  std::unique_ptr<History> history;

  HistoryFixture() : first(AddSite(u"ZZ1AA"_s, 1, 4)), second(AddSite(u"ZZ2BB"_s, 1, 2)) {
    for (Station* station : {&first, &second}) {
      for (int number = 1; number <= kPictures; ++number) {
        station->SetFile(u"image%1"_s.arg(number), Picture(*station, number));
      }
    }
    folder.PutFolder(u"images/last15"_s);
    Start();
    history = std::make_unique<History>(History::Dependencies{program, network, tool, background});
  }

  static QString CallerOf(const Station& station, int number) {
    return u"%1%2AA"_s.arg(station.Call().first(3)).arg(number);
  }
  // Each of another size, and larger than what a full disk takes.
  static QByteArray Picture(const Station& station, int number) {
    return PlainPicture(CallerOf(station, number).toLatin1() + " * EP snr -3 *03:15:2026 10:30",
                        QSize(400 + number, 300));
  }
  QByteArray File(int number) const { return folder.Bytes(u"images/last15/%1"_s.arg(number)); }
  QStringList Files() const {
    return QDir(folder.filePath(u"images/last15"_s)).entryList(QDir::Files | QDir::Hidden, QDir::Name);
  }
  const Cell& HistoryCell(int number) const { return history->Cells().at(number - 1); }
  QString SecondLine(int number) const { return HistoryCell(number).box.second.Text(program.language); }
  // All of this station's pictures, and nothing else, are on the disk and in the cells.
  bool ShowsAllOf(const Station& station) const {
    for (int number = 1; number <= kPictures; ++number) {
      if (File(number) != Picture(station, number) || HistoryCell(number).frames.isEmpty()) return false;
      if (history->FieldsOf(number - 1).Caller != CallerOf(station, number)) return false;
    }
    return Files().size() == kPictures;
  }
};

}  // namespace

class TestHistory : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void FetchesThirty() {
    HistoryFixture f;
    for (const QString& old : {u"0"_s, u"31"_s, u"TX1.jpg"_s, u".part-x"_s})
      f.folder.Put(u"images/last15/"_s + old, "old");
    f.program.lstBlock = {HistoryFixture::CallerOf(f.first, 9)};
    f.program.lstBadCalls = {HistoryFixture::CallerOf(f.first, 10)};
    const QSignalSpy updates(&f.logic->poll, &PollCycle::UpdateCheckWanted);
    f.history->Open({.Last15Slot = 5});
    QCOMPARE(f.program.page.SitesOnPage, 29);
    QCOMPARE(f.HistoryCell(30).lblCall, u"Image 30"_s);
    QVERIFY(f.HistoryCell(30).picProg);
    QTRY_COMPARE(f.history->Found(), kPictures);
    QCOMPARE(f.history->Answered(), kPictures);
    QCOMPARE(f.program.page.SitesDone, kPictures);
    for (int number = 1; number <= kPictures; ++number) QCOMPARE(f.first.Requests(u"image%1"_s.arg(number)), 1);
    QCOMPARE(f.Files().size(), kPictures);
    QCOMPARE(f.File(30), HistoryFixture::Picture(f.first, 30));
    const History::Fields& fields = f.history->FieldsOf(6);
    QCOMPARE(fields.Caller, HistoryFixture::CallerOf(f.first, 7));
    QCOMPARE(fields.ModeText, u"EP snr -3 "_s);
    QVERIFY(fields.SentTime.contains(u"10:30"_s));
    QVERIFY(f.HistoryCell(7).lblFrom.endsWith(fields.Caller) && f.HistoryCell(7).lblMode == "EP"_L1);
    // The page knows nothing of it, and no poll has ended.
    QVERIFY(f.program.page.Field(4, Caller).isEmpty() && f.program.sites.Sites.at(0).LastSeen.isEmpty());
    QVERIFY(updates.isEmpty() && !f.logic->poll.tmrIfAllDone.isActive());
    // Pictures of a blocked sender and of a bad call are there and blanked; a click opens the first alone.
    QVERIFY(f.HistoryCell(9).errorBox && f.HistoryCell(10).errorBox);
    QCOMPARE(f.history->Pictures(8).at, 8);
    QCOMPARE(f.history->Pictures(9).at, -1);
    QCOMPARE(f.history->Pictures(10).at, 9);
    // Another sender is blocked while the history is open.
    f.program.lstBlock = {HistoryFixture::CallerOf(f.first, 12)};
    f.history->TakeBlocks();
    QVERIFY(f.HistoryCell(12).errorBox);
    QTRY_VERIFY(!f.HistoryCell(9).errorBox);
  }

  // Every kind of fault in one history: each costs its own cell and nothing else.
  void BearsWhatOneSiteCanSend() {
    HistoryFixture f;
    const TextLine missing = TextLine::kNoPictureText;
    const TextLine corrupt = TextLine::kCorruptText;
    const std::vector<std::pair<Behaviour, TextLine>> faults{
        {Behaviour::NotFound, missing},     {Behaviour::ServerError, corrupt},    {Behaviour::EmptyBody, missing},
        {Behaviour::ShortBody, missing},    {Behaviour::Endless, missing},        {Behaviour::Stall, missing},
        {Behaviour::StallMidBody, missing}, {Behaviour::Drip, missing},           {Behaviour::Reset, missing},
        {Behaviour::RedirectLoop, missing}, {Behaviour::RedirectToFile, missing}, {Behaviour::WrongType, corrupt},
        {Behaviour::Bomb, corrupt},         {Behaviour::GarbageBody, corrupt}};
    int number = 1;
    for (const auto& [behaviour, line] : faults) f.first.Misbehave(u"image%1"_s.arg(number++), behaviour);
    const int notFoundAsGood = number++;
    const int hanging = number++;
    const int shortest = number++;
    f.first.SetAnswer(u"image%1"_s.arg(notFoundAsGood),
                      {200, "image/jpeg", NoSuchPage().body + QByteArray(200, ' '), {}});
    f.first.SetFile(u"image%1"_s.arg(hanging), SlowJpeg());
    f.first.SetFile(u"image%1"_s.arg(shortest), QByteArray(100, 'x'));
    f.history->Open({.Last15Slot = 5});
    QTRY_COMPARE_WITH_TIMEOUT(f.history->Answered(), kPictures, 30000);
    const int bad = shortest;
    QTRY_COMPARE_WITH_TIMEOUT(f.history->Found(), kPictures - bad, 30000);
    QTRY_VERIFY_WITH_TIMEOUT(f.HistoryCell(hanging).errorBox, 30000);
    for (std::size_t i = 0; i < faults.size(); ++i) {
      const TableRow row(qPrintable(u"fault %1"_s.arg(i)));
      QCOMPARE(f.SecondLine(static_cast<int>(i) + 1), f.program.language[faults[i].second]);
    }
    QCOMPARE(f.SecondLine(notFoundAsGood), f.program.language[missing]);
    QCOMPARE(f.SecondLine(hanging), f.program.language[corrupt]);
    QCOMPARE(f.SecondLine(shortest), f.program.language[missing]);
    QCOMPARE(f.HistoryCell(1).box.first.Text(f.program.language), u"Image 1"_s);
    // A fault counts twice, as on the page.
    QCOMPARE(f.program.page.SitesDone, kPictures + bad);
    QCOMPARE(f.File(1), "none"_ba);
    QCOMPARE(f.history->Pictures(0).at, -1);

    // The station is mended, and the user asks for one picture again.
    f.first.Misbehave(u"image1"_s, Behaviour::Normal);
    f.history->ReloadSlot(0);
    QTRY_COMPARE(f.history->Found(), kPictures - bad + 1);
    QCOMPARE(f.history->Answered(), kPictures);
    QVERIFY(!f.HistoryCell(1).errorBox && !f.HistoryCell(1).lblConnect);
  }

  // At each stage the window is opened for another site, or closed.
  void NothingOfOneOpeningGetsIntoTheNext() {
    const auto check = [](const char* what, const std::function<bool(HistoryFixture&)>& reached, bool reopen) {
      const TableRow row(what);
      HistoryFixture f;
      f.history->Open({.Last15Slot = 5});
      while (!reached(f)) QCoreApplication::processEvents();
      if (!reopen) {
        f.history->Stop();
        const int asked = f.first.TotalRequests();
        const int answered = f.history->Answered();
        // A read of another site shows that the event loop has gone on.
        UserControl1 another(f.network);
        QSignalSpy done(&another, &UserControl1::PictureReady);
        another.DownloadFile(f.second.Url(), u"20"_s);
        QVERIFY(done.wait());
        QVERIFY(f.first.TotalRequests() <= asked + 6);  // six were on their way
        QCOMPARE(f.history->Answered(), answered);
        QCOMPARE(f.Files().filter(u".part"_s), QStringList());
        return;
      }
      // Late, so that what is under way for the first site has the time to get there.
      f.second.SetLatency(100ms);
      f.history->Open({.Last15Slot = 3});
      int strange = 0;
      connect(f.history.get(), &History::CellChanged, f.history.get(), [&](int slot) {
        const Cell& cell = f.history->Cells().at(slot);
        if (cell.errorBox || f.history->FieldsOf(slot).Caller.startsWith(u"ZZ1"_s)) ++strange;
      });
      QTRY_COMPARE(f.history->Found(), kPictures);
      QCOMPARE(strange, 0);
      QTRY_VERIFY(f.ShowsAllOf(f.second));
      QCOMPARE(f.history->Site(), u"ZZ2BB"_s);
    };
    for (const bool reopen : {true, false}) {
      check(
          "at once", [](HistoryFixture&) { return true; }, reopen);
      check(
          "asked", [](HistoryFixture& f) { return f.first.TotalRequests() >= 6; }, reopen);
      check(
          "answered", [](HistoryFixture& f) { return f.history->Answered() >= 1; }, reopen);
      check(
          "shown", [](HistoryFixture& f) { return f.history->Found() >= 1; }, reopen);
      check(
          "all answered", [](HistoryFixture& f) { return f.history->Answered() == kPictures; }, reopen);
    }
  }

  void LeavesNothingTornOnAFullDisk() {
    HistoryFixture f;
    const bool ended = WithoutRoom([&f]() {
      f.history->Open({.Last15Slot = 5});
      return QTest::qWaitFor([&f]() { return f.program.page.SitesDone == 2 * kPictures; }, 20000);
    });
    QVERIFY(ended);
    QCOMPARE(f.Files(), QStringList());
    QCOMPARE(f.SecondLine(30), f.program.language[TextLine::kCorruptText]);
    QCOMPARE(f.history->Found(), 0);
  }

  // Which addresses are asked, by the form of the site's own.
  void AsksByTheFormOfTheAddress() {
    const auto check = [](const char* what, const QString& urlEnd, const HistoryOrigin& origin, const QString& prefix,
                          const QString& end) {
      const TableRow row(what);
      PageFixture f;
      Station& station = f.AddSite(u"ZZ1AA"_s, 1, 0, urlEnd);
      f.program.sites.Sites[0].Url.prepend(u"NoDelete"_s);
      f.folder.PutFolder(u"images/last15"_s);
      const QString kept = f.folder.Put(u"images/last15/TX1.jpg"_s, "old");
      f.Start();
      History history({f.program, f.network, f.tool, f.background});
      history.Open(origin);
      QTRY_COMPARE(history.Answered(), history.Count());
      QStringList asked;
      for (int number = 1; number <= history.Count(); ++number) asked << prefix + QString::number(number) + end;
      QStringList log = station.Log();
      asked.sort();
      log.sort();
      QCOMPARE(log, asked);
      QCOMPARE(f.program.page.SitesOnPage, history.Count() - 1);
      QVERIFY(origin.TxMode || !QFile::exists(kept));
    };
    check("image1", u"/image1"_s, {.Last15Slot = 1}, u"/image"_s, {});
    check("another name", u"/pics/latest.jpg"_s, {.Last15Slot = 1}, u"/pics/latest.jp"_s, {});
    check("by the site's index", u"/a/image1"_s, {.Last15Site = 0}, u"/a/image"_s, {});
    check("sent pictures", u"/a/image1"_s, {.Last15Slot = 1, .TxMode = true}, u"/a/TX"_s, u".jpg"_s);
    PageFixture f;
    f.Start();
    History none({f.program, f.network, f.tool, f.background});
    none.Open({.Last15Slot = 7});
    QTRY_COMPARE(none.Answered(), kPictures);  // there is no such site any more
  }

  // The two count in the same variables; the page's poll comes to its end all the same.
  // Whoever steps through the pictures gets those of this site, and none once the place belongs to another.
  void ItsListFollows() {
    HistoryFixture f;
    f.history->Open({.Last15Slot = 5});
    QTRY_COMPARE(f.history->Found(), kPictures);
    const PictureList list = f.history->Pictures(0);
    QVERIFY(list.renew().pictures.contains(list.pictures.first()));
    f.history->Open({.Last15Slot = 3});
    QTRY_COMPARE(f.history->Found(), kPictures);
    QVERIFY(!list.renew().pictures.contains(list.pictures.first()));
    // Closed while reads are out: the page's tips, which wait for the end of the count, open again.
    f.history->Open({.Last15Slot = 5});
    f.history->Stop();
    QVERIFY(f.program.page.SitesDone >= f.program.page.SitesOnPage);
    f.history.reset();
    QVERIFY(list.renew().pictures.isEmpty());
  }

  void APollEndsBesideIt() {
    for (const bool txMode : {false, true}) {
      HistoryFixture f;
      f.history->Open({.Last15Slot = 5, .TxMode = txMode});
      f.logic->poll.FirstPoll();
      QVERIFY(f.logic->poll.Busy());
      QTRY_VERIFY(!f.logic->poll.Busy());
      QTRY_COMPARE(f.history->Answered(), f.history->Count());
      f.Refresh();
    }
  }
};

OMNI_TEST(TestHistory)
#include "test_history.moc"
