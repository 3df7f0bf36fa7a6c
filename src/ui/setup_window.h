// SPDX-License-Identifier: GPL-3.0-or-later
// The base of the setup windows: while one is open, the main window below it takes no clicks and no keys. What follows
// the closing of one is told for each, and connected to Closed.
#pragma once

#include "ui/base_window.h"

// A window that is worked through and closed before the main window goes on.
class SetupWindow : public BaseWindow {
  Q_OBJECT

 public:
  explicit SetupWindow(QWidget* mainWindow);
};
