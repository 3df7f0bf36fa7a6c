// SPDX-License-Identifier: GPL-3.0-or-later
// The two tips of On Air Now: frmTipOnAir shows a station's text below its row, OperatorPictureTip the operator's
// picture beside the pointer. Neither takes the focus or a click.
#pragma once

#include <QLabel>
#include <QTimer>

#include "platform/picture/picture_tool.h"
#include "platform/wanted.h"

// The text of a station, on a ground of its own.
class frmTipOnAir : public QLabel {
  Q_OBJECT

 public:
  // window: the tip is destroyed with it.
  explicit frmTipOnAir(QWidget* window);

  // Below a row of the screen. byPointer: it hides by itself when the pointer has left the window.
  void ShowTip(const QString& text, const QRect& row, bool byPointer);

 protected:
  void hideEvent(QHideEvent* event) override;

 private:
  void Timer2Tick();

  QWidget* window_;
  QTimer Timer2;
};

// The picture, as large as it is stored and no larger than half the monitor.
class OperatorPictureTip : public QLabel {
  Q_OBJECT

 public:
  OperatorPictureTip(PictureTool& tool, QWidget* window);

  // Shows it when it has been read, unless another one was wanted by then.
  void ShowPicture(const QString& path, const QPoint& beside);
  void Withdraw();

 private:
  PictureTool& tool_;
  Wanted wanted_;
};
