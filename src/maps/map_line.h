// SPDX-License-Identifier: GPL-3.0-or-later
// Straight lines upon a 32-bit picture, by the thousand: the general painter takes a hundred times as long for the
// paths of a busy band. MapLayer draws the lines of its maps with it.
#pragma once

#include <QImage>
#include <QPointF>
#include <QRect>

struct MapLineStyle {
  QRgb colour = 0;   // its alpha counts
  double width = 2;  // pixels
  bool smooth = true;
};

class MapLineCanvas {
 public:
  // clip: inside of the picture; nothing outside of it is touched. The picture must have RGB32 pixels and stay as it is
  // as long as the canvas is used.
  MapLineCanvas(QImage& picture, const QRect& clip);

  // Ends are cut square. A line of no length draws nothing; ends may lie far off the picture. The same line drawn in
  // two clips side by side looks as drawn in one.
  void Draw(const QPointF& from, const QPointF& to, const MapLineStyle& style);

 private:
  QRgb* bits_;
  qsizetype stride_;  // pixels
  QRect clip_;
};
