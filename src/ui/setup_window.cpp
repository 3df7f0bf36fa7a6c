// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/setup_window.h"

// Modal instead of disabling the main window, which would also disable the maps and lists that the main window owns.
SetupWindow::SetupWindow(QWidget* mainWindow) : BaseWindow(mainWindow) {
  setWindowModality(Qt::WindowModal);
}
