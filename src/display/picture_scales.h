// SPDX-License-Identifier: GPL-3.0-or-later
// A picture with copies of half its size, a quarter and so on, so that a zoomed picture is drawn from one that is
// little larger than what is seen of it. The viewer's canvas paints from it, while a zoom moves and beside the event
// loop.
#pragma once

#include <QColor>
#include <QImage>
#include <QList>
#include <QPainter>
#include <QRectF>

// The picture and its copies; a value whose pixels are shared.
class PictureScales {
 public:
  PictureScales() = default;
  // The picture without copies.
  explicit PictureScales(const QImage& picture) : scales_{picture} {}
  // Makes the copies; takes long, so it belongs beside the event loop.
  void MakeHalves();

  bool IsEmpty() const { return scales_.isEmpty() || scales_.first().isNull(); }
  const QImage& Picture() const { return scales_.first(); }
  // The smallest copy with at least so many pixels in each direction.
  const QImage& For(QSizeF pixels) const;
  // True where place, in device pixels, shows that copy pixel by pixel.
  bool IsExact(const QRectF& place) const;
  // Paints the picture to place, as far as it lies within frame. Coordinates are device pixels.
  void Paint(QPainter& painter, const QRectF& place, const QRect& frame, bool smooth) const;
  // An image of the whole frame.
  QImage Render(const QRectF& place, QSize frame) const;

 private:
  QList<QImage> scales_;  // from the largest on
};
