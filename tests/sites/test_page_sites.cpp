// SPDX-License-Identifier: GPL-3.0-or-later
// Changing which sites stand where: adding, reloading, compacting and removing, on the page and in the lists.

#include "page_fixture.h"
#include "test_suite.h"

using namespace Qt::StringLiterals;

namespace {

// Three sites of a page with their pictures, heights and thumbs, told apart by their heights; polled once.
struct ThreeSites : PageFixture {
  Station& first;

  ThreeSites() : first((program.config.ThumbLayout = 5, AddSite(u"ZZ1AA"_s, 1, 9))) {
    AddSite(u"ZZ9CC"_s, 1, 0).SetMarker(QSize(2, 301));
    AddSite(u"ZZ5BB"_s, 1, 30).SetMarker(QSize(2, 302));
    AddSite(u"ZZ7DD"_s, 2, 0);
    Start();
    logic->poll.FirstPoll();
    const auto polled = [this]() {
      return HasPicture(0) && HasPicture(9) && HasPicture(30) && !logic->poll.Busy() && StandsWhole();
    };
    if (!QTest::qWaitFor(polled)) qFatal("The page was not polled.");
  }

  bool StandsWhole() const { return Stand().join(QString()).count(u"thumb"_s) == 3; }
  // Each site of the page with its slot, its height and what its files hold.
  QStringList Stand() const {
    QStringList rows;
    for (int site = 0; site < program.sites.Sites.size(); ++site) {
      const int slot = program.sites.GetSiteSlot(site, 1);
      if (slot == 0) continue;
      rows.append(u"%1 at %2: %3 %4%5"_s.arg(program.sites.Sites.at(site).Call)
                      .arg(slot)
                      .arg(logic->heights.Height(1, slot - 1))
                      .arg(qHash(Bytes(Picture(1, slot - 1))))
                      .arg(QFile::exists(Thumb(1, slot - 1)) ? u" thumb"_s : QString()));
    }
    return rows;
  }
  static QByteArray Bytes(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }
  static QString Rest(const QStringList& rows, const QString& call) {
    return rows.filter(call).value(0).section(u": "_s, 1);
  }
};

}  // namespace

class TestPageSites : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void ReloadsOneSlot() {
    PageFixture f;
    Station& one = f.AddSite(u"ZZ1AA"_s, 1, 0);
    Station& two = f.AddSite(u"ZZ2BB"_s, 1, 1);
    f.StartAndPoll();
    QTRY_VERIFY(f.HasPicture(0) && f.HasPicture(1));
    f.program.page.SelectedSlot = 1;
    f.logic->sites.ReloadSlot();
    QTRY_COMPARE(two.Requests(u"image1"_s), 2);
    QCOMPARE(two.Requests(u"checknew.jpg"_s), 1);
    QCOMPARE(one.Requests(u"image1"_s), 1);
    QCOMPARE(f.program.page.Field(1, LastHeight), u"0"_s);
  }

  void AddsASite() {
    PageFixture f;
    f.AddSite(u"ZZ1AA"_s, 1, 0);
    Station& moved = f.AddSite(u"ZZ2BB"_s, 1, 4);
    f.StartAndPoll();
    QTRY_VERIFY(f.HasPicture(0) && f.HasPicture(4));
    QTRY_VERIFY(!f.logic->poll.Busy());
    // ZZ2BB takes the slot of ZZ1AA, which then has no slot on the page.
    f.program.page.SelectedSlot = 0;
    f.logic->sites.AddSiteToSlot(f.program.sites.FindCall(u"ZZ2BB"_s));
    QCOMPARE(f.program.page.Field(0, SlotCall), u"ZZ2BB"_s);
    QTRY_COMPARE(moved.Requests(u"checknew.jpg"_s), 2);
    QVERIFY2(!moved.Log().constLast().contains(u'?') || moved.Requests(u"image1"_s) > 1, "no parameter here");
    QVERIFY(f.CellOf(4).lblDisk.isEmpty());
    QCOMPARE(f.program.sites.GetSiteSlot(f.program.sites.FindCall(u"ZZ2BB"_s), 1), 1);
    QCOMPARE(f.program.sites.GetSiteSlot(f.program.sites.FindCall(u"ZZ1AA"_s), 1), 0);
    QVERIFY(f.program.sites.FindThumbPos(1, 5).isEmpty());
    QVERIFY(f.program.sites.FindThumbPos(1, 1).endsWith(u"ZZ2BB"_s));
  }

  void AddsAWeatherSite() {
    PageFixture f;
    f.AddSite(u"ZZ1AA"_s, 1, 0);
    f.program.sites.Sites[0].LastSeen = u"1/2/2026 10:00"_s;
    Station& weather = f.band.AddStation(u"ZZ7WX"_s);
    weather.SetFile(u"radar.jpg"_s, PlainPicture("AB1CD * EP snr -3 *03:15:2026 10:30"));
    f.AddWeatherSite(u"Radar"_s, weather.Base() + u"/radar.jpg"_s, 0);
    f.Start();
    f.program.page.CurrentPage = PageState::WxPage;
    f.program.page.SelectedSlot = 2;
    f.logic->sites.AddSiteToSlot(0);
    QTRY_VERIFY(f.HasPicture(2));
    QCOMPARE(f.program.sites.WxSites.at(0).PageSlots[2], u"3"_s);
    QCOMPARE(f.program.sites.Sites.at(0).LastSeen, u"1/2/2026 10:00"_s);
  }

  // In the order of calls; and taken back.
  void MovesFilesWithTheirSites() {
    const auto check = [](const char* what, bool online) {
      const TableRow row(what);
      ThreeSites f;
      f.program.page.Online = online;
      const QStringList before = f.Stand();
      f.logic->sites.CompactPage();
      const QStringList after = f.Stand();
      QCOMPARE(after, (QStringList{u"ZZ1AA at 1: "_s + f.Rest(before, u"ZZ1AA"_s),
                                   u"ZZ5BB at 2: "_s + f.Rest(before, u"ZZ5BB"_s),
                                   u"ZZ9CC at 3: "_s + f.Rest(before, u"ZZ9CC"_s)}));
      QTRY_VERIFY(f.HasPicture(0) && f.HasPicture(1) && f.HasPicture(2));
      QCOMPARE(f.program.page.Field(0, SlotCall), u"ZZ1AA"_s);
      QCOMPARE(f.program.page.Field(1, SlotCall), u"ZZ5BB"_s);
      QCOMPARE(f.program.page.Field(2, SlotCall), u"ZZ9CC"_s);
      QTRY_COMPARE(f.first.Requests(u"image1"_s), online ? 2 : 1);
      QTRY_VERIFY(!f.logic->poll.Busy());
      QCOMPARE(f.program.sites.Sites.at(f.program.sites.FindCall(u"ZZ5BB"_s)).PageSlots[5], u"0102"_s);
      QCOMPARE(f.program.sites.Sites.at(f.program.sites.FindCall(u"ZZ7DD"_s)).PageSlots[5], u"0201"_s);
      f.logic->sites.Undo();
      QTRY_VERIFY(f.HasPicture(0) && f.HasPicture(9) && f.HasPicture(30));
      if (!online) QCOMPARE(f.Stand(), before);
      QVERIFY(f.CellOf(1).lblDisk.isEmpty() && f.CellOf(2).lblDisk.isEmpty());
      QVERIFY(!f.logic->sites.Undoable());
    };
    check("online", true);
    check("without a connection", false);
  }

  void TakesARemovalBack() {
    const auto check = [](const char* what, bool all, bool online, bool fromElsewhere) {
      const TableRow row(what);
      ThreeSites f;
      f.program.page.Online = online;
      const QStringList before = f.Stand();
      QSignalSpy changed(&f.logic->sites, &PageSites::UndoableChanged);
      f.program.page.SelectedSlot = 9;
      if (all) f.logic->sites.RemoveAllSites();
      if (!all) f.logic->sites.RemoveSite();
      QCOMPARE(f.Stand().size(), all ? 0 : 2);
      QCOMPARE(f.program.page.List1, all ? QStringList() : QStringList({u"ZZ5BB    31"_s, u"ZZ9CC    1"_s}));
      QVERIFY(f.CellOf(9).frames.isEmpty() && f.CellOf(9).lblCall.isEmpty());
      QCOMPARE(f.program.sites.Sites.at(f.program.sites.FindCall(u"ZZ1AA"_s)).PageSlots[5], QString());
      QVERIFY(f.program.sites.PageIsEmpty(1) == all && f.program.sites.lstThumbPos.size() == (all ? 1 : 3));
      QCOMPARE(changed.count(), 1);
      const std::optional<PlacesChange> change = f.logic->sites.Undoable();
      QVERIFY(change);
      QCOMPARE(change->kind, all ? PlacesChange::Kind::AllRemoved : PlacesChange::Kind::SiteRemoved);
      QCOMPARE(change->call, all ? QString() : u"ZZ1AA"_s);
      if (fromElsewhere) f.logic->poll.PageChange(2);
      f.logic->sites.Undo();
      QVERIFY(!f.logic->sites.Undoable());
      QCOMPARE(changed.count(), 2);
      if (fromElsewhere) f.logic->poll.PageChange(1);
      QCOMPARE(f.Stand(), before);
      QTRY_VERIFY(f.HasPicture(0) && f.HasPicture(9) && f.HasPicture(30));
      QTRY_VERIFY(!f.logic->poll.Busy());
      QCOMPARE(f.program.page.List1.size(), 3);
      QCOMPARE(f.first.Requests(u"image1"_s), 1);
    };
    for (const bool online : {false, true}) {
      for (const bool elsewhere : {false, true}) {
        const char* const place = elsewhere ? "from another page" : "on its page";
        check(qPrintable(u"one site, %1, online %2"_s.arg(QLatin1StringView(place)).arg(online)), false, online,
              elsewhere);
        check(qPrintable(u"all sites, %1, online %2"_s.arg(QLatin1StringView(place)).arg(online)), true, online,
              elsewhere);
      }
    }
  }

  void ForgetsTheChangeAtTheNext() {
    ThreeSites f;
    f.program.page.SelectedSlot = 9;
    f.logic->sites.RemoveSite();
    f.program.page.SelectedSlot = 12;
    f.logic->sites.AddSiteToSlot(f.program.sites.FindCall(u"ZZ1AA"_s));
    QVERIFY(!f.logic->sites.Undoable());
    f.logic->sites.Undo();
    QCOMPARE(f.program.sites.GetSiteSlot(f.program.sites.FindCall(u"ZZ1AA"_s), 1), 13);
    f.logic->sites.RemoveSite();
    f.logic->grid.MakeGrid(3);
    QVERIFY2(!f.logic->sites.Undoable(), "another layout has other places");
  }

  void CompactsAFullPage() {
    PageFixture f;
    f.program.config.ThumbLayout = 5;
    for (int slot = 0; slot < 35; ++slot) {
      SiteRec site;
      site.Call = u"ZZ1%1"_s.arg(slot, 2, 10, QLatin1Char('0'));
      site.Url = u"http://127.0.0.1:9/cam only"_s;
      site.PageSlots[5] = u"01%1"_s.arg(slot + 1, 2, 10, QLatin1Char('0'));
      f.program.sites.Sites.append(site);
    }
    f.StartAndPoll();
    f.logic->sites.CompactPage();
    QSet<int> slots;
    for (int site = 0; site < 35; ++site) slots.insert(f.program.sites.GetSiteSlot(site, 1));
    QCOMPARE(slots.size(), 35);
    QVERIFY(!slots.contains(0) && !slots.contains(36));
    QCOMPARE(f.program.sites.GetSiteSlot(26, 1), 28);
  }

  void BlinksACell() {
    PageFixture f;
    f.Start();
    f.logic->grid.Flash(3);
    QTRY_VERIFY(f.CellOf(3).flash);
    f.logic->grid.Flash(4);
    QVERIFY2(!f.CellOf(3).flash, "one cell blinks at a time");
    QTRY_VERIFY(f.CellOf(4).flash);
    QTRY_VERIFY(!f.CellOf(4).flash);
  }
};

OMNI_TEST(TestPageSites)
#include "test_page_sites.moc"
