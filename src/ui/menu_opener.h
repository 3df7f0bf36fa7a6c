// SPDX-License-Identifier: GPL-3.0-or-later
// The interface by which a window opens one of its menus without knowing its entries. WindowMenus in app/ fills and
// shows them.
#pragma once

#include <QPoint>
#include <QString>
#include <QWidget>

#include "ui/commands.h"

// The menu to be opened.
struct MenuRequest {
  MenuId menu = MenuId::None;
  MenuSubject subject;
  QWidget* owner = nullptr;  // window that the menu belongs to
  QString name;              // accessible name of the menu: what was clicked
  QPoint at;                 // its corner, on the screen
  bool byKeyboard = false;   // true: the first entry is to be selected
};

// Opens the menus of all windows.
class MenuOpener {
 public:
  virtual ~MenuOpener() = default;
  virtual void OpenMenu(const MenuRequest& request) = 0;
  virtual void CloseMenus() = 0;
};
