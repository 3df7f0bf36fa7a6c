// SPDX-License-Identifier: GPL-3.0-or-later
// Cuts lines and rings of the globe to the part that a map shows: undoes the jumps at the date line, closes rings that
// go around a pole, and shifts by full turns until they fall into the window. For the painter.
#pragma once

#include "geodata.h"

// What a map shows, in degrees. east may be above 180, and east - west is at most 360.
struct GeoWindow {
  double west = -180;
  double east = 180;
  double south = -90;
  double north = 90;
};

// The parts of a closed ring inside the window, closed along its edges. Empty where it lies outside.
QList<GeoLine> CutRing(const GeoLine& ring, const GeoWindow& window);
// The parts of an open line inside the window.
QList<GeoLine> CutLine(const GeoLine& line, const GeoWindow& window);
// The line with points added so that no step is longer than this many degrees.
GeoLine Densify(const GeoLine& line, double step);
