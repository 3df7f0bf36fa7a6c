// SPDX-License-Identifier: GPL-3.0-or-later
// The poll over real HTTP: who is asked, what is fetched, how answers are counted and what ends a poll.
#include <QImageReader>

#include "page_fixture.h"

class TestPoll : public QObject {
  Q_OBJECT

  inline static const QByteArray kFreshTail = "AB1CD -HYBRID- * EP snr -3 *03:15:2026 10:30";

 private Q_SLOTS:
  void FetchesOnceAndThenAsksOnlyMarkers() {
    PageFixture f;
    Station& one = f.AddSite(u"ZZ1AA"_s, 1, 0);
    Station& two = f.AddSite(u"ZZ2BB"_s, 1, 3);
    one.SetPicture(PlainPicture(kFreshTail));
    // The picture of an earlier version goes when a new one is asked for.
    const QString former = f.folder.Put(u"images/dsstv/image1.jpg"_s, {});
    f.StartAndPoll();
    QVERIFY(f.logic->poll.Busy());
    QTRY_VERIFY(!f.logic->poll.Busy());
    QTRY_VERIFY(f.HasPicture(0) && f.HasPicture(3));
    QVERIFY(!QFile::exists(former) && f.program.page.SitesOnPage == 2);
    const auto fields = [&f]() {
      QStringList all{f.CellOf(0).lblMode, f.CellOf(0).lblFrom};
      for (const ThumbField field : {Caller, ModeText, SentTime}) all += f.program.page.Field(0, field);
      return all.join(u'|');
    };
    const QString expected = u"EPH|From AB1CD|AB1CD|EPH snr -3 |3/15/2026 10:30"_s;
    QCOMPARE(fields(), expected);
    QCOMPARE(QImageReader(f.Thumb(1, 0)).size(), QSize(115, 86));
    QVERIFY2(one.Log().constFirst().contains("checknew.jpg?d=20260315120000"_L1), qPrintable(one.Log().constFirst()));

    f.Refresh();
    QVERIFY(one.Requests(u"checknew.jpg"_s) == 2 && one.Requests(u"image1"_s) == 1);

    // A restart finds heights and pictures on the disk and fetches nothing again.
    QVERIFY(f.logic->heights.Write(f.program.AppDataDir));
    f.StartAndPoll();
    QTRY_VERIFY(!f.logic->poll.Busy());
    QTRY_VERIFY(f.HasPicture(0) && f.HasPicture(3));
    QCOMPARE(fields(), expected);
    QCOMPARE(one.Requests(u"image1"_s) + two.Requests(u"image1"_s), 2);

    // A height that has moved brings one picture; a forced reload brings one of each site.
    one.SetMarker(QSize(1, 301));
    f.Refresh();
    QTRY_COMPARE(one.Requests(u"image1"_s), 2);
    QCOMPARE(two.Requests(u"image1"_s), 1);
    QTRY_COMPARE(f.CellOf(0).Shape1, CellColour::OnAir);
    f.logic->poll.ReloadPage();
    QTRY_VERIFY(!f.logic->poll.Busy());
    QTRY_COMPARE(one.Requests(u"image1"_s), 3);
    QCOMPARE(two.Requests(u"image1"_s), 2);
    f.Refresh();
    QCOMPARE(one.Requests(u"image1"_s), 3);
  }

  void DecidesByHeights() {
    const auto check = [](const char* what, bool file, bool reload, int stored, int old, int marker, bool fetches) {
      const TableRow row(what);
      PageFixture f;
      Station& station = f.AddSite(u"ZZ1AA"_s);
      station.SetMarker(QSize(2, marker));
      f.Start();
      if (file) f.folder.Put(f.PictureName(1, 0), PlainPicture(kFreshTail));
      f.logic->heights.SetHeight(1, 0, stored);
      f.program.page.Field(0, LastHeight) = old == 0 ? QString() : QString::number(old);
      if (reload) f.logic->grid.SetReloadMark(0);
      QSignalSpy checked(&f.logic->check, &NewImageCheck::Checked);
      f.logic->poll.StartPoll(false);
      QTRY_COMPARE(checked.count(), 1);
      QTRY_COMPARE(station.Requests(u"image1"_s), fetches ? 1 : 0);
      const int height = marker > 32767 ? 0 : marker;
      QCOMPARE(f.logic->heights.Height(1, 0), height);
      QCOMPARE(f.program.page.Field(0, LastHeight), QString::number(height));
    };
    check("after start, unchanged", true, false, 300, 0, 300, false);
    check("after start, new picture", true, false, 299, 0, 300, true);
    check("later, unchanged", true, false, 300, 300, 300, false);
    check("later, new picture", true, false, 299, 299, 300, true);
    check("file missing", false, false, 300, 0, 300, true);
    check("file missing, seen in this run", false, false, 300, 300, 300, false);
    check("forced reload", true, true, 300, 0, 300, true);
    check("after a forced reload", true, true, 300, 300, 300, false);
    check("height beyond 16 bits counts as none", true, false, 300, 0, 40000, true);
  }

  void TellsOnAirUnlessStale() {
    PageFixture f;
    Station& young = f.AddSite(u"ZZ1AA"_s, 1, 0);
    Station& stale = f.AddSite(u"ZZ2BB"_s, 1, 1);
    young.SetPicture(PlainPicture(kFreshTail));
    stale.SetPicture(PlainPicture("AB1CD * EP snr -3 *02:12:2026 11:59"));
    f.Start();
    for (const int width : {1, 2, 1}) {
      young.SetMarker(QSize(width, 300));
      stale.SetMarker(QSize(width, 300));
      f.Refresh();
      QTRY_VERIFY(f.HasPicture(0) && f.HasPicture(1));
      QTRY_COMPARE(f.CellOf(0).Shape1, width == 1 ? CellColour::OnAir : CellColour::Window);
      QCOMPARE(f.CellOf(0).onAirTip, width == 1 ? u"On air"_s : u"Off air"_s);
      QTRY_COMPARE(f.CellOf(1).Shape1, CellColour::Stale);
    }
    QCOMPARE(f.CellOf(1).lblCall, u"ZZ2BB - 31 days"_s);
  }

  void CountsWhatIsNotAsked() {
    PageFixture f;
    f.AddSite(u"ZZ1AA"_s, 1, 0);
    Station& other = f.AddSite(u"ZZ2BB"_s, 1, 1, u"/picture.htm"_s);
    Station& cam = f.AddSite(u"ZZ3CC"_s, 1, 2, u"/NoDelete Cam Only"_s);
    f.StartAndPoll();
    QTRY_VERIFY(f.HasPicture(0));
    QVERIFY(f.program.page.SitesOnPage == 3 && f.program.page.SitesDone == 1);
    QVERIFY2(f.logic->poll.Busy(), "the sign stays up while sites that are not asked are counted");
    QCOMPARE(other.TotalRequests() + cam.TotalRequests(), 0);
    QVERIFY(f.CellOf(2).lblFrom == u"Cam only" && f.HasPicture(2));

    f.program.page.CurrentPage = 7;
    f.logic->poll.StartPoll(true);
    QVERIFY2(!f.logic->poll.Busy(), "a page without sites is not busy");
    // Only the first walk is followed by the work after a poll although it has no end.
    QVERIFY(f.logic->poll.tmrIfAllDone.isActive());
    f.logic->poll.tmrIfAllDone.stop();
    for (const bool first : {false, true}) {
      if (first) {
        f.logic->poll.FirstPoll();
      } else {
        f.logic->poll.StartPoll(true);
      }
      QCOMPARE(f.logic->poll.tmrIfAllDone.isActive(), first);
    }
  }

  void CountsFailuresTwiceAndMore() {
    PageFixture f;
    Station& dead = f.AddSite(u"ZZ1AA"_s, 1, 0);
    dead.Misbehave({}, Behaviour::Refuse);
    f.Start();
    QSignalSpy updates(&f.logic->poll, &PollCycle::UpdateCheckWanted);
    QSignalSpy rounds(&f.logic->poll, &PollCycle::CamRoundWanted);
    f.logic->poll.FirstPoll();
    QTRY_VERIFY(!f.logic->poll.Busy());
    QVERIFY(f.program.page.SitesDone == 2 && f.CellOf(0).errorBox);
    const QStringList told{f.program.page.Field(0, Caller), f.program.page.Field(0, LastHeight), f.BoxFirst(0),
                           f.BoxSecond(0)};
    QCOMPARE(told.join(u'|'), u"Not found|0|Image error 1|Not found"_s);
    QVERIFY(updates.count() == 1 && rounds.count() == 1 && f.program.page.CamPollDue);
    // The settling tick runs the cam round again, and not the update check.
    QTRY_VERIFY_WITH_TIMEOUT(!f.program.page.CamPollDue, 4000);
    QVERIFY(updates.count() == 1 && rounds.count() == 2);
  }

  void SettlesAfterAPoll() {
    const auto check = [this](const char* what, int camMode, bool held, const QList<int>& rounds) {
      const TableRow row(what);
      PageFixture f;
      f.AddSite(u"ZZ1AA"_s);
      f.program.config.CamMode = camMode;
      f.program.config.AutoRefreshOn = 1;
      f.Start();
      QList<int> wanted;
      connect(&f.logic->poll, &PollCycle::CamRoundWanted, this, [&wanted](int round) { wanted.append(round); });
      QSignalSpy updates(&f.logic->poll, &PollCycle::UpdateCheckWanted);
      f.logic->poll.FirstPoll();
      f.program.page.CamRoundHeld = held;
      QTRY_VERIFY(f.logic->poll.tmrIfAllDone.isActive());
      f.logic->poll.StopRefreshTimers();
      f.logic->poll.IfAllDoneTick();
      QCOMPARE(wanted, rounds);
      QCOMPARE(updates.count(), 1);
      QVERIFY(f.logic->poll.Timer6.isActive() && !f.program.page.CamPollDue && !f.program.page.CamRoundHeld);
      f.logic->poll.IfAllDoneTick();
      QCOMPARE(updates.count(), 1);
    };
    check("all cams", 0, false, {1});
    check("all cams, held back by a page change", 0, true, {});
    check("cams of the page", 1, true, {2});
    check("no cams", 2, false, {});
  }

  void MinutesStartPolls() {
    PageFixture f;
    Station& station = f.AddSite(u"ZZ1AA"_s);
    f.program.config.AutoRefreshMinutes = 2;
    f.Start();
    f.logic->poll.Timer6Tick();
    QVERIFY(!f.logic->poll.Busy());
    f.logic->poll.Timer6Tick();
    QTRY_COMPARE(station.Requests(u"checknew.jpg"_s), 1);
    QCOMPARE(f.program.page.AutoRefreshCounter, 0);

    f.program.page.CamPollDue = false;
    f.program.page.CamMinuteCount = 0;
    for (int minute = 0; minute < 5; ++minute) f.logic->poll.Timer10Tick();
    QVERIFY(f.program.page.CamPollDue);
    f.program.page.CamPollDue = false;
    for (int minute = 0; minute < 20; ++minute) f.logic->poll.Timer10Tick();
    QVERIFY2(!f.program.page.CamPollDue, "without the repeat the count runs past five");

    QTRY_VERIFY(!f.logic->poll.Busy());
    f.program.page.Online = false;
    for (int minute = 0; minute < 2; ++minute) f.logic->poll.Timer6Tick();
    f.logic->poll.ReloadPage();
    QVERIFY(!f.logic->poll.Busy());
  }

  void RateAndCaption() {
    PageFixture f;
    f.program.config.GuiMode = 2;
    f.Start();
    PollCycle& poll = f.logic->poll;
    poll.MnuRateClick(2);
    QVERIFY(poll.RefreshCaption() == u"Refresh (auto 5 min) " && poll.Timer6.isActive());
    poll.MnuRateClick(3);
    QCOMPARE(poll.RefreshCaption(), u"Refresh (off) "_s);
    QVERIFY(!poll.Timer6.isActive() && !poll.Timer4.isActive() && f.program.config.AutoRefreshMinutes == 5);
    f.program.config.GuiMode = 0;
    QCOMPARE(poll.RefreshCaption(), u"  Refresh"_s);
  }

  void LeavesALeftPageAlone() {
    PageFixture f;
    Station& slow = f.AddSite(u"ZZ1AA"_s, 3, 0);
    slow.Misbehave(u"image1"_s, Behaviour::Drip);
    Station& here = f.AddSite(u"ZZ2BB"_s, 4, 0);
    here.SetPicture(PlainPicture(kFreshTail));
    f.Start();
    f.logic->poll.PageChange(3);
    QTRY_COMPARE(slow.Requests(u"image1"_s), 1);
    f.logic->poll.PageChange(4);
    QTRY_VERIFY(f.HasPicture(0));
    QSignalSpy gone(&f.logic->ucDnLoad, &UserControl1::NoImage);
    QTRY_COMPARE(gone.count(), 1);
    QVERIFY(f.HasPicture(0) && f.program.page.Field(0, SlotCall) == u"ZZ2BB" && f.program.page.SitesDone == 1);
  }

  void PollsTheWeatherPage() {
    PageFixture f;
    Station& picture = f.band.AddStation(u"ZZ7WX"_s);
    picture.SetFile(u"radar.png"_s, PlainPicture({}, QSize(200, 100), "PNG"));
    Station& marker = f.band.AddStation(u"ZZ8WX"_s);
    f.AddWeatherSite(u"Radar"_s, u"NoDelete"_s + picture.Base() + u"/radar.png"_s, 2);
    f.AddWeatherSite(u"Marked"_s, marker.Url(), 1);
    f.AddWeatherSite(u"Elsewhere"_s, picture.Url(), 0);
    f.Start();
    f.logic->poll.PageChange(PageState::WxPage);
    QCOMPARE(f.CellOf(1).lblCall, u"Radar"_s);
    QTRY_VERIFY(f.HasPicture(1));
    QVERIFY(!f.CellOf(1).lblConnect && !f.CellOf(1).picProg && f.program.page.SitesOnPage == 2);
    QTRY_COMPARE(marker.Requests(u"checknew.jpg"_s), 2);
    QVERIFY(marker.Requests(u"image1"_s) == 0 && picture.TotalRequests() == 1);
    QVERIFY(!marker.Log().constFirst().contains(u'?'));
    // The cell's control cannot load a PNG: the file has been replaced by one of 24 bits that it can.
    QCOMPARE(QImageReader(f.folder.filePath(u"images/wx/1"_s)).format(), QByteArray("jpeg"));
    QCOMPARE(f.CellOf(1).img, QRectF(6, 17.5, 118, 59));

    // Every third minute, and heights are not asked.
    for (int minute = 0; minute < 3; ++minute) f.logic->poll.Timer4Tick();
    QTRY_COMPARE(picture.TotalRequests(), 2);
    QTRY_VERIFY(f.HasPicture(1));
  }
};

OMNI_TEST(TestPoll)
#include "test_poll.moc"
