// SPDX-License-Identifier: GPL-3.0-or-later
// Changes of the site tables while a poll is under way: what stays, what is cleared, what comes back.

#include "page_fixture.h"
#include "test_suite.h"

using namespace Qt::StringLiterals;

namespace {

// Three sites with cams, the call of one within that of another; polled once.
struct Page : PageFixture {
  Page() {
    program.config.ThumbLayout = 5;
    int slot = 0;
    for (const QString& call : {u"ZZ1AB"_s, u"ZZ1ABC"_s, u"ZZ5BB"_s}) {
      const Station& station = AddSite(call, 1, slot);
      band.Find(call)->SetMarker(QSize(2, 300 + slot++));
      program.sites.Sites.last().CamUrl = station.Base() + u"/cam.jpg"_s;
    }
    program.sites.ListCams();
    Start();
    logic->poll.FirstPoll();
    const auto polled = [this]() { return HasPicture(0) && HasPicture(1) && HasPicture(2) && !logic->poll.Busy(); };
    if (!QTest::qWaitFor(polled)) qFatal("The page was not polled.");
    program.sites.SetCamMark(u"ZZ1ABC"_s, u'G');
  }

  int Site(const QString& call) const { return program.sites.FindCall(call); }
  void Remove(const QString& call) {
    ChangeOptions options;
    options.news = SiteNews{{call}, 0};
    const int site = Site(call);
    logic->changes.ChangeSites([site](SiteEdit& edit) { edit.dsstv.Remove(site); }, options, &network, {});
  }
  // What the cells of the page and the lists say.
  QStringList Stand() const {
    QStringList rows;
    for (int slot = 0; slot < 3; ++slot) {
      const Cell& cell = CellOf(slot);
      rows.append(u"%1|%2|%3|%4"_s.arg(cell.lblDisk, cell.lblCall.section(u' ', 0, 0),
                                       program.page.Field(slot, SlotSite),
                                       cell.imgCam == CamLight::Hidden ? u"-"_s : u"cam"_s));
    }
    return rows + program.sites.lstThumbPos + program.sites.lstCams;
  }
};

}  // namespace

class TestSiteChanges : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  // The answers that are under way carry indices: after the removal of the first site, each of the others has the index
  // of its neighbour.
  void RemovesASiteDuringAPollAndBringsItBack() {
    Page f;
    const QStringList before = f.Stand();
    // A placement of this run, which is in the masks alone.
    f.program.sites.SetSiteSlot(f.Site(u"ZZ5BB"_s), 3, 7);
    for (Station* station : f.band.Stations()) station->SetLatency(std::chrono::milliseconds(150));
    f.logic->poll.ReloadPage();
    QTRY_VERIFY(f.band.Find(u"ZZ5BB"_s)->Requests(u"image1"_s) > 1);
    f.Remove(u"ZZ1AB"_s);
    QVERIFY(!f.logic->poll.Busy());
    QVERIFY(f.CellOf(0).lblDisk.isEmpty() && !f.HasPicture(0) && f.program.page.Field(0, SlotCall).isEmpty());
    QCOMPARE(f.Stand(), (QStringList{u"|||-"_s, u"ZZ1ABC|ZZ1ABC|0|cam"_s, u"ZZ5BB|ZZ5BB|1|cam"_s, u"01-02-000-ZZ1ABC"_s,
                                     u"01-03-001-ZZ5BB"_s, u"03-07-001-ZZ5BB"_s, u"ZZ1ABC*G"_s, u"ZZ5BB*Y"_s}));
    QCOMPARE(f.program.sites.Sites.at(1).PageSlots[5], u"0103:0307"_s);
    QTRY_VERIFY(f.logic->poll.Busy());
    QTRY_VERIFY(!f.logic->poll.Busy());
    QVERIFY(!f.HasPicture(0) && f.HasPicture(1) && f.HasPicture(2));
    QCOMPARE(f.program.page.Field(2, Caller).isEmpty(), false);

    const int asked = f.band.Find(u"ZZ1AB"_s)->Requests(u"image1"_s);
    f.logic->changes.Undo(&f.network, {});
    QTRY_VERIFY(f.HasPicture(0));
    f.program.sites.SetSiteSlot(f.Site(u"ZZ5BB"_s), 3, 0);
    QTRY_VERIFY(!f.logic->poll.Busy());
    f.program.sites.lstThumbPos.removeIf([](const QString& entry) { return entry.startsWith("03"_L1); });
    QCOMPARE(f.Stand(), before);
    QCOMPARE(f.band.Find(u"ZZ1AB"_s)->Requests(u"image1"_s), asked);
  }

  // Captions go by site, and the mark of a cam goes with its address.
  void RenamesASite() {
    Page f;
    const int site = f.Site(u"ZZ1AB"_s);
    f.program.sites.SetCamMark(u"ZZ1AB"_s, u'G');
    f.logic->changes.ChangeSites(
        [site](SiteEdit& edit) {
          edit.dsstv.Change(site).Call = u"ZZ9XY"_s;
          edit.dsstv.Change(site + 1).CamUrl.clear();
        },
        {}, &f.network, {});
    QCOMPARE(f.Stand(),
             (QStringList{u"ZZ9XY|ZZ9XY|2|cam"_s, u"ZZ1ABC|ZZ1ABC|0|-"_s, u"ZZ5BB|ZZ5BB|1|cam"_s, u"01-01-002-ZZ9XY"_s,
                          u"01-02-000-ZZ1ABC"_s, u"01-03-001-ZZ5BB"_s, u"ZZ5BB*Y"_s, u"ZZ9XY*G"_s}));
    QVERIFY(f.HasPicture(0) && f.HasPicture(1));
  }

  // While a large change is being made, a poll writes a date and the user places a site.
  void FollowsWhatHappensWhileALargeChangeIsMade() {
    Page f;
    const auto change = [&f](const QString& call) {
      const int site = f.Site(call);
      ChangeOptions options;
      options.news = SiteNews{{call}, 0};
      f.logic->changes.ChangeManySites([site](SiteEdit& edit) { edit.dsstv.Remove(site); }, options, &f.network, {});
    };
    const auto seen = [&f](const QString& call) { return f.program.sites.Sites.at(f.Site(call)).LastSeen; };
    change(u"ZZ1AB"_s);
    QVERIFY(f.Site(u"ZZ1AB"_s) >= 0);
    for (const QString& call : {u"ZZ1AB"_s, u"ZZ5BB"_s})
      f.program.sites.Sites[f.Site(call)].LastSeen = u"01/02/2026 03:04"_s;
    QTRY_COMPARE(f.Site(u"ZZ1AB"_s), -1);
    QCOMPARE(seen(u"ZZ5BB"_s), u"01/02/2026 03:04"_s);
    QVERIFY(f.CellOf(0).lblDisk.isEmpty());
    f.logic->changes.Undo(&f.network, {});
    f.program.sites.SetSiteSlot(f.Site(u"ZZ5BB"_s), 3, 7);
    QTRY_VERIFY(f.Site(u"ZZ1AB"_s) >= 0);
    QCOMPARE(seen(u"ZZ1AB"_s), u"01/02/2026 03:04"_s);
    change(u"ZZ1ABC"_s);
    f.program.sites.SetSiteSlot(f.Site(u"ZZ5BB"_s), 4, 8);
    QTRY_COMPARE(f.Site(u"ZZ1ABC"_s), -1);
    QCOMPARE(f.program.sites.Sites.at(f.Site(u"ZZ5BB"_s)).PageSlots[5], u"0103:0408"_s);
  }

  // A change that cannot be saved is none, and can be tried again.
  void TakesBackWhatCannotBeSaved() {
    Page f;
    // The mark of a cam that comes back is found out by the next round.
    const QStringList before = f.Stand().replaceInStrings(u"*G"_s, u"*Y"_s);
    QStringList failing{u"Omni-Perch.lst"_s};
    f.logic->changes.SaveAllState = [&failing](const SiteChanges::Done& saved) { saved(failing); };
    f.Remove(u"ZZ1ABC"_s);
    QCOMPARE(f.Site(u"ZZ1ABC"_s), 1);
    QVERIFY(!f.logic->changes.Undoable());
    QTRY_VERIFY(f.HasPicture(1));
    QCOMPARE(f.Stand(), before);
    // The list is on the disk, another file is not: the next start would have the change, so that it stands.
    failing = QStringList{u"Omni-Perch.cfg"_s};
    QSignalSpy others(&f.logic->changes, &SiteChanges::NotWritten);
    f.Remove(u"ZZ1ABC"_s);
    QCOMPARE(others.value(0).value(0).toStringList(), failing);
    QCOMPARE(f.Site(u"ZZ1ABC"_s), -1);
    QVERIFY(f.logic->changes.Undoable());
    // Whoever moves a site ends the offer.
    f.program.page.SelectedSlot = 5;
    f.logic->sites.AddSiteToSlot(0);
    QVERIFY(!f.logic->changes.Undoable());
  }
};

OMNI_TEST(TestSiteChanges)
#include "test_site_changes.moc"
