// SPDX-License-Identifier: GPL-3.0-or-later
// Menus that are wanted, noted instead of shown: for tests of a window that leaves its menus to the program.
#pragma once

#include <QList>

#include "ui/menu_opener.h"

struct RecordingMenus : MenuOpener {
  QList<MenuRequest> wanted;
  int closed = 0;

  void OpenMenu(const MenuRequest& request) override { wanted.append(request); }
  void CloseMenus() override { ++closed; }
};
