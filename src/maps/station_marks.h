// SPDX-License-Identifier: GPL-3.0-or-later
// The marks of stations on a map, as values: dot, ring, line, the stub towards a station that is off the picture, the
// arrow at the edge, the label with its frame. The logic of every map window draws its stations with one of these.
#pragma once

#include "maps/map_overlay.h"

// Fills an overlay; things lie upon each other in the order of the calls, as MapOverlay tells.
class StationMarks {
 public:
  explicit StationMarks(const MapSurface& surface) : surface_(surface) {}

  // The pixel of a position in degrees; none without a formula or for what is no number. The World map moves a
  // longitude below -170 into the caller's variable, so that whoever wants to keep it passes a copy.
  std::optional<QPointF> PointOf(double& lat, double& lon) const;
  // Off the picture, where a point on the very edge is not off; and strictly inside, where it is not inside either.
  bool IsOff(const QPointF& point) const;
  bool IsInside(const QPointF& point) const;

  void Line(const QPointF& from, const QPointF& to, const QColor& colour, double width);
  void Ring(const QPointF& centre, double radius, const QColor& colour, double width);
  // A disc of four pixels with its ring.
  void Dot(const QPointF& centre, const QColor& colour);
  // A line of 100 pixels from a point, in degrees clockwise from the top of the picture. Returns its other end.
  QPointF Stub(const QPointF& from, double degrees, const QColor& colour, double width);

  // The place of a text, centred over a point with that many pixels between them, or below it.
  QRectF PlaceAbove(const QString& text, const QPointF& point, double gap) const;
  QRectF PlaceBelow(const QString& text, const QPointF& point, double gap) const;
  // The place moved the shortest way so that all of it, and this much around it, lies on the picture; a place larger
  // than the picture keeps its left and top on it.
  QRectF MovedInside(const QRectF& place, double around) const;

  void Label(const MapOverlay::Label& label) { overlay_.labels.append(label); }
  // A call's label, clickable, with a frame in that colour.
  void CallLabel(const QString& name, const QString& text, const QRectF& place, const QColor& colour, double width);
  // lblMe with its text over own position.
  void OwnLabel(const QPointF& own, const QString& text);
  // An arrow at the edge of the picture towards a point that is off it, and a clickable label behind its tail.
  void EdgeArrow(const QPointF& towards, const QString& name, const QString& text, const QColor& colour);

  MapOverlay Take() { return std::move(overlay_); }

 private:
  MapSurface surface_;
  MapOverlay overlay_;
};
