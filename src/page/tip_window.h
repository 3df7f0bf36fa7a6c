// SPDX-License-Identifier: GPL-3.0-or-later
// picToolTip: the tip of a cell with the operator's picture beside its text, inside the main window. The main window
// shows in it what HoverTip says.
#pragma once

#include <QFrame>
#include <QLabel>

// The frame with the tip's text and the operator's picture.
class TipWindow : public QFrame {
  Q_OBJECT

 public:
  explicit TipWindow(QWidget* parent);

  // Shows the text beside a cell (its place within the parent), inside the parent. The picture comes later, if at all.
  void ShowTip(const QString& text, const QRect& cell, double fontPixels);
  // The operator's picture, already at its size.
  void ShowPicture(const QImage& picture);
  // Largest size of the operator's picture, in device pixels.
  QSize PictureBox() const;

 private:
  void FitText();
  void Place();

  QLabel lblToolTip_;
  QLabel imgQrzPic_;
  QRect cell_;
};
