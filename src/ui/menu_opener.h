// SPDX-License-Identifier: GPL-3.0-or-later
// How a window opens one of its menus without knowing what stands in it. app/ fills and shows them.
#pragma once

#include <QPoint>
#include <QString>
#include <QWidget>

#include "ui/commands.h"

// A menu that is wanted.
struct MenuRequest {
  MenuId menu = MenuId::None;
  MenuSubject subject;
  QWidget* owner = nullptr;  // window that the menu belongs to
  QString name;              // for screen readers: what was clicked
  QPoint at;                 // on the screen
  bool byKeyboard = false;   // its first entry is selected
};

class MenuOpener {
 public:
  virtual ~MenuOpener() = default;
  virtual void OpenMenu(const MenuRequest& request) = 0;
  virtual void CloseMenus() = 0;
};
