// SPDX-License-Identifier: GPL-3.0-or-later
#include "map_frame.h"

#include <cmath>

#include "smooth_map.h"

namespace {

constexpr double kStep = 0.5;  // degrees between points

}  // namespace

MapFrame::MapFrame(const MapSheet& sheet) : sheet_(sheet), window_(WindowOf(sheet.map, sheet.size)) {}

QPointF MapFrame::At(const GeoPoint& point) const {
  const double turns = std::ceil((window_.west - point.lon) / 360);
  const double lon = point.lon + 360 * turns;
  if (lon > window_.east || point.lat < window_.south || point.lat > window_.north) return {-1000, -1000};
  return SmoothMapPoint(sheet_.map, point.lat, lon);
}

QPolygonF MapFrame::Project(const GeoLine& line) const {
  QPolygonF pixels;
  for (const GeoPoint& point : Densify(line, kStep)) pixels.append(SmoothMapPoint(sheet_.map, point.lat, point.lon));
  return pixels;
}

QPainterPath MapFrame::Shape(const QList<GeoLine>& rings) const {
  QPainterPath path;
  for (const GeoLine& ring : rings) {
    for (GeoLine part : CutRing(ring, window_)) {
      part.append(part.first());
      path.addPolygon(Project(part));
    }
  }
  return path;
}

QPainterPath MapFrame::Line(const GeoLine& line) const {
  QPainterPath path;
  for (const GeoLine& part : CutLine(line, window_)) path.addPolygon(Project(part));
  return path;
}

QPainterPath MapFrame::Globe() const {
  QPainterPath path;
  if (sheet_.map != MapName::World) {
    path.addRect(QRectF(QPointF(0, 0), sheet_.size));
    return path;
  }
  // The formulas draw half a degree to the south, so the top of the oval lies half a degree beyond the pole.
  const GeoLine edge{{-90, window_.west}, {90.5, window_.west}, {90.5, window_.east}, {-90, window_.east}};
  path.addPolygon(Project(edge));
  path.closeSubpath();
  return path;
}

QPainterPath MapFrame::Graticule() const {
  QPainterPath path;
  const int step = sheet_.graticule;
  const auto first = [step](double from) { return static_cast<int>(std::ceil(from / step)) * step; };
  const auto add = [&](const GeoLine& line) {
    QPolygonF pixels;
    for (const GeoPoint& point : Densify(line, kStep)) {
      pixels.append(GraticuleMapPoint(sheet_.map, point.lat, point.lon));
    }
    path.addPolygon(pixels);
  };
  for (int lon = first(window_.west); lon <= window_.east; lon += step) {
    const auto at = static_cast<double>(lon);
    add({{window_.south, at}, {window_.north, at}});
  }
  for (int lat = first(window_.south); lat <= window_.north; lat += step) {
    const auto at = static_cast<double>(lat);
    add({{at, window_.west}, {at, window_.east}});
  }
  return path;
}
