// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "app/menu_tables.h"
#include "test_suite.h"

using namespace Qt::StringLiterals;

namespace {

LanguageTexts MadeTexts() {
  LanguageTexts texts;
  for (std::size_t i = 0; i < texts.lines.size(); ++i) texts.lines[i] = u"text %1"_s.arg(i);
  const auto set = [&texts](TextLine line, const QString& text) { texts.lines[static_cast<std::size_t>(line)] = text; };
  set(TextLine::kEmptyWord, u" nobody"_s);
  set(TextLine::kPopupHistory, u"see ** of ??"_s);
  set(TextLine::kPopupCam, u" eye"_s);
  set(TextLine::kPopupBlock, u"shun xxx"_s);
  set(TextLine::kPopupUnblock, u"pardon xxx"_s);
  set(TextLine::kPopupLookup, u"ask ***"_s);
  set(TextLine::kSiteWord, u"here"_s);
  set(TextLine::kSenderWord, u"there"_s);
  set(TextLine::kViewByAddress, u"?? street"_s);
  set(TextLine::kViewByCoordinates, u"?? degrees"_s);
  return texts;
}

SiteRec Site(const QString& call, int layout, const QString& slots) {
  SiteRec site;
  site.Call = call;
  site.PageSlots[static_cast<std::size_t>(layout)] = slots;
  return site;
}

// Indices for which a flag is set, as "1 2 3".
QString Where(const QList<MenuEntry>& entries, bool MenuEntry::*flag, bool value = true) {
  QStringList found;
  for (qsizetype i = 0; i < entries.size(); ++i) {
    if (entries.at(i).*flag == value) found.append(QString::number(i));
  }
  return found.join(u' ');
}

QStringList TextsOf(const QList<MenuEntry>& entries) {
  QStringList texts;
  for (const MenuEntry& entry : entries) texts.append(entry.text);
  return texts;
}

struct Made {
  Program program;
  MenuTables tables;
  Cell cell;

  explicit Made(const NotYet& notYet = {}) : tables(program, notYet) {
    program.config.ThumbLayout = 2;
    program.config.CallbookName = u"QRZ"_s;
    program.page.SelectedSlot = 3;
    program.page.Field(3, SlotCall) = u"DL0ABC"_s;
    program.page.Field(3, Caller) = u"PA0XYZ"_s;
    cell.lblCall = u"DLØABC"_s;
    cell.lblFrom = u"From PAØXYZ"_s;
    cell.imgCam = CamLight::Green;
    tables.BuildMenuTables(MadeTexts());
  }
};

}  // namespace

class TestMenuTables : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void PopupGreying_data() {
    QTest::addColumn<QString>("caller");
    QTest::addColumn<QString>("from");
    QTest::addColumn<int>("page");
    QTest::addColumn<bool>("cam");
    QTest::addColumn<bool>("empty");
    QTest::addColumn<QString>("greyed");
    const QString from = u"From PAØXYZ"_s;
    QTest::newRow("picture and cam") << u"PA0XYZ"_s << from << 1 << true << false << u"7"_s;
    QTest::newRow("no cam") << u"PA0XYZ"_s << from << 1 << false << false << u"4 7"_s;
    QTest::newRow("not found") << u"Not found"_s << QString() << 1 << true << false << u"7 10 11 12 13 14 15 16"_s;
    QTest::newRow("cam only") << QString() << u"Cam only"_s << 20 << true << false
                              << u"0 1 2 3 4 7 9 10 11 12 13 14 15 16"_s;
    QTest::newRow("weather") << u"PA0XYZ"_s << from << 21 << true << false << u"2 3 4 5 6 7 8 9 10"_s;
    QTest::newRow("weather, not found") << u"Not found"_s << QString() << 21 << false << false
                                        << u"2 3 4 5 6 7 8 9 10 11 12 13 14 15 16"_s;
    QTest::newRow("empty") << QString() << QString() << 1 << false << true
                           << u"1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19"_s;
  }

  void PopupGreying() {
    QFETCH(QString, caller);
    QFETCH(QString, from);
    QFETCH(int, page);
    QFETCH(bool, cam);
    QFETCH(bool, empty);
    Made made;
    made.program.page.CurrentPage = page;
    made.program.page.Field(3, Caller) = caller;
    made.cell.lblFrom = from;
    if (!cam) made.cell.imgCam = CamLight::Hidden;
    if (empty) made.cell.lblCall.clear();
    const QList<MenuEntry> menu = made.tables.Menu(menu_number::kPopup, &made.cell);
    QCOMPARE(menu.size(), 21);
    QTEST(Where(menu, &MenuEntry::enabled, false), "greyed");
  }

  void PopupTexts() {
    Made made;
    QList<MenuEntry> menu = made.tables.Menu(menu_number::kPopup, &made.cell);
    QCOMPARE(menu.at(2).text, u"see 30 of DLØABC"_s);
    QCOMPARE(menu.at(3).text, u"see TX1-TX5 of DLØABC"_s);
    QCOMPARE(menu.at(4).text, u"DLØABC eye"_s);
    QCOMPARE(menu.at(5).text, u"shun PAØXYZ"_s);
    QCOMPARE(menu.at(9).text, u"ask QRZ"_s);
    QCOMPARE(menu.at(6).subMenu, 30);
    QCOMPARE(menu.at(8).subMenu, 31);
    QCOMPARE(menu.at(9).subMenu, 32);
    QCOMPARE(Where(menu, &MenuEntry::checked), QString());

    made.program.lstBlock = {u"G4AAA"_s, u"pa0xyz"_s};
    made.program.config.MenuStyle = 2;
    menu = made.tables.Menu(menu_number::kPopup, &made.cell);
    QCOMPARE(menu.at(5).text, u"pardon PAØXYZ"_s);
    QCOMPARE(Where(menu, &MenuEntry::checked), u"2"_s);

    // What has no window yet is there and greyed, whatever the cell shows.
    Made present(NotYet::Present());
    menu = present.tables.Menu(menu_number::kPopup, &present.cell);
    QVERIFY(menu.at(0).enabled && menu.at(1).enabled && menu.at(17).enabled && menu.at(18).enabled);
    for (const int waiting : NotYet::Present().popup) QVERIFY(!menu.at(waiting).enabled);
    QVERIFY(!present.tables.Menu(menu_number::kPopup).at(18).enabled);
  }

  void SiteAndSender() {
    Made made;
    QCOMPARE(TextsOf(made.tables.SubMenu(30)), QStringList({u"DLØABC here"_s, u"PAØXYZ there"_s}));
    QCOMPARE(TextsOf(made.tables.SubMenu(32)), TextsOf(made.tables.SubMenu(30)));
    made.program.LookupStatus = u"Not logged in"_s;
    QCOMPARE(TextsOf(made.tables.SubMenu(32)), TextsOf(made.tables.SubMenu(30)) << u"Not logged in"_s);
    QCOMPARE(Where(made.tables.SubMenu(32), &MenuEntry::enabled, false), u"2"_s);
    QCOMPARE(TextsOf(made.tables.SubMenu(31)),
             QStringList({u"DLØABC street"_s, u"DLØABC degrees"_s, u"PAØXYZ street"_s, u"PAØXYZ degrees"_s}));
    made.program.page.Field(3, Caller) = u"Not found"_s;
    QCOMPARE(Where(made.tables.SubMenu(30), &MenuEntry::enabled), u"0"_s);
    QCOMPARE(Where(made.tables.SubMenu(31), &MenuEntry::enabled), u"0 1"_s);
  }

  void PagesTellEmptyOnes() {
    Made made;
    Program& program = made.program;
    program.PageLabels = {QString()};
    for (int page = 1; page <= 20; ++page) program.PageLabels.append(u"P%1"_s.arg(page));
    program.PageLabels.append(u"Sky"_s);
    program.sites.Sites = {Site(u"DL0ABC"_s, 2, u"0203:2001"_s)};
    program.sites.SitePosMask = {QString(20, u'0')};
    program.sites.BuildPageSlots(2);
    program.page.CurrentPage = 21;
    QList<MenuEntry> menu = made.tables.Menu(menu_number::kPages);
    QCOMPARE(menu.size(), 21);
    QCOMPARE(menu.at(0).text, u" P1 nobody "_s);
    QCOMPARE(menu.at(1).text, u" P2 "_s);
    QCOMPARE(menu.at(19).text, u" P20 "_s);
    QCOMPARE(menu.at(20).text, u" Sky nobody "_s);
    QCOMPARE(Where(menu, &MenuEntry::checked), u"20"_s);
    program.sites.WxSites = {Site(u"Radar"_s, 2, u"1"_s)};
    QCOMPARE(made.tables.Menu(menu_number::kPages).at(20).text, u" Sky "_s);
  }

  void FindListsThePage() {
    Made made;
    QVERIFY(made.tables.Menu(menu_number::kFind).isEmpty());
    made.program.page.List1 = {u"DL0ABC    10"_s, u"G4AAA    2"_s};
    QCOMPARE(TextsOf(made.tables.Menu(menu_number::kFind)), QStringList({u"DLØABC    10"_s, u"G4AAA    2"_s}));
    QCOMPARE(TextsOf(made.tables.Menu(menu_number::kAlphabet)), TextsOf(made.tables.Menu(menu_number::kFind)));
  }

  void SetupOpensItsSubMenus() {
    Made made;
    const QList<MenuEntry> menu = made.tables.Menu(menu_number::kSetup);
    QCOMPARE(menu.size(), 17);
    for (int i = 0; i < menu.size(); ++i) {
      QCOMPARE(menu.at(i).action, i);
      QCOMPARE(menu.at(i).subMenu, i >= 8 && i <= 13 ? i : 0);
    }
    QVERIFY(menu.at(8).separatorBefore && !menu.at(9).separatorBefore);
    QCOMPARE(Where(Made(NotYet::Present()).tables.Menu(menu_number::kSetup), &MenuEntry::enabled),
             u"8 9 10 11 12 13"_s);
  }

  void Checks_data() {
    QTest::addColumn<int>("number");
    QTest::addColumn<Config>("config");
    QTest::addColumn<QString>("checked");
    const auto row = [](const char* name, int number, const QString& checked, auto... change) {
      Config config;
      config.AutoPollCams = 1;
      (change(config), ...);
      QTest::newRow(name) << number << config << checked;
    };
    row("cam view", 8, u"1"_s, [](Config& c) { c.CamView = 1; });
    row("cam mode", 9, u"2"_s, [](Config& c) { c.CamMode = 2; });
    row("cam mode once", 9, u"0 3"_s, [](Config& c) { c.AutoPollCams = 0; });
    row("cam mode of no kind", 9, QString(), [](Config& c) { c.CamMode = 3; });
    row("rate 5", 10, u"2"_s, [](Config& c) { c.AutoRefreshOn = 1, c.AutoRefreshMinutes = 5; });
    row("rate 4, which no entry has", 10, QString(), [](Config& c) { c.AutoRefreshOn = 1, c.AutoRefreshMinutes = 4; });
    row("rate off", 10, u"3"_s, [](Config& c) { c.AutoRefreshMinutes = 5; });
    row("window size", 11, u"3"_s, [](Config& c) { c.GuiMode = 3; });
    row("thumbnails", 12, u"5"_s, [](Config& c) { c.ThumbLayout = 6; });
    row("no layout", 12, QString(), [](Config& c) { c.ThumbLayout = 99; });
    row("language", 13, u"1"_s, [](Config& c) { c.LanguageName = u"french"_s; });
    row("language without a file", 13, QString(), [](Config& c) { c.LanguageName = u"Fre"_s; });
  }

  void Checks() {
    QFETCH(int, number);
    QFETCH(Config, config);
    Made made;
    made.program.config = config;
    made.program.lstLanguages = {u"Dutch"_s, u"French"_s};
    QTEST(Where(made.tables.SubMenu(number), &MenuEntry::checked), "checked");
  }

  void SubMenuTexts() {
    Made made;
    QCOMPARE(TextsOf(made.tables.SubMenu(10)), QStringList({u"1 min"_s, u"2 min"_s, u"5 min"_s, u"text 28"_s}));
    QCOMPARE(TextsOf(made.tables.SubMenu(12)), QStringList({u"5"_s, u"10"_s, u"15"_s, u"24"_s, u"35"_s, u"36"_s}));
    for (int i = 0; i < 9; ++i) made.program.lstLanguages.append(u"L%1"_s.arg(i));
    QStringList languages = TextsOf(made.tables.SubMenu(13));
    QCOMPARE(languages.size(), 9);
    QCOMPARE(languages.first(), u"text 1"_s);
    QCOMPARE(languages.last(), u"L8"_s);
    made.tables.BuildMenuTables(LanguageTexts());
    QCOMPARE(TextsOf(made.tables.SubMenu(13)), made.program.lstLanguages);
  }
};

OMNI_TEST(TestMenuTables)
#include "test_menu_tables.moc"
