// SPDX-License-Identifier: GPL-3.0-or-later
// One entry of a pop-up menu as plain values. The menu tables make them, the menu windows show them.
#pragma once

#include <QList>
#include <QString>

struct MenuEntry {
  QString text;     // as shown, outer blanks included
  int action = 0;   // index that the menu's handler gets
  int subMenu = 0;  // number of the sub-menu that it opens; 0: none
  bool separatorBefore = false;
  bool separatorAfter = false;
  bool hasCheck = false;  // can carry a check mark
  bool checked = false;
  bool enabled = true;
};

// Menus of the first level, by the numbers that their handlers know.
namespace menu_number {
inline constexpr int kPages = 1;
inline constexpr int kFind = 2;
inline constexpr int kAlphabet = 3;
inline constexpr int kSetup = 4;
inline constexpr int kPopup = 5;
}  // namespace menu_number

// Sub-menus have numbers of their own.
namespace sub_menu_number {
inline constexpr int kCamView = 8;
inline constexpr int kCamMode = 9;
inline constexpr int kRate = 10;
inline constexpr int kWindowSize = 11;
inline constexpr int kThumbs = 12;
inline constexpr int kLanguage = 13;
inline constexpr int kMapOfCall = 30;
inline constexpr int kPageViews = 31;
inline constexpr int kLookups = 32;
}  // namespace sub_menu_number
