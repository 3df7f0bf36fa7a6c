// SPDX-License-Identifier: GPL-3.0-or-later
#include "film_canvas.h"

#include <QPainter>

FilmCanvas::FilmCanvas(QWidget* parent) : QWidget(parent) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setFocusPolicy(Qt::StrongFocus);
  setMinimumSize(160, 90);
}

void FilmCanvas::ShowFrame(const QVideoFrame& frame) {
  if (!frame.isValid()) return;
  frame_ = frame;
  image_ = QImage();
  update();
}

void FilmCanvas::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  if (image_.isNull() && frame_.isValid()) image_ = frame_.toImage();
  if (image_.isNull()) return painter.fillRect(rect(), Qt::black);
  QRect place(QPoint(), image_.size().scaled(size(), Qt::KeepAspectRatio));
  place.moveCenter(rect().center());
  for (const QRect& edge : QRegion(rect()) - QRegion(place)) painter.fillRect(edge, Qt::black);
  // Smoothing costs time only where the sizes differ.
  painter.setRenderHint(QPainter::SmoothPixmapTransform, place.size() * devicePixelRatio() != image_.size());
  painter.drawImage(place, image_);
}

void FilmCanvas::mouseDoubleClickEvent(QMouseEvent*) {
  Q_EMIT DoubleClicked();
}
