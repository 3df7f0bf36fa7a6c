// SPDX-License-Identifier: GPL-3.0-or-later
// Form13: an operator's picture at its natural size in a window of its own. The lookup window and the editor of the
// call database open it.
#pragma once

#include <QLabel>
#include <QPoint>

#include "platform/picture/picture_tool.h"
#include "platform/wanted.h"
#include "ui/base_window.h"

// The window of one operator's picture.
class Form13 : public BaseWindow {
  Q_OBJECT

 public:
  Form13(PictureTool& tool, QWidget* owner);

  // Shows the window once the picture has been decoded: centred over a point of the screen, whole on its monitor,
  // scaled down if it is larger than that. A file that is no picture opens no window.
  void ShowPicture(const QString& path, const QString& call, const QPoint& over);
  // Name of a call's picture in the present language.
  static QString PictureName(const QString& call);
  void ShowTexts() override;

 protected:
  void PlaceWindow() override;
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  PictureTool& tool_;
  QLabel* Image1;
  QString call_;
  QPoint over_;
  Wanted wanted_;  // the picture asked for last
};
