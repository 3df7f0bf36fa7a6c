// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/menu_tables.h"

#include <algorithm>
#include <iterator>

#include "platform/text/numbers.h"
#include "station/callsign.h"

using namespace Qt::StringLiterals;

namespace {

// Indices of entries of the picture menu that are treated specially.
constexpr int kHistory = 2;
constexpr int kTxHistory = 3;
constexpr int kCam = 4;
constexpr int kBlock = 5;
constexpr int kMap = 6;
constexpr int kHeading = 7;  // a heading above the views and lookups, without a command
constexpr int kLookup = 9;
// The same of a history's menu; from the first output entry on all are about the picture itself.
constexpr int kHistoryLookup = 3;
constexpr int kHistoryFirstOutput = 4;
constexpr int kFirstOutput = 10;
constexpr int kLastOutput = 16;

// Separators and sub-menus of an entry, in the given notation; entries without a mark have neither.
struct Mark {
  int entry;
  const char* marks;
  MenuId subMenu = MenuId::None;
};

// Here "=" is a line above the entry, ">" a sub-menu.
constexpr std::array kSetupMarks = {
    Mark{1, "="},
    Mark{4, "="},
    Mark{8, "=>", MenuId::CamView},
    Mark{9, ">", MenuId::CamMode},
    Mark{10, ">", MenuId::RefreshRate},
    Mark{11, ">", MenuId::WindowSize},
    Mark{12, ">", MenuId::Thumbs},
    Mark{13, ">", MenuId::Language},
    Mark{14, "="},
};

// Here "=" is a line below the entry, ">" a sub-menu, "<" greys the entry.
constexpr std::array kPictureMarks = {
    Mark{1, "="},
    Mark{4, "="},
    Mark{5, "="},
    Mark{6, "=>", MenuId::MapOfCall},
    Mark{kHeading, "<"},
    Mark{8, ">", MenuId::PageViews},
    Mark{kLookup, "=>", MenuId::Lookups},
    Mark{16, "="},
    Mark{19, "="},
};

// "=" is a line above the entry, as in the setup menu to which these belong.
constexpr std::array kCamModeMarks = {Mark{3, "="}};
constexpr std::array kRateMarks = {Mark{3, "="}};

// Commands of the entries, in the order of the menu.
constexpr std::array kSetupCommands = {Command::ShowReceivedOkMap, Command::SetLocation,    Command::EditDatabase,
                                       Command::EditPageNames,     Command::AddSite,        Command::EditSite,
                                       Command::DeleteSite,        Command::BlockCalls,     Command::SetCamView,
                                       Command::SetCamMode,        Command::SetRefreshRate, Command::SetWindowSize,
                                       Command::SetThumbs,         Command::SetLanguage,    Command::MakeBackup,
                                       Command::ShowHelp,          Command::ShowAbout};
constexpr std::array kPictureCommands = {
    Command::ReloadPicture,   Command::ReloadPage,     Command::ShowHistory,    Command::ShowTxHistory,
    Command::ShowCam,         Command::BlockSender,    Command::ShowOnMap,      Command::None,
    Command::ShowPageView,    Command::LookUp,         Command::CopyPicture,    Command::SaveToDesktop,
    Command::MailPicture,     Command::PasteToEasyPal, Command::SavePictureAs,  Command::PrintPicture,
    Command::ShowPictureInfo, Command::CompactPage,    Command::RemoveFromPage, Command::RemoveAllFromPage,
    Command::OpenSiteIndex};

// Marks as in the page's picture menu.
constexpr std::array kHistoryMarks = {
    Mark{0, "="},
    Mark{1, "=>", MenuId::MapOfCall},
    Mark{2, ">", MenuId::HistoryPageViews},
    Mark{kHistoryLookup, "=>", MenuId::Lookups},
};
constexpr std::array kHistoryCommands = {
    Command::ReloadHistoryPicture, Command::ShowOnMap,     Command::ShowPageView,   Command::LookUp,
    Command::CopyPicture,          Command::SaveToDesktop, Command::MailPicture,    Command::PasteToEasyPal,
    Command::SavePictureAs,        Command::PrintPicture,  Command::ShowPictureInfo};

constexpr std::array kMapCallCommands = {Command::LookUpMapCall, Command::ShowCallByAddress,
                                         Command::ShowCallByCoordinates};
constexpr std::array kListCallCommands = {Command::LookUpListCall, Command::ShowCallByAddress,
                                          Command::ShowCallByCoordinates, Command::ShowListCallOnMap};
constexpr std::array kLookupMapsCommands = {Command::ShowCallOnMap, Command::ShowCallByCoordinates,
                                            Command::ShowCallByAddress};
constexpr std::array kLookupPictureCommands = {Command::CopyOperatorPicture, Command::SaveOperatorPictureToDesktop,
                                               Command::PasteOperatorPicture, Command::SaveOperatorPictureAs,
                                               Command::PrintOperatorPicture};

constexpr std::array kRates = {1, 2, 5};                 // minutes
constexpr std::array kThumbs = {5, 10, 15, 24, 35, 36};  // by ThumbLayout

// Entries with the same command; their index distinguishes them.
QList<MenuEntry> Plain(const QStringList& texts, Command command, bool hasCheck = false) {
  QList<MenuEntry> entries;
  for (const QString& text : texts) {
    MenuEntry entry;
    entry.text = text;
    entry.command = command;
    entry.index = static_cast<int>(entries.size());
    entry.hasCheck = hasCheck;
    entries.append(entry);
  }
  return entries;
}

template <typename Lines>
QStringList TextsOf(const LanguageTexts& texts, const Lines& lines) {
  QStringList found;
  for (const TextLine line : lines) found.append(texts[line]);
  return found;
}

// Entries with a command each.
template <typename Lines, typename Doings>
QList<MenuEntry> Different(const LanguageTexts& texts, const Lines& lines, const Doings& commands) {
  static_assert(std::tuple_size_v<Lines> == std::tuple_size_v<Doings>);
  QList<MenuEntry> entries = Plain(TextsOf(texts, lines), Command::None);
  for (std::size_t i = 0; i < commands.size(); ++i) entries[static_cast<qsizetype>(i)].command = commands[i];
  return entries;
}

template <typename Marks>
void TranslateMarks(QList<MenuEntry>& entries, const Marks& table, bool MenuEntry::*lineMark) {
  for (const Mark& mark : table) {
    MenuEntry& entry = entries[mark.entry];
    const QLatin1StringView marks(mark.marks);
    if (marks.contains(u'=')) entry.*lineMark = true;
    if (marks.contains(u'>')) entry.subMenu = mark.subMenu;
    if (marks.contains(u'<')) entry.enabled = false;
  }
}

void Grey(QList<MenuEntry>& entries, int first, int last) {
  for (int i = first; i <= last; ++i) entries[i].enabled = false;
}

// Checks an entry; an index outside the menu checks nothing.
void Check(QList<MenuEntry>& entries, qsizetype index) {
  if (index < 0 || index >= entries.size()) return;
  entries[index].hasCheck = true;
  entries[index].checked = true;
}

QStringList RateTexts(const QString& off) {
  QStringList texts;
  for (const int minutes : kRates) texts.append(QString::number(minutes) + u" min"_s);
  return texts << off;
}

QStringList ThumbTexts() {
  QStringList texts;
  for (const int count : kThumbs) texts.append(QString::number(count));
  return texts;
}

// The words are the same in all languages.
QList<MenuEntry> OnAirViews() {
  QList<MenuEntry> entries = Plain({u"List"_s, u"Map"_s}, Command::ShowOnAirList);
  entries[1].command = Command::ShowOnAirMap;
  return entries;
}

bool HasSender(const MenuSubject& subject) {
  return !subject.caller.isEmpty() && subject.caller != "Not found"_L1;
}

template <typename Values>
qsizetype PlaceOf(const Values& values, int value) {
  const auto found = std::find(values.begin(), values.end(), value);
  return found == values.end() ? -1 : std::distance(values.begin(), found);
}

}  // namespace

Command MenuTables::SetupCommand(int index) {
  return kSetupCommands.at(static_cast<std::size_t>(index));
}

void MenuTables::BuildMenuTables(const LanguageTexts& texts) {
  menus_.clear();
  emptyWord_ = texts[TextLine::kEmptyWord];
  unblockText_ = texts[TextLine::kPopupUnblock];
  camWord_ = texts[TextLine::kPopupCam];

  QList<MenuEntry> setup = Different(texts, MenuLines::kSetup, kSetupCommands);
  TranslateMarks(setup, kSetupMarks, &MenuEntry::separatorBefore);
  menus_.insert(MenuId::Setup, setup);

  QList<MenuEntry> picture = Different(texts, MenuLines::kPicture, kPictureCommands);
  TranslateMarks(picture, kPictureMarks, &MenuEntry::separatorAfter);
  menus_.insert(MenuId::Picture, picture);

  QList<MenuEntry> history = Different(texts, MenuLines::kHistory, kHistoryCommands);
  TranslateMarks(history, kHistoryMarks, &MenuEntry::separatorAfter);
  menus_.insert(MenuId::History, history);

  QList<MenuEntry> camMode = Plain(TextsOf(texts, MenuLines::kCamMode), Command::SetCamMode, true);
  TranslateMarks(camMode, kCamModeMarks, &MenuEntry::separatorBefore);
  menus_.insert(MenuId::CamMode, camMode);
  QList<MenuEntry> rate = Plain(RateTexts(texts[MenuLines::kRateOff]), Command::SetRefreshRate, true);
  TranslateMarks(rate, kRateMarks, &MenuEntry::separatorBefore);
  menus_.insert(MenuId::RefreshRate, rate);
  QStringList languages;
  for (int i = 1; i <= kLanguageNames; ++i) languages.append(texts.lines[static_cast<std::size_t>(i)]);

  menus_.insert(MenuId::CamView, Plain(TextsOf(texts, MenuLines::kCamView), Command::SetCamView, true));
  menus_.insert(MenuId::WindowSize, Plain(TextsOf(texts, MenuLines::kWindowSize), Command::SetWindowSize, true));
  menus_.insert(MenuId::Thumbs, Plain(ThumbTexts(), Command::SetThumbs, true));
  menus_.insert(MenuId::Language, Plain(languages, Command::SetLanguage, true));
  menus_.insert(MenuId::MapOfCall, Plain(TextsOf(texts, MenuLines::kSiteOrSender), Command::ShowOnMap));
  menus_.insert(MenuId::Lookups, Plain(TextsOf(texts, MenuLines::kSiteOrSender), Command::LookUp));
  menus_.insert(MenuId::MapCall, Different(texts, MenuLines::kMapCall, kMapCallCommands));
  menus_.insert(MenuId::ListCall, Different(texts, MenuLines::kListCall, kListCallCommands));
  menus_.insert(MenuId::OnAir, OnAirViews());
  menus_.insert(MenuId::LookupMaps, Different(texts, MenuLines::kLookupMaps, kLookupMapsCommands));
  menus_.insert(MenuId::LookupPicture, Different(texts, MenuLines::kLookupPicture, kLookupPictureCommands));
  menus_.insert(MenuId::PageViews, Plain(TextsOf(texts, MenuLines::kViews), Command::ShowPageView));
  menus_.insert(MenuId::HistoryPageViews, menus_.value(MenuId::PageViews));
}

QList<MenuEntry> MenuTables::Menu(MenuId menu, const MenuSubject& subject) const {
  if (menus_.isEmpty()) return {};
  QList<MenuEntry> entries = Entries(menu, subject);
  for (MenuEntry& entry : entries) {
    if (entry.command != Command::None && !commands_.Handles(entry.command)) entry.enabled = false;
  }
  return entries;
}

QList<MenuEntry> MenuTables::Entries(MenuId menu, const MenuSubject& subject) const {
  switch (menu) {
    case MenuId::Pages:
      return PagesMenu();
    case MenuId::Find:
    case MenuId::Alphabet:
      return FindMenu();
    case MenuId::Picture:
      return PictureMenu(subject);
    case MenuId::History:
      return HistoryMenu(subject);
    case MenuId::Viewer:
      return ViewerMenu(subject);
    case MenuId::Language:
      return LanguageMenu();
    case MenuId::MapOfCall:
      return SiteOrSender(menu, subject);
    case MenuId::Lookups:
      return LookupMenu(subject);
    case MenuId::PageViews:
    case MenuId::HistoryPageViews:
      return PageViews(subject);
    case MenuId::MapCall:
    case MenuId::ListCall:
    case MenuId::LookupMaps:
      return CallMenu(menu, subject);
    case MenuId::SignIn:
      return Plain({subject.offer}, Command::SignInOrOut);
    default:
      return SetupChoices(menu);
  }
}

// The setup menu, and its sub-menus with a check at the present setting.
QList<MenuEntry> MenuTables::SetupChoices(MenuId menu) const {
  const Config& config = program_.config;
  QList<MenuEntry> entries = menus_.value(menu);
  switch (menu) {
    case MenuId::CamView:
      Check(entries, config.CamView);
      break;
    case MenuId::CamMode:
      // The last entry is no mode but the repeat of cam rounds; its check is independent of the mode's.
      if (config.CamMode < 3) Check(entries, config.CamMode);
      if (config.AutoPollCams == 0) Check(entries, 3);
      break;
    case MenuId::RefreshRate:
      Check(entries, config.AutoRefreshOn == 1 ? PlaceOf(kRates, config.AutoRefreshMinutes) : entries.size() - 1);
      break;
    case MenuId::WindowSize:
      Check(entries, config.GuiMode);
      break;
    case MenuId::Thumbs:
      Check(entries, config.ThumbLayout - 1);
      break;
    default:
      break;
  }
  return entries;
}

QList<MenuEntry> MenuTables::PagesMenu() const {
  QStringList texts;
  for (int page = 1; page <= kWxPage; ++page) {
    const bool empty = page == kWxPage ? WxPageIsEmpty() : program_.sites.PageIsEmpty(page);
    texts.append(u' ' + program_.PageLabels.value(page) + (empty ? emptyWord_ : QString()) + u' ');
  }
  QList<MenuEntry> entries = Plain(texts, Command::ShowPage, true);
  Check(entries, program_.page.CurrentPage - 1);
  return entries;
}

// The slots of the WX page are in WxSites, not in the masks of the other pages.
bool MenuTables::WxPageIsEmpty() const {
  const int layout = program_.config.ThumbLayout;
  if (layout < 1 || layout > kLayouts) return true;
  const auto hasPlace = [layout](const SiteRec& site) {
    return Val(site.PageSlots[static_cast<std::size_t>(layout)]) > 0;
  };
  return std::none_of(program_.sites.WxSites.begin(), program_.sites.WxSites.end(), hasPlace);
}

QList<MenuEntry> MenuTables::FindMenu() const {
  QStringList texts;
  for (const QString& entry : program_.page.List1) {
    const qsizetype end = entry.indexOf(u"    "_s);
    texts.append(ShownCall(entry.left(end), program_.ZeroGlyph) + (end < 0 ? QString() : entry.sliced(end)));
  }
  return Plain(texts, Command::FindOnPage);
}

QList<MenuEntry> MenuTables::LanguageMenu() const {
  QList<MenuEntry> entries = menus_.value(MenuId::Language);
  // The names are in the order of the list, whichever languages it holds; languages behind the last name have none of
  // their own.
  entries.resize(std::min<qsizetype>(entries.size(), program_.lstLanguages.size()));
  for (MenuEntry& entry : entries) {
    // If no language could be read, this menu is the only way to choose one that can, so show the plain names.
    if (entry.text.isEmpty()) entry.text = program_.lstLanguages.at(entry.index);
  }
  for (qsizetype i = entries.size(); i < program_.lstLanguages.size(); ++i) {
    MenuEntry entry;
    entry.text = program_.lstLanguages.at(i);
    entry.command = Command::SetLanguage;
    entry.index = static_cast<int>(i);
    entry.hasCheck = true;
    entries.append(entry);
  }
  const auto isChosen = [this](const QString& name) {
    return name.compare(program_.config.LanguageName, Qt::CaseInsensitive) == 0;
  };
  const auto found = std::find_if(program_.lstLanguages.begin(), program_.lstLanguages.end(), isChosen);
  if (found != program_.lstLanguages.end()) Check(entries, std::distance(program_.lstLanguages.begin(), found));
  return entries;
}

QString MenuTables::Shown(const QString& call) const {
  return ShownCall(call, program_.ZeroGlyph);
}

QList<MenuEntry> MenuTables::PictureMenu(const MenuSubject& subject) const {
  QList<MenuEntry> entries = menus_.value(MenuId::Picture);
  const QString site = Shown(subject.site);
  entries[kHistory].text.replace(u"**"_s, u"30"_s).replace(u"??"_s, site);
  entries[kTxHistory].text.replace(u"**"_s, u"TX1-TX5"_s).replace(u"??"_s, site);
  entries[kCam].text = site + camWord_;
  if (program_.lstBlock.contains(subject.caller, Qt::CaseInsensitive)) entries[kBlock].text = unblockText_;
  entries[kBlock].text.replace(u"xxx"_s, Shown(subject.caller));
  entries[kLookup].text.replace(u"***"_s, program_.config.CallbookName);

  if (!subject.hasCam) Grey(entries, kCam, kCam);
  if (!HasSender(subject)) Grey(entries, kBlock, kBlock);
  if (subject.caller == "Not found"_L1) Grey(entries, kFirstOutput, kLastOutput);
  if (subject.camOnly) {
    Grey(entries, 0, 4);
    Grey(entries, kLookup, kLastOutput);
  }
  if (subject.weather) Grey(entries, 2, 10);
  if (subject.empty) Grey(entries, 1, 19);
  // Style 0 has no entry; any other style has its check at the entry of its number.
  if (program_.config.MenuStyle > 0) Check(entries, program_.config.MenuStyle);
  return entries;
}

QList<MenuEntry> MenuTables::HistoryMenu(const MenuSubject& subject) const {
  QList<MenuEntry> entries = menus_.value(MenuId::History);
  entries[kHistoryLookup].text.replace(u"***"_s, program_.config.CallbookName);
  if (subject.caller == "Not found"_L1 || subject.empty) {
    Grey(entries, kHistoryFirstOutput, static_cast<int>(entries.size()) - 1);
  }
  if (program_.config.MenuStyle > 0) Check(entries, program_.config.MenuStyle);
  return entries;
}

// What can be done with a picture wherever it is shown: the map, the lookup and the output.
QList<MenuEntry> MenuTables::ViewerMenu(const MenuSubject& subject) const {
  QList<MenuEntry> entries = PictureMenu(subject);
  entries.removeIf([](const MenuEntry& entry) {
    return entry.index != kMap && entry.index != kLookup && (entry.index < kFirstOutput || entry.index > kLastOutput);
  });
  return entries;
}

QList<MenuEntry> MenuTables::SiteOrSender(MenuId menu, const MenuSubject& subject) const {
  QList<MenuEntry> entries = menus_.value(menu);
  entries[0].text = Shown(subject.site) + u' ' + entries[0].text;
  entries[1].text = Shown(subject.caller) + u' ' + entries[1].text;
  entries[1].enabled = HasSender(subject);
  return entries;
}

// Adds below the calls the login state that the last lookup found, as a text that cannot be chosen.
QList<MenuEntry> MenuTables::LookupMenu(const MenuSubject& subject) const {
  QList<MenuEntry> entries = SiteOrSender(MenuId::Lookups, subject);
  if (LookupStatus.isEmpty()) return entries;
  MenuEntry status;
  status.text = LookupStatus;
  status.index = static_cast<int>(entries.size());
  status.enabled = false;
  status.separatorBefore = true;
  return entries << status;
}

// Without a position a call cannot be shown on a map or a page about its place.
QList<MenuEntry> MenuTables::CallMenu(MenuId menu, const MenuSubject& subject) const {
  QList<MenuEntry> entries = menus_.value(menu);
  for (MenuEntry& entry : entries) {
    entry.text.replace("***"_L1, program_.config.CallbookName).replace("??"_L1, Shown(subject.caller));
    const bool looksUp = entry.command == Command::LookUpMapCall || entry.command == Command::LookUpListCall;
    if (!subject.placed) entry.enabled = looksUp;
  }
  return entries;
}

QList<MenuEntry> MenuTables::PageViews(const MenuSubject& subject) const {
  QList<MenuEntry> entries = menus_.value(MenuId::PageViews);
  for (MenuEntry& entry : entries) {
    const bool aboutSite = entry.index < 2;
    entry.text.replace(u"??"_s, Shown(aboutSite ? subject.site : subject.caller));
    entry.enabled = aboutSite || HasSender(subject);
  }
  return entries;
}
