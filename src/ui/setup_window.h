// SPDX-License-Identifier: GPL-3.0-or-later
// The base of the setup windows: while one is open, the main window below it takes no clicks and no keys. What follows
// the closing of a setup window differs, and is connected to its Closed.
#pragma once

#include "ui/base_window.h"

// A window that blocks the main window while it is open.
class SetupWindow : public BaseWindow {
  Q_OBJECT

 public:
  explicit SetupWindow(QWidget* mainWindow);
};
