// SPDX-License-Identifier: GPL-3.0-or-later
// What the hover tips say, for each thing that may be known or missing, and when they come and go.
#include <QLocale>

#include "page/hover_tip.h"
#include "test_folder.h"

namespace {

constexpr int kSlot = 3;

// A page whose slot 3 shows a picture of a sender at a site; own place is 40 north, 75 west.
struct Page {
  TestFolder folder;
  Program program;
  CallDatabase database{folder.path()};

  Page() {
    program.AppDataDir = folder.path();
    program.ZeroGlyph = u'Ø';
    program.config.MyLat = 40;
    program.config.MyLon = -75;
    using enum TextLine;
    for (const auto& [line, words] :
         {std::pair(kNotInDatabase, u"??? has no record"_s), std::pair(kNoLocation, u"where is ??"_s),
          std::pair(kSetLocation, u"where are you"_s), std::pair(kNoPosition, u"nowhere"_s)}) {
      program.language.lines[static_cast<std::size_t>(line)] = words;
    }
    program.nicknames.lstNicknames = {u"ZZ9NICK*Old Fox"_s};
    AddSite(u"ZZ0SITE"_s, 51.5, 0.1);
    AddSite(u"ZZ9ABC"_s, 40, -74);
    program.page.Field(kSlot, SlotCall) = u"ZZ9ABC"_s;
    program.page.Field(kSlot, ModeText) = u"EP snr -7"_s;
    program.page.Field(kSlot, SentTime) = u"3/15/2026 12:34"_s;
    AddRecord(u"AB0CD"_s, u"Jane Q. Public"_s, 51.5, 0.1);
    AddRecord(u"ZZ9NIC"_s, u"John"_s, 40, -75);
    AddRecord(u"ZZ9ABC"_s, u"Club"_s, 0, 0);
    AddRecord(u"ZZ9NP"_s, u"Max"_s, 0, 12);
  }

  void AddSite(const QString& call, double lat, double lon) {
    SiteRec site;
    site.Call = call;
    site.Lat = lat;
    site.Lon = lon;
    program.sites.Sites.append(site);
    program.sites.SortSites();
  }
  void AddRecord(const QString& call, const QString& name, double lat, double lon) {
    DbRec record;
    record.Call = call;
    record.Name = name;
    record.Add1 = u"1 Mill Lane"_s;
    record.Add2 = u"Mill Town"_s;
    record.Ctry = u"Erewhon"_s;
    record.Lat = CoordinateText(lat);
    record.Lon = CoordinateText(lon);
    database.SaveStation(call, record);
    if (!database.Finish()) qFatal("no record stored");
  }
};

}  // namespace

class TestHoverTip : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void TellsOfThePicture() {
    const auto check = [](const char* what, const QString& caller, const QString& text) {
      const TableRow row(what);
      Page page;
      page.program.page.Field(kSlot, Caller) = caller;
      QCOMPARE(PictureTip(page.program, page.database, TipSubjectOf(page.program, kSlot)).Shown(), text);
    };
    const auto tip = [](const QString& who, const QString& distance) {
      return QString(u" %1\r\n\r\n EP snr -7   %2\r\n 3/15/2026  12:34 UTC  "_s).arg(who, distance);
    };
    const QString home = u"1 Mill Lane \r\n Erewhon "_s;
    check("in the database", u"ABØCD"_s, tip(u"ABØCD  Jane \r\n "_s + home, u"5,711 km 50° "_s));
    check("behind the call", u"AB0CD/P"_s, tip(u"ABØCD  Jane \r\n "_s + home, u"5,711 km 50° "_s));
    check("a nickname, at the own place", u"ZZ9NIC"_s, tip(u"ZZ9NIC  Old Fox \r\n "_s + home, u"0 km0° "_s));
    check("a site, not placed by its record", u"ZZ9ABC"_s, tip(u"ZZ9ABC  Club \r\n "_s + home, u"85 km 89° "_s));
    check("a site without a record", u"ZZ0SITE"_s,
          tip(u"ZZØSITE   \r\n  ZZØSITE has no record \r\n  "_s, u"5,711 km 50° "_s));
    check("a record without a place", u"ZZ9NP"_s,
          tip(u"ZZ9NP  Max \r\n "_s + home, u"0 km 0° "_s) + u"\r\n where is ZZ9NP "_s);
    check("unknown", u"ZZ9XX"_s,
          tip(u"ZZ9XX   \r\n  ZZ9XX has no record \r\n  "_s, u"0 km 0° "_s) + u"\r\n where is ZZ9XX "_s);
    for (const QString& none : {QString(), u"Not found"_s, u"TX1"_s, u"-"_s}) check(qPrintable(none), none, {});
  }

  void TellsOfTheCaption() {
    const QString site = u" Club \r\n 1 Mill Lane \r\n Erewhon \r\n\r\n 85 km 89° "_s;
    const auto check = [&site](const char* what, const QString& caller, const QString& ofFrom) {
      const TableRow row(what);
      Page page;
      page.program.page.Field(kSlot, Caller) = caller;
      QCOMPARE(CaptionTip(page.program, page.database, TipSubjectOf(page.program, kSlot), TipPart::From).Shown(),
               ofFrom);
      QCOMPARE(CaptionTip(page.program, page.database, TipSubjectOf(page.program, kSlot), TipPart::Call).Shown(), site);
    };
    check("sender", u"AB0CD"_s, u" Jane \r\n 1 Mill Lane \r\n Erewhon \r\n\r\n 5,711 km 50° "_s);
    check("one place", u"ZZ9NIC"_s, u" Old Fox \r\n 1 Mill Lane \r\n Erewhon \r\n\r\n 0 km0° "_s);
    check("no place", u"ZZ9NP"_s, u"nowhere"_s);
    check("unknown", u"ZZ9XX"_s, u"ZZ9XX has no record"_s);
    for (const QString& none : {QString(), u"Not found"_s}) check("no sender", none, site);
  }

  void FollowsSettings() {
    Page page;
    page.program.page.Field(kSlot, Caller) = u"AB0CD"_s;
    page.program.page.Field(kSlot, SentTime).clear();
    page.program.config.DistUnit = 1;
    QVERIFY(PictureTip(page.program, page.database, TipSubjectOf(page.program, kSlot))
                .HoverText.endsWith(u"   3,549 mi 50° \r\n    "_s));

    for (double Config::*coordinate : {&Config::MyLat, &Config::MyLon}) {
      Page lost;
      lost.program.page.Field(kSlot, Caller) = u"ZZ9NP"_s;
      lost.program.config.*coordinate = 0;
      QCOMPARE(PictureTip(lost.program, lost.database, TipSubjectOf(lost.program, kSlot)).Shown(), u"where are you"_s);
      QCOMPARE(CaptionTip(lost.program, lost.database, TipSubjectOf(lost.program, kSlot), TipPart::From).Shown(),
               u"where are you"_s);
    }

    page.program.page.CurrentPage = kWxPage;
    QVERIFY(PictureTip(page.program, page.database, TipSubjectOf(page.program, kSlot)).Shown().isEmpty());
    QVERIFY(
        CaptionTip(page.program, page.database, TipSubjectOf(page.program, kSlot), TipPart::Call).Shown().isEmpty());
  }

  // Stored dates have the month first and are shown in the order of the language; a text that is no date is shown as it
  // is.
  void FollowsTheLanguage() {
    const auto check = [](const char* what, const QString& distance, const QString& date) {
      const TableRow row(what);
      Page page;
      page.program.config.LanguageName = QString::fromLatin1(what);
      page.program.page.Field(kSlot, Caller) = u"AB0CD"_s;
      const QString tip = PictureTip(page.program, page.database, TipSubjectOf(page.program, kSlot)).HoverText;
      const QString end = u"   %1 50° \r\n %2  12:34 UTC  "_s.arg(distance, date);
      QVERIFY2(tip.endsWith(end), qPrintable(tip));
      page.program.page.Field(kSlot, SentTime) = u"yesterday 12:34"_s;
      QVERIFY(PictureTip(page.program, page.database, TipSubjectOf(page.program, kSlot))
                  .HoverText.endsWith(u" yesterday  12:34 UTC  "_s));
    };
    check("English", u"5,711 km"_s, u"3/15/2026"_s);
    check("German", u"5.711 km"_s, u"15.03.2026"_s);
    check("French", u"5\u202f711 km"_s, u"15/03/2026"_s);
    check("Dutch", u"5.711 km"_s, u"15-03-2026"_s);
    check("Polish", u"5711 km"_s, u"15.03.2026"_s);
    check("Spanish", u"5711 km"_s, u"15/3/2026"_s);
    check("Russian", u"5\u00a0711 km"_s, u"15.03.2026"_s);
    check("Japanese", u"5,711 km"_s, u"2026/03/15"_s);
    check("Klingon", u"5,711 km"_s, u"3/15/2026"_s);
  }

  void ComesAndGoes() {
    Page page;
    for (int slot = 0; slot < 3; ++slot) page.program.page.Field(slot, Caller) = u"AB0CD"_s;
    page.folder.PutFolder(u"images/qrzImages"_s);
    const QString picture = page.folder.Put(u"images/qrzImages/AB0CD.jpg"_s, "x");
    HoverTip tip(page.program, page.database);
    QVERIFY(tip.Timer7.intervalAsDuration() == 3s && tip.Timer8.intervalAsDuration() == 3s);
    tip.Timer7.setInterval(0);
    QSignalSpy built(&tip, &HoverTip::Built);
    QSignalSpy shown(&tip, &HoverTip::Show);
    QSignalSpy hidden(&tip, &HoverTip::Hide);

    tip.Enter(0, TipPart::Picture);
    QCOMPARE(built.size(), 1);
    QVERIFY(shown.wait() && !tip.Timer7.isActive());
    QCOMPARE(shown[0], (QVariantList{0, built[0][1], picture}));

    // From the picture to the caption of the same cell, without a moment outside it.
    tip.Enter(0, TipPart::From);
    QCOMPARE(hidden.size(), 1);
    QVERIFY(shown.wait());
    // Away and back: the tip is still shown, and is not made again.
    tip.Leave();
    QVERIFY(tip.Timer8.isActive());
    tip.Enter(0, TipPart::From);
    QVERIFY(!tip.Timer8.isActive() && !tip.Timer7.isActive());
    QCOMPARE(built.size(), 2);
    // Away to another cell: the old tip is shown until the new one comes up.
    tip.Leave();
    tip.Enter(1, TipPart::Picture);
    QCOMPARE(hidden.size(), 1);
    QVERIFY(shown.wait());
    QCOMPARE(shown.last()[0], 1);
    // Away for good.
    tip.Timer8.setInterval(0);
    tip.Leave();
    QVERIFY(hidden.wait());

    // By keyboard, closed by Escape.
    tip.Focus(2);
    QVERIFY(shown.wait() && tip.Close() && !tip.Close());
    QCOMPARE(hidden.size(), 3);
  }

  void StaysAway() {
    Page page;
    for (int slot = 0; slot < 2; ++slot) page.program.page.Field(slot, Caller) = u"AB0CD"_s;
    bool menuOpen = false;
    HoverTip tip(page.program, page.database);
    tip.Timer7.setInterval(0);
    tip.MenuIsOpen = [&menuOpen] { return menuOpen; };
    const QSignalSpy shown(&tip, &HoverTip::Show);
    // Each timer's tick has been handled once the later one's has.
    const auto afterTick = [&tip] { return QTest::qWaitFor([&tip] { return !tip.Timer7.isActive(); }); };

    page.program.page.SitesOnPage = 2;
    page.program.page.SitesDone = 1;
    tip.Enter(0, TipPart::Picture);
    QVERIFY(!tip.Timer7.isActive());  // a poll runs
    page.program.page.SitesDone = 2;
    tip.Enter(0, TipPart::Picture);
    QVERIFY(tip.Timer7.isActive());
    tip.Leave();  // before its time
    QVERIFY(afterTick());
    tip.Enter(0, TipPart::Picture);
    menuOpen = true;
    QVERIFY(afterTick());
    menuOpen = false;
    tip.Enter(1, TipPart::Picture);
    tip.Enter(kSlot, TipPart::Picture);  // which has no sender
    QVERIFY(!tip.Timer7.isActive());
    tip.Enter(1, TipPart::Picture);
    tip.Close();
    QVERIFY(!tip.Timer7.isActive());
    QCOMPARE(shown.size(), 0);
  }
};

OMNI_TEST(TestHoverTip)
#include "test_hover_tip.moc"
