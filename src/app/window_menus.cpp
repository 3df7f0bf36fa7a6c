// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/window_menus.h"

WindowMenus::WindowMenus(Program& program, PageLogic& logic, MenuStrip& pic, PageView& picAll, QWidget* window)
    : QObject(window), program_(program), logic_(logic), pic_(pic), picAll_(picAll), tables_(program), menu_(window) {
  const auto opens = [this](BarLabel* label, int number) {
    connect(label, &BarLabel::clicked, this, [this, label, number]() { OpenAtLabel(label, number); });
  };
  opens(pic_.lblPages, menu_number::kPages);
  opens(pic_.lblFind, menu_number::kAlphabet);
  opens(pic_.lblSetup, menu_number::kSetup);
  connect(&picAll_, &PageView::MenuWanted, this, [this](int slot, QPoint at, bool byKeyboard) {
    OpenCellMenu(slot, at, byKeyboard ? frmMenu::Opener::Keyboard : frmMenu::Opener::Pointer);
  });
  connect(&menu_, &frmMenu::Chosen, this, &WindowMenus::Chosen);
  connect(&menu_, &frmMenu::SubChosen, this, &WindowMenus::SubChosen);
  connect(&menu_, &frmMenu::AboutToClose, this, &WindowMenus::Closing);
}

void WindowMenus::OpenAtLabel(BarLabel* label, int number) {
  openLabel_ = label;
  label->setDown(true);
  // A click leaves the pointer on the label; Return and Space do not need it there.
  Open(number, label->mapToGlobal(QPoint(0, label->height())),
       label->underMouse() ? frmMenu::Opener::Pointer : frmMenu::Opener::Keyboard);
  if (!menu_.isVisible()) Closing();
}

void WindowMenus::OpenCellMenu(int slot, QPoint globalPoint, frmMenu::Opener opener) {
  if (!logic_.grid.HasSlot(slot)) return;
  program_.page.SelectedSlot = slot;
  Open(menu_number::kPopup, globalPoint, opener, &logic_.grid.Cells().at(slot));
}

void WindowMenus::Open(int number, const QPoint& at, frmMenu::Opener opener, const Cell* cell) {
  Q_EMIT AboutToOpen();
  menu_.MakeMenu(number, tables_.Menu(number, cell), [this](int sub) { return tables_.SubMenu(sub); });
  menu_.OpenAt(at, opener);
}

void WindowMenus::Closing() {
  if (openLabel_ != nullptr) openLabel_->setDown(false);
  openLabel_ = nullptr;
}

void WindowMenus::Chosen(int number, int index) {
  switch (number) {
    case menu_number::kPages:
      Q_EMIT PageChosen(index);
      break;
    case menu_number::kFind:
    case menu_number::kAlphabet:
      MnuAlphaClick(index);
      break;
    case menu_number::kPopup:
      MnuPopupClick(index);
      break;
    default:
      break;
  }
}

void WindowMenus::SubChosen(int number, int index, const QString& text) {
  switch (number) {
    case sub_menu_number::kCamView:
      program_.config.CamView = index;
      break;
    case sub_menu_number::kCamMode:
      Q_EMIT CamModeChosen(index);
      break;
    case sub_menu_number::kRate:
      logic_.poll.MnuRateClick(index);
      break;
    case sub_menu_number::kWindowSize:
      Q_EMIT GuiChosen(index);
      break;
    case sub_menu_number::kThumbs:
      Q_EMIT ThumbsChosen(index);
      break;
    case sub_menu_number::kLanguage:
      Q_EMIT LanguageChosen(index);
      break;
    case sub_menu_number::kMapOfCall:
      Q_EMIT MapLocCallChosen(index);
      break;
    case sub_menu_number::kLookups:
      Q_EMIT QrzFromChosen(text);
      break;
    default:
      break;
  }
}

void WindowMenus::MnuAlphaClick(int index) {
  // The last two characters of the entry are its slot, from 1.
  const QString entry = program_.page.List1.value(index);
  logic_.grid.Flash(static_cast<int>(Val(entry.right(2))) - 1);
}

void WindowMenus::MnuPopupClick(int index) {
  switch (index) {
    case 0:
      logic_.sites.ReloadSlot();
      break;
    case 1:
      logic_.poll.ReloadPage();
      break;
    case 17:
      logic_.sites.CompactPage();
      break;
    case 18:
      logic_.sites.RemoveSite();
      break;
    case 19:
      logic_.sites.RemoveAllSites();
      break;
    default:
      break;
  }
}
