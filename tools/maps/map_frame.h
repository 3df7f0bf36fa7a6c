// SPDX-License-Identifier: GPL-3.0-or-later
// One map's picture as a place to draw on: turns degrees into shapes in pixels, cut to what the picture shows. For the
// painter and the labels.
#pragma once

#include <QPainterPath>

#include "geo_window.h"
#include "map_sheet.h"

// Places on the picture of one map.
class MapFrame {
 public:
  explicit MapFrame(const MapSheet& sheet);

  const MapSheet& Sheet() const { return sheet_; }
  const GeoWindow& Window() const { return window_; }
  // Pixel of a position; outside the picture when the map does not show it.
  QPointF At(const GeoPoint& point) const;
  // Filled by the odd-even rule; empty outside the window.
  QPainterPath Shape(const QList<GeoLine>& rings) const;
  QPainterPath Line(const GeoLine& line) const;
  // The edge of the World map's oval; for the other maps the whole picture.
  QPainterPath Globe() const;
  // Meridians and parallels.
  QPainterPath Graticule() const;

 private:
  QPolygonF Project(const GeoLine& line) const;

  MapSheet sheet_;
  GeoWindow window_;
};
