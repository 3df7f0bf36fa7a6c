// SPDX-License-Identifier: GPL-3.0-or-later
// A made-up map and labels for the tests of the map view and of its painting.
#pragma once

#include <QImage>

#include "maps/map_overlay.h"

// No two pixels near each other are alike.
inline QImage Pattern(const QSize& size) {
  QImage image(size, QImage::Format_RGB32);
  for (int y = 0; y < size.height(); ++y) {
    for (int x = 0; x < size.width(); ++x) image.setPixel(x, y, qRgb(x % 251, y % 241, (x * 7 + y * 13) % 256));
  }
  return image;
}

inline MapOverlay::Label Label(const QString& name, const QPointF& place, bool clickable) {
  MapOverlay::Label label;
  label.name = name;
  label.text = name + QStringLiteral("\r\n text");
  label.place = QRectF(place, QSizeF(80, 40));
  label.clickable = clickable;
  return label;
}
