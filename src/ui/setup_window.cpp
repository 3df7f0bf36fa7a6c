// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/setup_window.h"

// Modality instead of a disabled main window: the maps and lists that belong to it would be disabled with it.
SetupWindow::SetupWindow(QWidget* mainWindow) : BaseWindow(mainWindow) {
  setWindowModality(Qt::WindowModal);
}
