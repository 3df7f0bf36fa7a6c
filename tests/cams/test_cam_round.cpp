// SPDX-License-Identifier: GPL-3.0-or-later
// The rounds over cams: what they ask, what an answer changes, and what may come in between.
#include "page_fixture.h"

namespace {

constexpr int kPatienceMs = 20'000;

// A page with sites of which some have a cam.
struct CamFixture : PageFixture {
  CamFixture() : PageFixture(UrlLimits()) { program.config.AutoPollCams = 1; }

  Station& AddCam(const QString& call, int page, int slot, bool isGood = true) {
    Station& station = AddSite(call, page, slot);
    if (!isGood) station.Misbehave(u"cam.jpg"_s, Behaviour::WrongType);
    program.sites.Sites.last().CamUrl = station.Base() + u"/cam.jpg"_s;
    return station;
  }
  void StartRounds(int mode) {
    Start();
    program.config.CamMode = mode;
    program.sites.ListCams();
    logic->cams.ListsRead();
  }
  void WaitForEnd() const { QTRY_VERIFY_WITH_TIMEOUT(!logic->ucCam.IsBusy(), kPatienceMs); }
  // The lights of the first slots by their first letters, and what the lists say.
  QString Lights(int slots) const {
    QString lights;
    for (int slot = 0; slot < slots; ++slot) {
      lights += u"-YGR."_s.at(static_cast<int>(CellOf(slot).imgCam));
    }
    return lights;
  }
  QString Lists() const {
    return program.sites.lstCams.join(u' ') + u'|' + program.page.txtActive + u'|' + program.page.ActiveCamNames;
  }
};

}  // namespace

class TestCamRound : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  // All cams: those of the page have lights, those of other pages are in the lists alone.
  void AllCams() {
    CamFixture f;
    f.AddCam(u"ZZ1AA"_s, 1, 0);
    f.AddCam(u"ZZ2BB"_s, 1, 1, false);
    f.AddSite(u"ZZ3CC"_s, 1, 2);
    f.AddCam(u"ZZ4DD"_s, 2, 0);
    f.StartRounds(0);
    f.program.page.CamMinuteCount = 3;
    CamRound& cams = f.logic->cams;
    QCOMPARE(cams.LabelCaption() + cams.StatusTitle(), u"Cams"_s + u"Omni-Perch  Cam sites status"_s);
    cams.PollAllCams();
    QCOMPARE(f.Lights(3), u"YY-"_s);
    QCOMPARE(f.Lists(), u"ZZ1AA*Y ZZ2BB*Y ZZ4DD*Y|START|"_s);
    f.WaitForEnd();
    QCOMPARE(f.Lights(3), u"GR-"_s);
    QCOMPARE(f.program.sites.lstCams.join(u' '), u"ZZ1AA*G ZZ2BB*R ZZ4DD*G"_s);
    const QString active = f.program.page.ActiveCamNames;
    QVERIFY(active == "*ZZ1AA*ZZ4DD"_L1 || active == "*ZZ4DD*ZZ1AA"_L1);
    QCOMPARE(f.program.page.txtActive, u"START"_s + active);
    QCOMPARE(QList({cams.CamsRequested, cams.CamsFinished, cams.ActiveCamCount, f.program.page.CamMinuteCount}),
             QList({3, 3, 2, 0}));
    QCOMPARE(cams.LabelCaption() + cams.StatusTitle(), u"Cams (2)Omni-Perch  Cam sites status (2 active)"_s);

    // The poll of another page shows what is known of its cams, not that they are being tested.
    f.logic->poll.PageChange(2);
    QCOMPARE(f.Lights(1), u"G"_s);
    f.program.sites.lstCams.clear();
    f.logic->poll.PageChange(2);
    QCOMPARE(f.Lights(1), u"G"_s);
  }

  // Only the page's cams; another page cancels what is under way, and a late answer finds no item.
  void CamsOfThePage() {
    CamFixture f;
    Station& late = f.AddCam(u"ZZ1AA"_s, 1, 0);
    late.Misbehave(u"cam.jpg"_s, Behaviour::Stall);
    f.AddCam(u"ZZ4DD"_s, 2, 0);
    f.StartRounds(1);
    QVERIFY(!f.logic->cams.LabelIsShown());
    f.logic->cams.MnuCamModeClick(1);
    QVERIFY(f.logic->cams.LabelIsShown());
    QCOMPARE(f.Lists(), u"ZZ1AA*Y||"_s);
    QTRY_COMPARE_WITH_TIMEOUT(late.Requests(u"cam.jpg"_s), 1, kPatienceMs);
    f.logic->poll.PageChange(2);
    f.logic->cams.PageChanged();
    QCOMPARE(f.program.sites.lstCams, QStringList{u"ZZ4DD*Y"_s});
    f.WaitForEnd();
    QCOMPARE(f.Lights(1), u"G"_s);
    QCOMPARE(f.Lists(), u"ZZ4DD*G|START*ZZ4DD|*ZZ4DD"_s);
    QCOMPARE(f.logic->cams.LabelCaption(), u"Cams"_s);
    f.logic->poll.PageChange(PageState::WxPage);
    f.logic->cams.PageChanged();
    QVERIFY(f.program.sites.lstCams.isEmpty() && !f.logic->ucCam.IsBusy());
  }

  // Answers that come when the mode is off, on the weather page, or for a site that has gone.
  void IgnoresLateAnswers() {
    const auto check = [](const char* name, const std::function<void(CamFixture&)>& meanwhile, const QString& lists) {
      const TableRow row(name);
      CamFixture f;
      f.AddCam(u"ZZ1AA"_s, 1, 0);
      f.AddCam(u"ZZ2BB"_s, 1, 1);
      f.StartRounds(0);
      f.logic->cams.PollAllCams();
      meanwhile(f);
      Q_EMIT f.logic->ucCam.GotCamPic(u"1"_s);
      Q_EMIT f.logic->ucCam.NoCamPic(u"1"_s);
      Q_EMIT f.logic->ucCam.GotCamPic(u"2"_s);
      QCOMPARE(f.Lists(), lists);
    };
    check(
        "off", [](CamFixture& f) { f.logic->cams.MnuCamModeClick(2); }, u"||"_s);
    check(
        "weather", [](CamFixture& f) { f.program.page.CurrentPage = PageState::WxPage; }, u"ZZ1AA*Y ZZ2BB*Y|START|"_s);
    check(
        "removed from the table", [](CamFixture& f) { f.program.sites.Sites.removeLast(); },
        u"ZZ1AA*Y ZZ2BB*Y|START|"_s);
    check(
        "emptied record", [](CamFixture& f) { f.program.sites.Sites.last().Call.clear(); },
        u"ZZ1AA*Y ZZ2BB*Y|START|"_s);
    // Another site has the index now, and is marked: that is how it is told.
    check(
        "another at its index", [](CamFixture& f) { f.program.sites.Sites.swapItemsAt(0, 1); },
        u"ZZ1AA*R ZZ2BB*Y|START*ZZ1AA|*ZZ1AA"_s);
    check(
        "a longer call is found", [](CamFixture& f) { f.program.sites.Sites[1].Call = u"zz2"_s; },
        u"ZZ1AA*Y zz2*R|START*zz2|*zz2"_s);
  }

  // A round that falls due waits for the one under way; what the user wants does not.
  void OneRoundAtATime() {
    CamFixture f;
    Station& station = f.AddCam(u"ZZ1AA"_s, 1, 0);
    station.SetLatency(300ms);
    f.StartRounds(0);
    QSignalSpy reset(&f.logic->cams, &CamRound::LightsReset);
    f.logic->cams.RoundDue(CamRound::AllCams);
    QTRY_COMPARE_WITH_TIMEOUT(station.Requests(u"cam.jpg"_s), 1, kPatienceMs);
    f.logic->cams.RoundDue(CamRound::AllCams);
    QCOMPARE(f.Lights(1), u"Y"_s);
    QTRY_COMPARE_WITH_TIMEOUT(station.Requests(u"cam.jpg"_s), 2, kPatienceMs);
    QCOMPARE(reset.count(), 1);
    f.logic->cams.RefreshCams();
    QTRY_COMPARE_WITH_TIMEOUT(station.Requests(u"cam.jpg"_s), 3, kPatienceMs);
    f.WaitForEnd();
    QCOMPARE(f.Lists(), u"ZZ1AA*G|START*ZZ1AA|*ZZ1AA"_s);
    QCOMPARE(f.logic->cams.CamsFinished, 1);

    // No connection: nothing is asked. Only the fourth entry leaves the mode as it is.
    f.program.page.Online = false;
    f.logic->cams.MnuCamModeClick(0);
    f.logic->cams.RefreshCams();
    QVERIFY(!f.logic->ucCam.IsBusy() && !f.logic->cams.Timer11.isActive());
    f.logic->cams.MnuCamModeClick(3);
    QCOMPARE(f.program.config.CamMode, 0);
    QCOMPARE(f.program.config.AutoPollCams, 0);
    // The weather page drops all answers: a round would leave every light yellow.
    f.program.page.Online = true;
    f.program.page.CurrentPage = PageState::WxPage;
    f.logic->cams.RefreshCams();
    QVERIFY(!f.logic->cams.Timer11.isActive());
  }
};

OMNI_TEST(TestCamRound)
#include "test_cam_round.moc"
