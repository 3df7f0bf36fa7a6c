// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/menu_tables.h"

#include <algorithm>
#include <iterator>

#include "platform/text/numbers.h"
#include "station/callsign.h"

using namespace Qt::StringLiterals;

namespace {

// Entries of the pop-up menu that its rules name.
constexpr int kHistory = 2;
constexpr int kTxHistory = 3;
constexpr int kCam = 4;
constexpr int kBlock = 5;
constexpr int kHeading = 7;  // stands above the views and lookups and does nothing
constexpr int kLookup = 9;

// What an entry is beyond its text, in the marks of its own menu; entries without a mark are plain.
struct Mark {
  int entry;
  const char* marks;
  int subMenu = 0;
};

// "=" is a line above the entry, ">" a sub-menu.
constexpr std::array kSetupMarks = {
    Mark{1, "="},
    Mark{4, "="},
    Mark{8, "=>", sub_menu_number::kCamView},
    Mark{9, ">", sub_menu_number::kCamMode},
    Mark{10, ">", sub_menu_number::kRate},
    Mark{11, ">", sub_menu_number::kWindowSize},
    Mark{12, ">", sub_menu_number::kThumbs},
    Mark{13, ">", sub_menu_number::kLanguage},
    Mark{14, "="},
};

// "=" is a line under the entry, ">" a sub-menu, "<" greys.
constexpr std::array kPopupMarks = {
    Mark{1, "="},
    Mark{4, "="},
    Mark{5, "="},
    Mark{6, "=>", sub_menu_number::kMapOfCall},
    Mark{kHeading, "<"},
    Mark{8, ">", sub_menu_number::kPageViews},
    Mark{kLookup, "=>", sub_menu_number::kLookups},
    Mark{16, "="},
    Mark{19, "="},
};

// "=" as in the setup menu that they belong to.
constexpr std::array kCamModeMarks = {Mark{3, "="}};
constexpr std::array kRateMarks = {Mark{3, "="}};

constexpr std::array kRates = {1, 2, 5};                 // minutes
constexpr std::array kThumbs = {5, 10, 15, 24, 35, 36};  // by ThumbLayout

QList<MenuEntry> Plain(const QStringList& texts, bool hasCheck = false) {
  QList<MenuEntry> entries;
  for (const QString& text : texts) {
    MenuEntry entry;
    entry.text = text;
    entry.action = static_cast<int>(entries.size());
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

void GreyNotYet(QList<MenuEntry>& entries, const QList<int>& notYet) {
  for (const int action : notYet) Grey(entries, action, action);
}

// An index that the menu does not have checks nothing.
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

template <typename Values>
qsizetype PlaceOf(const Values& values, int value) {
  const auto found = std::find(values.begin(), values.end(), value);
  return found == values.end() ? -1 : std::distance(values.begin(), found);
}

}  // namespace

NotYet NotYet::Present() {
  return {{0, 1, 2, 3, 4, 5, 6, 7, 14, 15, 16}, {2, 3, 4, 5, 8, 10, 11, 12, 13, 14, 15, 16, 20}};
}

void MenuTables::BuildMenuTables(const LanguageTexts& texts) {
  menus_.clear();
  subMenus_.clear();
  emptyWord_ = texts[TextLine::kEmptyWord];
  unblockText_ = texts[TextLine::kPopupUnblock];
  camWord_ = texts[TextLine::kPopupCam];

  QList<MenuEntry> setup = Plain(TextsOf(texts, MenuLines::kSetup));
  TranslateMarks(setup, kSetupMarks, &MenuEntry::separatorBefore);
  GreyNotYet(setup, notYet_.setup);
  menus_.insert(menu_number::kSetup, setup);

  QList<MenuEntry> popup = Plain(TextsOf(texts, MenuLines::kPicture));
  TranslateMarks(popup, kPopupMarks, &MenuEntry::separatorAfter);
  GreyNotYet(popup, notYet_.popup);
  menus_.insert(menu_number::kPopup, popup);

  QList<MenuEntry> camMode = Plain(TextsOf(texts, MenuLines::kCamMode), true);
  TranslateMarks(camMode, kCamModeMarks, &MenuEntry::separatorBefore);
  QList<MenuEntry> rate = Plain(RateTexts(texts[MenuLines::kRateOff]), true);
  TranslateMarks(rate, kRateMarks, &MenuEntry::separatorBefore);
  QStringList languages;
  for (int i = 1; i <= kLanguageNames; ++i) languages.append(texts.lines[static_cast<std::size_t>(i)]);

  subMenus_.insert(sub_menu_number::kCamView, Plain(TextsOf(texts, MenuLines::kCamView), true));
  subMenus_.insert(sub_menu_number::kCamMode, camMode);
  subMenus_.insert(sub_menu_number::kRate, rate);
  subMenus_.insert(sub_menu_number::kWindowSize, Plain(TextsOf(texts, MenuLines::kWindowSize), true));
  subMenus_.insert(sub_menu_number::kThumbs, Plain(ThumbTexts(), true));
  subMenus_.insert(sub_menu_number::kLanguage, Plain(languages, true));
  const QList<MenuEntry> siteOrSender = Plain(TextsOf(texts, MenuLines::kSiteOrSender));
  subMenus_.insert(sub_menu_number::kMapOfCall, siteOrSender);
  subMenus_.insert(sub_menu_number::kLookups, siteOrSender);
  subMenus_.insert(sub_menu_number::kPageViews, Plain(TextsOf(texts, MenuLines::kViews)));
}

QList<MenuEntry> MenuTables::Menu(int number, const Cell* cell) const {
  if (menus_.isEmpty()) return {};
  switch (number) {
    case menu_number::kPages:
      return PagesMenu();
    case menu_number::kFind:
    case menu_number::kAlphabet:
      return FindMenu();
    case menu_number::kSetup:
      return menus_.value(number);
    case menu_number::kPopup:
      return PopupMenu(cell);
    default:
      return {};
  }
}

QList<MenuEntry> MenuTables::SubMenu(int number) const {
  if (subMenus_.isEmpty()) return {};
  const Config& config = program_.config;
  QList<MenuEntry> entries = subMenus_.value(number);
  switch (number) {
    case sub_menu_number::kCamView:
      Check(entries, config.CamView);
      return entries;
    case sub_menu_number::kCamMode:
      // The last entry is no mode: it stands for the repeat, and has its check beside that of the mode.
      if (config.CamMode < 3) Check(entries, config.CamMode);
      if (config.AutoPollCams == 0) Check(entries, 3);
      return entries;
    case sub_menu_number::kRate:
      Check(entries, config.AutoRefreshOn == 1 ? PlaceOf(kRates, config.AutoRefreshMinutes) : entries.size() - 1);
      return entries;
    case sub_menu_number::kWindowSize:
      Check(entries, config.GuiMode);
      return entries;
    case sub_menu_number::kThumbs:
      Check(entries, config.ThumbLayout - 1);
      return entries;
    case sub_menu_number::kLanguage:
      return LanguageMenu();
    case sub_menu_number::kMapOfCall:
      return SiteOrSender();
    case sub_menu_number::kLookups:
      return LookupMenu();
    case sub_menu_number::kPageViews:
      return PageViews();
    default:
      return entries;
  }
}

QList<MenuEntry> MenuTables::PagesMenu() const {
  QStringList texts;
  for (int page = 1; page <= kWxPage; ++page) {
    const bool empty = page == kWxPage ? WxPageIsEmpty() : program_.sites.PageIsEmpty(page);
    texts.append(u' ' + program_.PageLabels.value(page) + (empty ? emptyWord_ : QString()) + u' ');
  }
  QList<MenuEntry> entries = Plain(texts, true);
  Check(entries, program_.page.CurrentPage - 1);
  return entries;
}

// The weather page has its places in another table than the pages of the masks.
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
  return Plain(texts);
}

QList<MenuEntry> MenuTables::LanguageMenu() const {
  QList<MenuEntry> entries = subMenus_.value(sub_menu_number::kLanguage);
  // The names go by the index of the list, whatever languages stand there; languages behind them have no name of
  // theirs.
  entries.resize(std::min<qsizetype>(entries.size(), program_.lstLanguages.size()));
  for (MenuEntry& entry : entries) {
    // Without a language file this menu is the way back to one.
    if (entry.text.isEmpty()) entry.text = program_.lstLanguages.at(entry.action);
  }
  for (qsizetype i = entries.size(); i < program_.lstLanguages.size(); ++i) {
    MenuEntry entry;
    entry.text = program_.lstLanguages.at(i);
    entry.action = static_cast<int>(i);
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

QString MenuTables::Field(ThumbField field) const {
  const int slot = program_.page.SelectedSlot;
  return slot >= 0 && slot < kMaxSlots ? program_.page.Field(slot, field) : QString();
}

QString MenuTables::ShownField(ThumbField field) const {
  return ShownCall(Field(field), program_.ZeroGlyph);
}

bool MenuTables::HasSender() const {
  const QString caller = Field(Caller);
  return !caller.isEmpty() && caller != "Not found"_L1;
}

QList<MenuEntry> MenuTables::PopupMenu(const Cell* cell) const {
  QList<MenuEntry> entries = menus_.value(menu_number::kPopup);
  const QString site = ShownField(SlotCall);
  entries[kHistory].text.replace(u"**"_s, u"30"_s).replace(u"??"_s, site);
  entries[kTxHistory].text.replace(u"**"_s, u"TX1-TX5"_s).replace(u"??"_s, site);
  entries[kCam].text = site + camWord_;
  const QString caller = Field(Caller);
  if (program_.lstBlock.contains(caller, Qt::CaseInsensitive)) entries[kBlock].text = unblockText_;
  entries[kBlock].text.replace(u"xxx"_s, ShownField(Caller));
  entries[kLookup].text.replace(u"***"_s, program_.config.CallbookName);

  const bool empty = cell == nullptr || cell->lblCall.isEmpty();
  if (cell == nullptr || cell->imgCam == CamLight::Hidden) Grey(entries, kCam, kCam);
  if (caller == "Not found"_L1) Grey(entries, 10, 16);
  if (cell != nullptr && cell->lblFrom == "Cam only"_L1) {
    Grey(entries, 0, 4);
    Grey(entries, 9, 16);
  }
  if (!program_.page.OnDsstvPage()) Grey(entries, 2, 10);
  if (empty) Grey(entries, 1, 19);
  // Style 0 is none; any other has its check at the entry of its number.
  if (program_.config.MenuStyle > 0) Check(entries, program_.config.MenuStyle);
  return entries;
}

QList<MenuEntry> MenuTables::SiteOrSender() const {
  QList<MenuEntry> entries = subMenus_.value(sub_menu_number::kLookups);
  entries[0].text = ShownField(SlotCall) + u' ' + entries[0].text;
  entries[1].text = ShownField(Caller) + u' ' + entries[1].text;
  entries[1].enabled = HasSender();
  return entries;
}

// Below the calls stands whether the last lookup found the user logged in: a text, not a choice.
QList<MenuEntry> MenuTables::LookupMenu() const {
  QList<MenuEntry> entries = SiteOrSender();
  if (program_.LookupStatus.isEmpty()) return entries;
  MenuEntry status;
  status.text = program_.LookupStatus;
  status.action = static_cast<int>(entries.size());
  status.enabled = false;
  status.separatorBefore = true;
  return entries << status;
}

QList<MenuEntry> MenuTables::PageViews() const {
  QList<MenuEntry> entries = subMenus_.value(sub_menu_number::kPageViews);
  for (MenuEntry& entry : entries) {
    const bool aboutSite = entry.action < 2;
    entry.text.replace(u"??"_s, ShownField(aboutSite ? SlotCall : Caller));
    entry.enabled = aboutSite || HasSender();
  }
  return entries;
}
