// SPDX-License-Identifier: GPL-3.0-or-later
#include "onair/on_air_drawing.h"

#include <QSet>

#include "maps/map_projection.h"
#include "maps/station_marks.h"

using namespace Qt::StringLiterals;

namespace {

constexpr QColor kBlue(0, 0, 255);
constexpr double kRadius = 4;
constexpr double kRimWidth = 4;

MapOverlay::Label CallLabel(const OnAirEntry& entry, int index, const QPointF& point, const MapSurface& surface) {
  MapOverlay::Label label;
  label.name = u"lblCall(%1)"_s.arg(index);
  label.id = entry.call;
  label.text = u' ' + entry.shownCall + u' ';
  label.clickable = true;
  if (index < kMostOnAirLabels) {
    label.place = QRectF(point, surface.measure(label.text));
    label.anchor = point;
  } else {
    const QPointF half(kRadius + kRimWidth / 2, kRadius + kRimWidth / 2);
    label.place = QRectF(point - half, point + half);
    label.dot = true;
  }
  return label;
}

}  // namespace

MapDrawing BuildOnAirDrawing(const Program& program, const QList<OnAirEntry>& entries, const MapSurface& surface) {
  StationMarks marks(surface);
  MapDrawing drawing;
  // Copies: the World map moves longitudes near the date line into the variable.
  double myLat = program.config.MyLat;
  double myLon = program.config.MyLon;
  if (myLat != 0 || myLon != 0) {
    const std::optional<QPointF> own = marks.PointOf(myLat, myLon);
    if (own && marks.IsInside(*own)) {
      marks.OwnLabel(*own, program.language[TextLine::kMeWord]);
      drawing.keep = own;
    }
  }
  QSet<QString> drawn;
  int labels = 0;
  for (const OnAirEntry& entry : entries) {
    if (!IsPlaced(entry.lat, entry.lon) || drawn.contains(entry.call)) continue;
    double lat = entry.lat;
    double lon = entry.lon;
    const std::optional<QPointF> point = marks.PointOf(lat, lon);
    if (!point || marks.IsOff(*point)) continue;
    drawn.insert(entry.call);
    marks.Ring(*point, kRadius, kBlue, kRimWidth);
    marks.Label(CallLabel(entry, labels++, *point, surface));
  }
  drawing.overlay = marks.Take();
  return drawing;
}
