// SPDX-License-Identifier: GPL-3.0-or-later
#include "maps/map_geometry.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

// Angle in degrees: angle + (lon - angleLon) * anglePerLon. Radius in pixels: radius + (lat - radiusLat) *
// radiusPerLat.
struct PolarMap {
  float MapCentreX;
  float MapCentreY;
  double angle;
  double anglePerLon;
  double angleLon;
  double radius;
  double radiusPerLat;
  double radiusLat;
};

constexpr PolarMap kNorthAmerica{666, -1400, 72.82, -0.578, -65, 1492, -25.27, 55};
constexpr PolarMap kAustralia{648, 4500, 259.72, 0.467, 110, 3553, 35.62, -36};
constexpr PolarMap kUk{483, -4100, 86.255, -0.827, 0, 4412, -117, 57};
constexpr PolarMap kEurope{800, -850, 105, -0.745, 0, 1288, -33.12, 60};
constexpr PolarMap kNewZealand{520, 7500, 268.06, 0.6757, 170, 7088, 106, -38};
constexpr PolarMap kJapan{520, -4000, 90.37, -0.555, 136, 4450, -56.2, 40};

const PolarMap& PolarMapOf(MapName map) {
  switch (map) {
    case MapName::Australia:
      return kAustralia;
    case MapName::NewZealand:
      return kNewZealand;
    case MapName::Uk:
      return kUk;
    case MapName::Europe:
      return kEurope;
    case MapName::Japan:
      return kJapan;
    default:
      return kNorthAmerica;
  }
}

MapPoint UnroundedWorldPoint(double lat, double lon) {
  const bool south = lat < 0;
  const auto distance = static_cast<double>(static_cast<float>(std::min(std::abs(lat), 90.0)));
  if (!(distance < 90)) return PlaceOnWorldMap(south, lon, 18, 0, static_cast<double>(RobinsonTable.adjust[18]));
  const int row = static_cast<int>(distance / 5);
  // Whole degrees only, and the floor of a negative latitude is the degree beyond: 33.9 N counts as 33, 33.9 S as 34.
  const double frac = (std::abs(static_cast<int>(std::floor(lat))) % 5) / 5.0;
  return PlaceOnWorldMap(south, lon, row, frac, static_cast<double>(RobinsonTable.adjust[static_cast<size_t>(row)]));
}

}  // namespace

const RobinsonColumns RobinsonTable{{0, 5, 10, 15, 20, 25, 30, 35, 40, 45, 50, 55, 60, 65, 70, 75, 80, 85, 90},
                                    {1.0F, 0.9986F, 0.9954F, 0.99F, 0.9822F, 0.973F, 0.96F, 0.9427F, 0.9216F, 0.8962F,
                                     0.8679F, 0.835F, 0.7986F, 0.7597F, 0.7186F, 0.6732F, 0.6213F, 0.5722F, 0.5322F},
                                    {0.0F, 0.062F, 0.124F, 0.186F, 0.248F, 0.31F, 0.372F, 0.434F, 0.4958F, 0.5571F,
                                     0.6176F, 0.6769F, 0.7346F, 0.7903F, 0.8435F, 0.8936F, 0.9394F, 0.9761F, 1.0F},
                                    {0, 0, 0, 1, 2, 2, 3, 4, 5, 7, 9, 11, 13, 16, 19, 22, 26, 30, 35}};

int NaSkew(double lon) {
  const double distance = std::min(std::abs(-95 - lon), 32767.0);
  const int s = static_cast<int>(std::nearbyint(distance));
  if (s <= 9) return 0;
  if (s <= 15) return 3;
  if (s <= 20) return 7;
  if (s <= 25) return 10;
  if (s <= 35) return 15;
  return s;
}

MapPoint PlaceOnPolarMap(MapName map, double lat, double lon, double skew) {
  const PolarMap& polar = PolarMapOf(map);
  const double A = polar.angle + (lon - polar.angleLon) * polar.anglePerLon;
  const double R = (lat - polar.radiusLat) * polar.radiusPerLat + (polar.radius - skew);
  const double T = A / 180 * PI2;
  return {static_cast<double>(polar.MapCentreX) + std::cos(T) * R,
          static_cast<double>(polar.MapCentreY) + std::sin(T) * R};
}

MapPoint PlaceOnPlainMap(MapName map, double lat, double lon) {
  if (map == MapName::NNederland) return {(lon - 3.828) * 240.16 - 14, 595 - (lat - 52.184) * 386.36 - 11};
  const double x = (lon - 40) * 13.72 + 130;
  const double bend = std::pow(std::abs(lat), 1.3);
  return {x, lat < 0 ? bend + 932 - lat * 11.5 : 932 - lat * 11.5 - bend};
}

MapPoint PlaceOnWorldMap(bool south, double lon, int row, double frac, double adjust) {
  const auto here = static_cast<size_t>(row);
  const size_t next = std::min<size_t>(here + 1, 18);
  const auto between = [frac](float from, float to) {
    return static_cast<double>(from) + (static_cast<double>(to) - static_cast<double>(from)) * frac;
  };
  const double h = between(RobinsonTable.height[here], RobinsonTable.height[next]);
  const double w = between(RobinsonTable.width[here], RobinsonTable.width[next]);
  // The two halves of the World map were fitted separately: 170 degrees lie left of the prime meridian, 190 right of
  // it.
  const double k = lon < 0 ? 1300 * w / 170 : 1453 * w / 190;
  return {1322 + k * lon + adjust, south ? 706 + 698 * h : 706 - 698 * h};
}

MapPoint UnroundedMapPoint(MapName map, double lat, double lon) {
  switch (map) {
    case MapName::World:
      return UnroundedWorldPoint(lat, lon);
    case MapName::Asia:
    case MapName::NNederland:
      return PlaceOnPlainMap(map, lat, lon);
    case MapName::NorthAmerica:
      return PlaceOnPolarMap(map, lat, lon, NaSkew(lon));
    default:
      return PlaceOnPolarMap(map, lat, lon, 0);
  }
}

namespace {

MapDegrees DegreesOnPolarMap(MapName map, const MapPoint& point) {
  const PolarMap& polar = PolarMapOf(map);
  const double x = point.x - static_cast<double>(polar.MapCentreX);
  const double y = point.y - static_cast<double>(polar.MapCentreY);
  // Of the angles that a whole turn apart point the same way, the one nearest to the map's own.
  const double turn = 2 * std::numbers::pi;
  const double own = polar.angle / 180 * PI2;
  const double T = std::atan2(y, x);
  const double A = (T + std::nearbyint((own - T) / turn) * turn) * 180 / PI2;
  MapDegrees place;
  place.lon = polar.angleLon + (A - polar.angle) / polar.anglePerLon;
  const int skew = map == MapName::NorthAmerica ? NaSkew(place.lon) : 0;
  place.lat = polar.radiusLat + (std::hypot(x, y) - (polar.radius - skew)) / polar.radiusPerLat;
  return place;
}

MapDegrees DegreesOnPlainMap(MapName map, const MapPoint& point) {
  if (map == MapName::NNederland) return {(584 - point.y) / 386.36 + 52.184, (point.x + 14) / 240.16 + 3.828};
  // On Asia the way from the equator is 11.5 a + a ^ 1.3, whose slope hardly changes: few of Newton's steps will do.
  const double way = std::abs(point.y - 932);
  double a = way / 13;
  for (int i = 0; i < 6; ++i) {
    a = std::max(0.0, a - (11.5 * a + std::pow(a, 1.3) - way) / (11.5 + 1.3 * std::pow(a, 0.3)));
  }
  return {point.y > 932 ? -a : a, (point.x - 130) / 13.72 + 40};
}

std::optional<MapDegrees> DegreesOnWorldMap(const MapPoint& point) {
  const double h = std::abs(706 - point.y) / 698;
  if (h > 1) return std::nullopt;
  // A latitude at which a row begins belongs to that row in spite of binary rounding.
  constexpr double kNudge = 1e-9;
  int row = 0;
  while (row < 17 && static_cast<double>(RobinsonTable.height[static_cast<size_t>(row) + 1]) <= h + kNudge) ++row;
  const auto here = static_cast<size_t>(row);
  const auto from = static_cast<double>(RobinsonTable.height[here]);
  const double frac = (h - from) / (static_cast<double>(RobinsonTable.height[here + 1]) - from);
  const auto adjust = static_cast<double>(RobinsonTable.adjust[here]);
  const MapPoint zero = PlaceOnWorldMap(point.y > 706, 0, row, frac, adjust);
  const double side = point.x < zero.x ? -1 : 1;
  const double degree = PlaceOnWorldMap(point.y > 706, side, row, frac, adjust).x - zero.x;
  const double lon = side * (point.x - zero.x) / degree;
  if (lon < -170 || lon > 190) return std::nullopt;
  return MapDegrees{(row + frac) * (point.y > 706 ? -5 : 5), lon};
}

}  // namespace

std::optional<MapDegrees> PixelToLatLon(MapName map, const MapPoint& point) {
  std::optional<MapDegrees> place;
  switch (map) {
    case MapName::None:
      break;
    case MapName::World:
      place = DegreesOnWorldMap(point);
      break;
    case MapName::Asia:
    case MapName::NNederland:
      place = DegreesOnPlainMap(map, point);
      break;
    default:
      place = DegreesOnPolarMap(map, point);
      break;
  }
  if (!place) return std::nullopt;
  if (place->lon > 180) place->lon -= 360;
  if (place->lon < -180) place->lon += 360;
  // Written so that "nan" fails each comparison.
  if (!(std::abs(place->lat) <= 90 && std::abs(place->lon) <= 180)) return std::nullopt;
  return place;
}
