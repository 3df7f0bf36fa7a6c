// SPDX-License-Identifier: GPL-3.0-or-later
// frmShowMsg: a short message in a small window of its own, over the main window. The closing sequence shows it.
#pragma once

#include <QColor>
#include <QLabel>
#include <QWidget>

// The message window.
class frmShowMsg : public QWidget {
  Q_OBJECT

 public:
  // guiMode: 0 to 3, determines the font's size. over: the main window.
  frmShowMsg(int guiMode, QWidget* over);

  // Shows the text on a background of this colour, centred over the main window, until the window is hidden or deleted.
  void ShowMsg(const QString& text, const QColor& colour);

 private:
  QWidget* over_;
  QLabel lblMsg_;
};
