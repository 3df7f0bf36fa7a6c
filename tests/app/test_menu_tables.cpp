// SPDX-License-Identifier: GPL-3.0-or-later
// The entries of all menus: their texts, checks and sub-menus, and when they are greyed.

#include "app/menu_tables.h"
#include "test_suite.h"

namespace {

LanguageTexts MadeTexts() {
  using enum TextLine;
  LanguageTexts texts;
  for (std::size_t i = 0; i < texts.lines.size(); ++i) texts.lines[i] = u"text %1"_s.arg(i);
  for (const auto& [line, text] :
       {std::pair(kEmptyWord, u" nobody"_s), std::pair(kPopupHistory, u"see ** of ??"_s),
        std::pair(kPopupCam, u" eye"_s), std::pair(kPopupBlock, u"shun xxx"_s),
        std::pair(kPopupUnblock, u"pardon xxx"_s), std::pair(kPopupLookup, u"ask ***"_s),
        std::pair(kSiteWord, u"here"_s), std::pair(kSenderWord, u"there"_s), std::pair(kViewByAddress, u"?? street"_s),
        std::pair(kViewByCoordinates, u"?? degrees"_s)}) {
    texts.lines[static_cast<std::size_t>(line)] = text;
  }
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

// The texts of all, as "one / two".
QString TextsOf(const QList<MenuEntry>& entries) {
  QStringList texts;
  for (const MenuEntry& entry : entries) texts.append(entry.text);
  return texts.join(u" / "_s);
}

// A program in which every command has a handler, and the menu of a cell with a picture.
struct Made {
  Program program;
  Commands commands;
  QObject handler;
  MenuTables tables{program, commands};
  MenuSubject subject;

  explicit Made(const QList<Command>& without = {}) {
    subject.site = u"DL0ABC"_s;
    subject.caller = u"PA0XYZ"_s;
    subject.empty = false;
    subject.hasCam = true;
    for (int command = 1; command <= static_cast<int>(Command::SignInOrOut); ++command) {
      const auto each = static_cast<Command>(command);
      if (!without.contains(each)) commands.Register(each, &handler, [](const MenuChoice&) {});
    }
    program.config.ThumbLayout = 2;
    program.config.CallbookName = u"QRZ"_s;
    tables.BuildMenuTables(MadeTexts());
  }
  QList<MenuEntry> Menu(MenuId menu) const { return tables.Menu(menu, subject); }
};

}  // namespace

class TestMenuTables : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void PopupGreying() {
    const auto check = [](const char* what, const QString& caller, bool camOnly, bool weather, bool cam, bool empty,
                          const QString& greyed) {
      const TableRow row(what);
      Made made;
      made.subject.caller = caller;
      made.subject.camOnly = camOnly;
      made.subject.weather = weather;
      made.subject.hasCam = cam;
      made.subject.empty = empty;
      const QList<MenuEntry> menu = made.Menu(MenuId::Picture);
      QCOMPARE(menu.size(), 21);
      QCOMPARE(Where(menu, &MenuEntry::enabled, false), greyed);
    };
    check("picture and cam", u"PA0XYZ"_s, false, false, true, false, u"7"_s);
    check("no cam", u"PA0XYZ"_s, false, false, false, false, u"4 7"_s);
    check("not found", u"Not found"_s, false, false, true, false, u"5 7 10 11 12 13 14 15 16"_s);
    check("cam only", {}, true, false, true, false, u"0 1 2 3 4 5 7 9 10 11 12 13 14 15 16"_s);
    check("weather", u"PA0XYZ"_s, false, true, true, false, u"2 3 4 5 6 7 8 9 10"_s);
    check("weather, not found", u"Not found"_s, false, true, false, false, u"2 3 4 5 6 7 8 9 10 11 12 13 14 15 16"_s);
    check("empty", {}, false, false, false, true, u"1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19"_s);
  }

  void PopupTexts() {
    Made made;
    QList<MenuEntry> menu = made.Menu(MenuId::Picture);
    QCOMPARE(TextsOf(menu.mid(2, 4)), u"see 30 of DLØABC / see TX1-TX5 of DLØABC / DLØABC eye / shun PAØXYZ"_s);
    QCOMPARE(menu.at(9).text, u"ask QRZ"_s);
    const QList<MenuId> subMenus{menu.at(6).subMenu, menu.at(8).subMenu, menu.at(9).subMenu};
    QCOMPARE(subMenus, (QList<MenuId>{MenuId::MapOfCall, MenuId::PageViews, MenuId::Lookups}));
    QCOMPARE(Where(menu, &MenuEntry::checked), QString());

    made.program.lstBlock = {u"G4AAA"_s, u"pa0xyz"_s};
    made.program.config.MenuStyle = 2;
    menu = made.Menu(MenuId::Picture);
    QCOMPARE(menu.at(5).text, u"pardon PAØXYZ"_s);
    QCOMPARE(Where(menu, &MenuEntry::checked), u"2"_s);

    // An entry whose command nobody handles is there and greyed; so is a sub-menu of such entries alone.
    const Made few({Command::ShowHistory, Command::LookUp, Command::SetLanguage, Command::ShowHelp});
    QCOMPARE(Where(few.Menu(MenuId::Picture), &MenuEntry::enabled, false), u"2 7 9"_s);
    QCOMPARE(Where(few.Menu(MenuId::Setup), &MenuEntry::enabled, false), u"13 15"_s);
  }

  void SiteAndSender() {
    Made made;
    QCOMPARE(TextsOf(made.Menu(MenuId::MapOfCall)), u"DLØABC here / PAØXYZ there"_s);
    QCOMPARE(TextsOf(made.Menu(MenuId::Lookups)), u"DLØABC here / PAØXYZ there"_s);
    made.tables.LookupStatus = u"Not logged in"_s;
    QCOMPARE(TextsOf(made.Menu(MenuId::Lookups)), u"DLØABC here / PAØXYZ there / Not logged in"_s);
    QCOMPARE(Where(made.Menu(MenuId::Lookups), &MenuEntry::enabled, false), u"2"_s);
    QCOMPARE(TextsOf(made.Menu(MenuId::PageViews)),
             u"DLØABC street / DLØABC degrees / PAØXYZ street / PAØXYZ degrees"_s);
    made.subject.caller = u"Not found"_s;
    QCOMPARE(Where(made.Menu(MenuId::MapOfCall), &MenuEntry::enabled), u"0"_s);
    QCOMPARE(Where(made.Menu(MenuId::PageViews), &MenuEntry::enabled), u"0 1"_s);
  }

  // A call without a place has its lookup enabled and no map.
  void CallsOfOtherWindows() {
    Made made;
    QCOMPARE(TextsOf(made.Menu(MenuId::MapCall)), u"ask QRZ / PAØXYZ street / PAØXYZ degrees"_s);
    QCOMPARE(Where(made.Menu(MenuId::MapCall), &MenuEntry::enabled), u"0"_s);
    QCOMPARE(Where(made.Menu(MenuId::LookupMaps), &MenuEntry::enabled), QString());
    made.subject.placed = true;
    QCOMPARE(Where(made.Menu(MenuId::LookupMaps), &MenuEntry::enabled), u"0 1 2"_s);
    made.subject.offer = u"leave QRZ"_s;
    QCOMPARE(TextsOf(made.Menu(MenuId::SignIn)), u"leave QRZ"_s);
  }

  void PagesTellEmptyOnes() {
    Made made;
    Program& program = made.program;
    program.PageLabels = {QString()};
    for (int page = 1; page <= 20; ++page) program.PageLabels.append(u"P%1"_s.arg(page));
    program.PageLabels.append(u"Sky"_s);
    program.sites.Sites = {Site(u"DL0ABC"_s, 2, u"0203:2001"_s)};
    program.sites.BuildPageSlots(2);
    program.page.CurrentPage = 21;
    QList<MenuEntry> menu = made.Menu(MenuId::Pages);
    QCOMPARE(menu.size(), 21);
    QCOMPARE(TextsOf(menu.first(2) + menu.last(2)), u" P1 nobody  /  P2  /  P20  /  Sky nobody "_s);
    QCOMPARE(Where(menu, &MenuEntry::checked), u"20"_s);
    program.sites.WxSites = {Site(u"Radar"_s, 2, u"1"_s)};
    QCOMPARE(made.Menu(MenuId::Pages).at(20).text, u" Sky "_s);
  }

  void FindListsThePage() {
    Made made;
    QVERIFY(made.Menu(MenuId::Find).isEmpty());
    made.program.page.List1 = {u"DL0ABC    10"_s, u"G4AAA    2"_s};
    QCOMPARE(TextsOf(made.Menu(MenuId::Find)), u"DLØABC    10 / G4AAA    2"_s);
    QCOMPARE(TextsOf(made.Menu(MenuId::Alphabet)), TextsOf(made.Menu(MenuId::Find)));
  }

  void Checks() {
    const auto check = [](const char* what, MenuId menu, const QString& checked, auto change) {
      const TableRow row(what);
      Made made;
      made.program.config = Config();
      made.program.config.AutoPollCams = 1;
      change(made.program.config);
      made.program.lstLanguages = {u"Dutch"_s, u"French"_s};
      QCOMPARE(Where(made.Menu(menu), &MenuEntry::checked), checked);
    };
    check("cam view", MenuId::CamView, u"1"_s, [](Config& c) { c.CamView = 1; });
    check("cam mode", MenuId::CamMode, u"2"_s, [](Config& c) { c.CamMode = 2; });
    check("cam mode once", MenuId::CamMode, u"0 3"_s, [](Config& c) { c.AutoPollCams = 0; });
    check("cam mode of no kind", MenuId::CamMode, QString(), [](Config& c) { c.CamMode = 3; });
    check("rate 5", MenuId::RefreshRate, u"2"_s, [](Config& c) { c.AutoRefreshOn = 1, c.AutoRefreshMinutes = 5; });
    check("rate 4, which no entry has", MenuId::RefreshRate, QString(),
          [](Config& c) { c.AutoRefreshOn = 1, c.AutoRefreshMinutes = 4; });
    check("rate off", MenuId::RefreshRate, u"3"_s, [](Config& c) { c.AutoRefreshMinutes = 5; });
    check("window size", MenuId::WindowSize, u"3"_s, [](Config& c) { c.GuiMode = 3; });
    check("thumbnails", MenuId::Thumbs, u"5"_s, [](Config& c) { c.ThumbLayout = 6; });
    check("no layout", MenuId::Thumbs, QString(), [](Config& c) { c.ThumbLayout = 99; });
    check("language", MenuId::Language, u"1"_s, [](Config& c) { c.LanguageName = u"french"_s; });
    check("language without a file", MenuId::Language, QString(), [](Config& c) { c.LanguageName = u"Fre"_s; });
  }

  void SubMenuTexts() {
    Made made;
    QCOMPARE(TextsOf(made.Menu(MenuId::RefreshRate)), u"1 min / 2 min / 5 min / text 28"_s);
    QCOMPARE(TextsOf(made.Menu(MenuId::Thumbs)), u"5 / 10 / 15 / 24 / 35 / 36"_s);
    for (int i = 0; i < 9; ++i) made.program.lstLanguages.append(u"L%1"_s.arg(i));
    const QList<MenuEntry> languages = made.Menu(MenuId::Language);
    QVERIFY(languages.size() == 9 && languages.first().text == u"text 1" && languages.last().text == u"L8");
    made.tables.BuildMenuTables(LanguageTexts());
    QCOMPARE(TextsOf(made.Menu(MenuId::Language)), made.program.lstLanguages.join(u" / "_s));
  }
};

OMNI_TEST(TestMenuTables)
#include "test_menu_tables.moc"
