// SPDX-License-Identifier: GPL-3.0-or-later
// The marks of stations on a map, as values: dot, ring, line, the stub towards a station that is off the picture, the
// arrow at the edge, the label with its frame. The logic of every map window draws its stations with one of these.
#pragma once

#include "maps/map_overlay.h"

// Fills an overlay with marks. Of two marks of a kind the later one lies on top (see MapOverlay).
class StationMarks {
 public:
  explicit StationMarks(const MapSurface& surface) : surface_(surface) {}

  // The pixel of a position in degrees; none where the map has no formula or a coordinate is no number. The World map
  // changes a longitude below -170 in the caller's variable, so a caller that stores its longitude passes a copy.
  std::optional<QPointF> PointOf(double& lat, double& lon) const;
  // IsOff: outside the picture; IsInside: strictly inside. A point exactly on the edge is neither.
  bool IsOff(const QPointF& point) const;
  bool IsInside(const QPointF& point) const;

  void Line(const QPointF& from, const QPointF& to, const QColor& colour, double width);
  // The way between two positions in degrees. On the World map one that is shorter across the map's seam at 170 W ends
  // at one edge and goes on at the other.
  void Path(double fromLat, double fromLon, double toLat, double toLon, const QColor& colour, double width);
  void Ring(const QPointF& centre, double radius, const QColor& colour, double width);
  // A disc with its ring, four pixels in radius.
  void Dot(const QPointF& centre, const QColor& colour);
  // A line of 100 pixels from a point, in degrees clockwise from the top of the picture. Returns its other end.
  QPointF Stub(const QPointF& from, double degrees, const QColor& colour, double width);

  // The rectangle of a label with this text, centred above (or below) a point with gap pixels between them.
  QRectF PlaceAbove(const QString& text, const QPointF& point, double gap) const;
  QRectF PlaceBelow(const QString& text, const QPointF& point, double gap) const;
  // place moved the shortest way onto the picture, with around pixels on each side of it; a place larger than the
  // picture keeps its left and top on the picture.
  QRectF MovedInside(const QRectF& place, double around) const;

  void Label(const MapOverlay::Label& label) { overlay_.labels.append(label); }
  // A call's label, clickable, with a frame in that colour.
  void CallLabel(const QString& name, const QString& text, const QRectF& place, const QColor& colour, double width);
  // The label lblMe with its text above the own position. Returns its frame.
  QRectF OwnLabel(const QPointF& own, const QString& text);
  // An arrow at the edge of the picture towards a point that is off it, and a clickable label behind its tail.
  void EdgeArrow(const QPointF& towards, const QString& name, const QString& text, const QColor& colour);

  MapOverlay Take() { return std::move(overlay_); }

 private:
  MapSurface surface_;
  MapOverlay overlay_;
};
