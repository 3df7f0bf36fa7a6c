// SPDX-License-Identifier: GPL-3.0-or-later
// The calibrated formulas of the nine maps, before any rounding. map_projection rounds them to pixels for the program;
// the map renderer bends the same formulas into smooth ones, so that coasts and points come from one place.
#pragma once

#include <array>
#include <optional>

#include "maps/map_name.h"

// Not pi: the maps were fitted with these digits, and the radii are long enough for the difference to show.
inline constexpr double PI2 = 3.14159625;

// A place on a map's picture, in pixels and fractions of them.
struct MapPoint {
  double x = 0;
  double y = 0;
};

// A place on the earth in degrees, north and east positive.
struct MapDegrees {
  double lat = 0;
  double lon = 0;
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

// The six maps that are drawn on a cone. lat and lon in degrees; skew: pixels that the radius loses, which is 0 on all
// maps but North America.
MapPoint PlaceOnPolarMap(MapName map, double lat, double lon, double skew);
// The two maps with their own formulas: Asia and N-Nederland. lat and lon in degrees.
MapPoint PlaceOnPlainMap(MapName map, double lat, double lon);
// The World map, from a row of RobinsonTable (0 to 18), the fraction of the way to the next row, and the pixels added
// to x. lon in degrees, -170 to 190.
MapPoint PlaceOnWorldMap(bool south, double lon, int row, double frac, double adjust);

// The point that LatLonToPixel rounds, for every map but None. lat and lon in degrees; for the World map the caller has
// moved lon to -170 or above.
MapPoint UnroundedMapPoint(MapName map, double lat, double lon);

// The inverse of UnroundedMapPoint: what lies at a point of the map's picture. Longitudes are -180 to 180. None where
// the formula leads to no place on the earth: in the World map's corners, around the centre of a cone. The formulas
// that go in steps (whole degrees of latitude on the World map, the radius on North America) are inverted without the
// steps of the former, as the pictures are drawn.
std::optional<MapDegrees> PixelToLatLon(MapName map, const MapPoint& point);
