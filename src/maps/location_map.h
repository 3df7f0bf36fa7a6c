// SPDX-License-Identifier: GPL-3.0-or-later
// What the location map shows of a station: which map is the best for it, and the lines, marks and labels upon it as
// values. frmMapLoc asks and shows; the other map windows take the names of maps from here.
#pragma once

#include <optional>

#include "core/program.h"
#include "maps/map_overlay.h"

// The station that is looked at. The World map moves its longitude as LatLonToPixel does.
struct MapTarget {
  QString call;
  double lat = 0;  // degrees
  double lon = 0;
};

struct LocationMap {
  MapOverlay overlay;
  QString info;                 // call, distance and direction in one line
  std::optional<QPointF> keep;  // the point to be kept in view; none where the map has no formula
};

// An entry of lstMap without its extension, such as "Asia Map"; empty for an index beyond the list.
QString MapTitle(const QStringList& lstMap, int index);
// The entries of lstMap as the lists of maps show them, such as "Asia".
QStringList MapListNames(const QStringList& lstMap);
// Index in lstMap of the best map for a position in degrees; the count of the list where that map is missing.
int BestMapIndex(const QStringList& lstMap, double lat, double lon);

// The map at MapIndex, its picture of that size, with the target upon it. Moves an own latitude beyond 89 degrees back
// to it, in the configuration too; the World map moves an own longitude there as it does the target's. Without a
// formula for the map nothing is drawn.
LocationMap BuildLocationMap(Program& program, MapTarget& target, const QSize& picture, const LabelMeasure& measure);
