// SPDX-License-Identifier: GPL-3.0-or-later
// Paints the frames of a film, as large as the window allows. The player's window holds the only one.
#pragma once

#include <QImage>
#include <QVideoFrame>
#include <QWidget>

// The picture part of the window.
class FilmCanvas : public QWidget {
  Q_OBJECT

 public:
  explicit FilmCanvas(QWidget* parent);

  // An empty frame, which a film ends with, leaves the last one.
  void ShowFrame(const QVideoFrame& frame);
  bool HasFrame() const { return frame_.isValid(); }

 Q_SIGNALS:
  void DoubleClicked();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;

 private:
  QVideoFrame frame_;  // the newest one
  QImage image_;       // its pixels; made when it is painted, so that frames in between cost nothing
};
