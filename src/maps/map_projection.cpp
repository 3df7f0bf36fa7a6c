// SPDX-License-Identifier: GPL-3.0-or-later
#include "maps/map_projection.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "maps/map_geometry.h"

using namespace Qt::StringLiterals;

namespace {

// A map and the degrees strictly between which it is the best one. The first row that contains a position wins.
struct MapBox {
  MapName map;
  QLatin1String name;
  double west;
  double east;
  double south;
  double north;
};

constexpr std::array<MapBox, 8> kBoxes{{
    {MapName::NorthAmerica, "North America Map"_L1, -135, -55, 9, 55},
    {MapName::Australia, "Australia Map"_L1, 122, 155, -45, -10},
    {MapName::NewZealand, "New Zealand Map"_L1, 166, 179, -48, -33},
    {MapName::Uk, "UK Map"_L1, -12, 3, 49, 60},
    {MapName::NNederland, "N-Nederland Map"_L1, 3.817, 8, 52.18, 53.72},
    {MapName::Europe, "Europe Map"_L1, -23, 54, 29, 60},
    {MapName::Japan, "Japan Map"_L1, 126, 148, 25, 45},
    {MapName::Asia, "Asia Map"_L1, 54, 148, -26, 62},
}};
constexpr QLatin1String kWorld = "World Map"_L1;

// Rounds halves to the even neighbour; a value beyond the range of int becomes the nearest end of it.
int RoundToPixel(double value) {
  constexpr double kLowest = std::numeric_limits<int>::min();
  constexpr double kHighest = std::numeric_limits<int>::max();
  return static_cast<int>(std::nearbyint(std::clamp(value, kLowest, kHighest)));
}

}  // namespace

MapName MapOfName(QStringView name) {
  for (const MapBox& box : kBoxes) {
    if (name.compare(box.name, Qt::CaseInsensitive) == 0) return box.map;
  }
  return name.compare(kWorld, Qt::CaseInsensitive) == 0 ? MapName::World : MapName::None;
}

QLatin1String FindMapName(double TargetLat, double TargetLon) {
  for (const MapBox& box : kBoxes) {
    if (TargetLon > box.west && TargetLon < box.east && TargetLat > box.south && TargetLat < box.north) return box.name;
  }
  return kWorld;
}

void LatLonToPixel(MapName map, double& lat, double& lon, int& x, int& y) {
  if (map == MapName::None || std::isnan(lat) || std::isnan(lon)) return;
  if (map == MapName::World && lon < -170) lon = (180 - std::abs(lon)) + 180;
  const MapPoint point = UnroundedMapPoint(map, lat, lon);
  if (std::isnan(point.x) || std::isnan(point.y)) return;  // an infinite coordinate gives no angle
  x = RoundToPixel(point.x);
  y = RoundToPixel(point.y);
}

// Written so that "nan" fails each comparison.
bool IsPlaced(double lat, double lon) {
  return lat != 0 && lon != 0 && std::abs(lat) <= 90 && std::abs(lon) <= 180;
}
