// SPDX-License-Identifier: GPL-3.0-or-later
// Form13: a picture at its natural size in a window of its own. The lookup window opens it for the operator's picture.
#pragma once

#include <QLabel>
#include <QPoint>
#include <QWidget>

#include "platform/picture/picture_tool.h"

class Form13 : public QWidget {
  Q_OBJECT

 public:
  Form13(PictureTool& tool, QWidget* owner);

  // Shows the window once the picture has been decoded: centred over the point, whole on its monitor, scaled down where
  // it is larger than that. A file that is no picture shows nothing.
  void ShowPicture(const QString& path, const QString& title, const QPoint& over);
  // Closes it; a picture that is still being decoded will not open it again.
  void Dismiss();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  void Place(const QImage& picture, const QString& title, const QPoint& over);

  PictureTool& tool_;
  QLabel* Image1;
  int asked_ = 0;
};
