// SPDX-License-Identifier: GPL-3.0-or-later
// The calibrated formulas of the nine maps, before any rounding. map_projection rounds them to pixels for the program;
// the map renderer bends the same formulas into smooth ones, so that coasts and points come from one place.
#pragma once

#include <array>

#include "maps/map_name.h"

// Not pi: the maps were fitted with these digits, and the radii are long enough for the difference to show.
inline constexpr double PI2 = 3.14159625;

// A place on a map's picture, in pixels and fractions of them.
struct MapPoint {
  double x = 0;
  double y = 0;
};

// Rows of the World map, one every five degrees of latitude, in single precision as the formulas were fitted.
struct RobinsonColumns {
  std::array<float, 19> latitude;
  std::array<float, 19> width;
  std::array<float, 19> height;
  std::array<float, 19> adjust;  // pixels added to x on both sides of the prime meridian
};
extern const RobinsonColumns RobinsonTable;

// Pixels that the North America map's radius loses at a longitude in degrees: a step function of the distance from 95
// W.
int NaSkew(double lon);

// The six maps drawn on a cone. skew shortens the radius, in pixels; only North America has one.
MapPoint PlaceOnPolarMap(MapName map, double lat, double lon, double skew);
// Asia and N-Nederland.
MapPoint PlaceOnPlainMap(MapName map, double lat, double lon);
// The World map from a table row (0 to 18), the fraction of the way to the next row, and the pixels added to x.
MapPoint PlaceOnWorldMap(bool south, double lon, int row, double frac, double adjust);

// What LatLonToPixel rounds, for every map but None; lon has been moved to -170 or above for the World map.
MapPoint UnroundedMapPoint(MapName map, double lat, double lon);
