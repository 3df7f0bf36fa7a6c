// SPDX-License-Identifier: GPL-3.0-or-later
// One entry of a pop-up menu as plain values. The menu tables make them, the menu windows show them.
#pragma once

#include <QList>
#include <QString>

#include "ui/commands.h"

// An entry and its place in the menu.
struct MenuEntry {
  QString text;                     // as shown, outer blanks included
  Command command = Command::None;  // of an entry with a sub-menu: the command of the sub-menu's entries
  int index = 0;                    // place in its menu, from 0, which the handlers get
  MenuId subMenu = MenuId::None;    // the sub-menu that the entry opens
  bool separatorBefore = false;
  bool separatorAfter = false;
  bool hasCheck = false;  // can carry a check mark
  bool checked = false;
  bool enabled = true;
};
