// SPDX-License-Identifier: GPL-3.0-or-later
#include "smooth_map.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "maps/map_geometry.h"

namespace {

// Every step of NaSkew becomes a ramp between these distances from 95 W. The last step is the largest by far: its ramp
// is narrow and lies where there is least to bend. Beyond it the radius loses a pixel a degree.
double SmoothNaSkew(double lon) {
  struct Ramp {
    double from;
    double to;
    double low;
    double high;
  };
  constexpr std::array<Ramp, 5> ramps{{
      {9, 10, 0, 3},
      {15, 16, 3, 7},
      {20, 21, 7, 10},
      {25, 26, 10, 15},
      {35.58, 35.68, 15, 36},
  }};
  const double distance = std::abs(-95 - lon);
  double skew = std::max(distance, 36.0);
  for (auto ramp = ramps.rbegin(); ramp != ramps.rend() && distance < ramp->to; ++ramp) {
    const double part = std::clamp((distance - ramp->from) / (ramp->to - ramp->from), 0.0, 1.0);
    skew = ramp->low + (ramp->high - ramp->low) * part;
  }
  return skew;
}

// The same function with wide bends: straight between the middles of the steps.
double WideNaSkew(double lon) {
  struct Knot {
    double distance;
    double skew;
  };
  constexpr std::array<Knot, 7> knots{{{4.5, 0}, {12.5, 3}, {18, 7}, {23, 10}, {30.5, 15}, {41, 41}, {180, 180}}};
  const double distance = std::abs(-95 - lon);
  for (size_t i = 1; i < knots.size(); ++i) {
    const Knot& from = knots[i - 1];
    const Knot& to = knots[i];
    if (distance > to.distance) continue;
    const double part = std::max(0.0, (distance - from.distance) / (to.distance - from.distance));
    return from.skew + (to.skew - from.skew) * part;
  }
  return distance;
}

// The program steps by rows of five degrees; here the middles of the rows have their figures, and all between is even.
double SmoothAdjust(double lat) {
  const double place = std::clamp(std::abs(lat) / 5 - 0.5, 0.0, 17.0);
  const auto row = static_cast<size_t>(place);
  const auto here = static_cast<double>(RobinsonTable.adjust[row]);
  const auto next = static_cast<double>(RobinsonTable.adjust[row + 1]);
  return here + (next - here) * (place - std::floor(place));
}

// The program takes the floor of a latitude, which on average is half a degree further south.
MapPoint SmoothWorldPoint(double lat, double lon) {
  const double floored = std::clamp(lat - 0.5, -90.0, 90.0);
  const double rows = std::abs(floored) / 5;
  const int row = std::min(static_cast<int>(rows), 17);
  return PlaceOnWorldMap(floored < 0, lon, row, rows - row, SmoothAdjust(lat));
}

// Any degree near the middle: the opposite side of the globe is on no picture.
int MiddleLon(MapName map) {
  switch (map) {
    case MapName::NorthAmerica:
      return -95;
    case MapName::Australia:
    case MapName::Japan:
      return 135;
    case MapName::NewZealand:
      return 173;
    case MapName::Asia:
      return 100;
    default:
      return 10;
  }
}

}  // namespace

QPointF SmoothMapPoint(MapName map, double lat, double lon) {
  MapPoint point;
  if (map == MapName::World) {
    point = SmoothWorldPoint(lat, lon);
  } else if (map == MapName::NorthAmerica) {
    point = PlaceOnPolarMap(map, lat, lon, SmoothNaSkew(lon));
  } else {
    point = UnroundedMapPoint(map, lat, lon);
  }
  return {point.x, point.y};
}

QPointF GraticuleMapPoint(MapName map, double lat, double lon) {
  if (map != MapName::NorthAmerica) return SmoothMapPoint(map, lat, lon);
  const MapPoint point = PlaceOnPolarMap(map, lat, lon, WideNaSkew(lon));
  return {point.x, point.y};
}

GeoWindow WindowOf(MapName map, const QSize& size) {
  if (map == MapName::World) return {-170, 190, -90, 90};
  constexpr int parts = 4;  // places tried a degree
  constexpr double margin = 1.5;
  const int west = MiddleLon(map) - 180;
  GeoWindow window{west + 360.0, double(west), 90, -90};
  for (int row = -90 * parts; row <= 90 * parts; ++row) {
    for (int column = west * parts; column <= (west + 360) * parts; ++column) {
      const double lat = double(row) / parts;
      const double lon = double(column) / parts;
      const QPointF point = SmoothMapPoint(map, lat, lon);
      if (point.x() < 0 || point.y() < 0 || point.x() > size.width() || point.y() > size.height()) continue;
      window = {std::min(window.west, lon), std::max(window.east, lon), std::min(window.south, lat),
                std::max(window.north, lat)};
    }
  }
  return {window.west - margin, window.east + margin, std::max(window.south - margin, -90.0),
          std::min(window.north + margin, 90.0)};
}
