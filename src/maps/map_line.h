// SPDX-License-Identifier: GPL-3.0-or-later
// Straight lines upon a 32-bit picture, by the thousand: the general painter takes a hundred times as long for the
// paths of a busy band. MapLayer draws the lines of its maps with it.
#pragma once

#include <QImage>
#include <QPointF>
#include <QRect>

// How a line is drawn.
struct MapLineStyle {
  QRgb colour = 0;   // with alpha
  double width = 2;  // pixels
  bool smooth = true;
};

// Draws lines into a clipped part of one picture.
class MapLineCanvas {
 public:
  // clip: the part of the picture that is drawn on. The picture must have RGB32 pixels and must not be changed or
  // copied as long as the canvas is used.
  MapLineCanvas(QImage& picture, const QRect& clip);

  // Ends are cut square. A line of no length draws nothing; its ends may lie far off the picture. A line drawn in two
  // neighbouring clips gives the same pixels as drawn in one.
  void Draw(const QPointF& from, const QPointF& to, const MapLineStyle& style);

 private:
  QRgb* bits_;
  qsizetype stride_;  // pixels
  QRect clip_;
};
