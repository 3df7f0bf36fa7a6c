// SPDX-License-Identifier: GPL-3.0-or-later
#include "maps/station_marks.h"

#include <QMarginsF>
#include <algorithm>
#include <cmath>
#include <numbers>

#include "maps/map_geometry.h"
#include "maps/map_projection.h"

using namespace Qt::StringLiterals;

namespace {

constexpr double kSeamEast = 190;  // degrees: the World map's right edge
constexpr double kHalfTurn = 180;
constexpr double kStubLength = 100;  // pixels
constexpr double kDotRadius = 4;
constexpr double kOwnLabelGap = 6;
constexpr QColor kOwnColour(0, 0, 255);
// From the picture's edges to the tip of the arrow: at the top the panel with the information line lies over the map,
// at the bottom its last rows lie below the window's edge.
constexpr QMarginsF kArrowRoom(10, 44, 10, 24);
constexpr double kArrowLength = 34;
constexpr double kArrowHead = 13;
constexpr double kArrowSpread = 0.5;  // radians between the shaft and each side of the head
constexpr double kArrowWidth = 3;
constexpr double kArrowLabelGap = 8;

QPointF Direction(double radians) {
  return {std::cos(radians), std::sin(radians)};
}

}  // namespace

std::optional<QPointF> StationMarks::PointOf(double& lat, double& lon) const {
  if (surface_.map == MapName::None || std::isnan(lat) || std::isnan(lon)) return std::nullopt;
  int x = 0;
  int y = 0;
  LatLonToPixel(surface_.map, lat, lon, x, y);
  return QPointF(x, y);
}

bool StationMarks::IsOff(const QPointF& point) const {
  const QSize& picture = surface_.picture;
  return point.x() < 0 || point.y() < 0 || point.x() > picture.width() || point.y() > picture.height();
}

bool StationMarks::IsInside(const QPointF& point) const {
  const QSize& picture = surface_.picture;
  return point.x() > 0 && point.y() > 0 && point.x() < picture.width() && point.y() < picture.height();
}

void StationMarks::Line(const QPointF& from, const QPointF& to, const QColor& colour, double width) {
  overlay_.lines.append({from, to, colour, width});
}

void StationMarks::Path(double fromLat, double fromLon, double toLat, double toLon, const QColor& colour,
                        double width) {
  std::optional<QPointF> from = PointOf(fromLat, fromLon);
  std::optional<QPointF> to = PointOf(toLat, toLon);
  if (!from || !to) return;
  // From here on both longitudes are those of the World map, -170 to 190.
  if (surface_.map != MapName::World || std::abs(fromLon - toLon) <= kHalfTurn) {
    Line(*from, *to, colour, width);
    return;
  }
  if (fromLon < toLon) {
    std::swap(from, to);
    std::swap(fromLon, toLon);
    std::swap(fromLat, toLat);
  }
  const double toSeam = (kSeamEast - fromLon) / (toLon + 2 * kHalfTurn - fromLon);
  double lat = fromLat + (toLat - fromLat) * toSeam;
  double east = kSeamEast;
  double west = kSeamEast - 2 * kHalfTurn;
  Line(*from, *PointOf(lat, east), colour, width);
  Line(*PointOf(lat, west), *to, colour, width);
}

void StationMarks::Ring(const QPointF& centre, double radius, const QColor& colour, double width) {
  overlay_.circles.append({centre, radius, colour, width, false});
}

void StationMarks::Dot(const QPointF& centre, const QColor& colour) {
  // The disc reaches half a pixel under the ring, so that no seam shows between them.
  overlay_.circles.append({centre, 2.5, colour, kDotRadius, true});
  overlay_.circles.append({centre, kDotRadius, colour, kDotRadius, false});
}

QPointF StationMarks::Stub(const QPointF& from, double degrees, const QColor& colour, double width) {
  const QPointF end = from + Direction((degrees - 90) / 180 * PI2) * kStubLength;
  Line(from, end, colour, width);
  return end;
}

QRectF StationMarks::PlaceAbove(const QString& text, const QPointF& point, double gap) const {
  const QSizeF size = surface_.measure(text);
  return {point - QPointF(size.width() / 2, size.height() + gap), size};
}

QRectF StationMarks::PlaceBelow(const QString& text, const QPointF& point, double gap) const {
  const QSizeF size = surface_.measure(text);
  return {point + QPointF(-size.width() / 2, gap), size};
}

QRectF StationMarks::MovedInside(const QRectF& place, double around) const {
  const auto moved = [around](double begin, double length, double picture) {
    return std::max(around, std::min(begin, picture - around - length));
  };
  return {QPointF(moved(place.x(), place.width(), surface_.picture.width()),
                  moved(place.y(), place.height(), surface_.picture.height())),
          place.size()};
}

void StationMarks::CallLabel(const QString& name, const QString& text, const QRectF& place, const QColor& colour,
                             double width) {
  MapOverlay::Label label;
  label.name = name;
  label.text = text;
  label.place = place;
  label.box = place.adjusted(-2, -2, 4, 4);
  label.boxColour = colour;
  label.boxWidth = width;
  label.clickable = true;
  Label(label);
}

QRectF StationMarks::OwnLabel(const QPointF& own, const QString& text) {
  MapOverlay::Label me;
  me.name = u"lblMe"_s;
  me.text = text;
  me.place = PlaceAbove(text, own, kOwnLabelGap);
  me.box = me.place.adjusted(-1, -1, 3, 3);
  me.boxColour = kOwnColour;
  Label(me);
  return me.box;
}

void StationMarks::EdgeArrow(const QPointF& towards, const QString& name, const QString& text, const QColor& colour) {
  const QRectF room = QRectF(QPointF(0, 0), surface_.picture).marginsRemoved(kArrowRoom);
  // A picture that is too small for an arrow gets none.
  if (room.width() < kArrowLength || room.height() < kArrowLength) return;
  const QPointF tip(std::clamp(towards.x(), room.left(), room.right()),
                    std::clamp(towards.y(), room.top(), room.bottom()));
  const QPointF way = towards - tip;
  const double angle = std::atan2(way.y(), way.x());
  const QPointF tail = tip - Direction(angle) * kArrowLength;
  Line(tail, tip, colour, kArrowWidth);
  for (const double side : {-kArrowSpread, kArrowSpread}) {
    Line(tip, tip + Direction(angle + std::numbers::pi + side) * kArrowHead, colour, kArrowWidth);
  }
  const QSizeF size = surface_.measure(text);
  const QPointF back = Direction(angle + std::numbers::pi);
  const double reach = (std::abs(back.x()) * size.width() + std::abs(back.y()) * size.height()) / 2 + kArrowLabelGap;
  const QPointF middle = tail + back * reach;
  const QRectF place(middle - QPointF(size.width() / 2, size.height() / 2), size);
  CallLabel(name, text, MovedInside(place, 6), colour, kArrowWidth);
}
