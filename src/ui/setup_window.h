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

  // The program is about to write its state and end: no question stops it any more. What closing would take over is
  // taken at once, what was typed and not saved is given up. The window is closed seconds later, without a question.
  virtual void ProgramEnds() {}
};
