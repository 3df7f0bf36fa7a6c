// SPDX-License-Identifier: GPL-3.0-or-later
// Places on the maps in pixels: by worked figures, at the seams of the formulas, and on the installed pictures.
#include <QColor>
#include <QImage>
#include <QPoint>
#include <limits>

#include "maps/map_geometry.h"
#include "maps/map_projection.h"
#include "test_suite.h"

using namespace Qt::StringLiterals;

namespace {

constexpr double kInfinite = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr int kLowest = std::numeric_limits<int>::min();
constexpr int kHighest = std::numeric_limits<int>::max();
constexpr QPoint kUntouched{-7, -9};

QPoint Place(MapName map, double lat, double lon) {
  int x = kUntouched.x();
  int y = kUntouched.y();
  LatLonToPixel(map, lat, lon, x, y);
  return {x, y};
}

// Water or land by the colours around a position, where a line or a letter may stand in the way. '?' off the picture.
char GroundAt(const QImage& picture, const QPoint& at) {
  constexpr int reach = 3;
  const QRect around(at.x() - reach, at.y() - reach, 2 * reach + 1, 2 * reach + 1);
  if (!picture.rect().contains(around)) return '?';
  int water = 0;
  for (int y = around.top(); y <= around.bottom(); ++y) {
    for (int x = around.left(); x <= around.right(); ++x) {
      const QRgb pixel = picture.pixel(x, y);
      if (qBlue(pixel) > qRed(pixel) + 8) ++water;
    }
  }
  return 2 * water > around.width() * around.height() ? 'w' : 'l';
}

struct Expected {
  double lat;
  double lon;
  QPoint pixel;
};

void Compare(MapName map, const QList<Expected>& points) {
  for (const auto& [lat, lon, pixel] : points) {
    const TableRow row(qPrintable(u"map %1, %2 %3"_s.arg(static_cast<int>(map)).arg(lat).arg(lon)));
    QCOMPARE(Place(map, lat, lon), pixel);
  }
}

}  // namespace

class TestMapProjection : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  // A town in the middle of each map, and the far corners of the cones, where a turn that is a little off is seen.
  void PlacesPoints() {
    // London, off Ireland, Shetland
    Compare(MapName::Uk, {{51.507, -0.128, {804, 944}}, {50, -11, {-5, 1108}}, {59, 2, {876, 59}}});
    // Amsterdam, Groningen
    Compare(MapName::NNederland, {{52.373, 4.9, {243, 511}}, {53.219, 6.567, {644, 184}}});
    // off the Azores, Karelia
    Compare(MapName::Europe, {{30, -22, {-388, 1098}}, {59, 53, {1348, 352}}});
    // Tokyo, Okinawa, Kuril Islands
    Compare(MapName::Japan, {{35.69, 139.692, {657, 690}}, {26, 127, {30, 1214}}, {44, 147, {942, 204}}});
    // Sydney, west of Tasmania, Coral Sea
    Compare(MapName::Australia, {{-33.8688, 151.2, {1213, 915}}, {-44, 123, {408, 1241}}, {-11, 154, {1440, 128}}});
    // Auckland, Stewart Island, Kermadec; the last is a pixel right of where pi itself would put it
    Compare(MapName::NewZealand,
            {{-36.8485, 174.7633, {681, 292}}, {-47, 167, {96, 1381}}, {-34, 178, {974, 2}}, {-46, 173, {530, 1260}}});
    // New York, Denver, Polynesia, Labrador
    Compare(MapName::NorthAmerica, {{40.7128, -74.006, {1048, 403}},
                                    {39.7392, -104.9903, {472, 465}},
                                    {10, -134, {-334, 989}},
                                    {54, -56, {1229, -33}}});
    // Delhi; Cape Town
    Compare(MapName::Asia, {{28.6139, 77.209, {641, 525}}});
    Compare(MapName::World, {{-33.9249, 18.4241, {1458, 1000}}});
  }

  // The radius of North America shrinks in steps, on both sides of each; a half goes to the even degree, so that 105.5
  // W still counts as 10 degrees from the middle.
  void ShrinksNorthAmerica() {
    const std::pair<double, QPoint> steps[] = {{-104.49, {482, 462}}, {-104.5, {482, 459}}, {-105.5, {463, 457}},
                                               {-110.5, {371, 440}},  {-115.5, {278, 423}}, {-115.51, {279, 420}},
                                               {-120.49, {188, 399}}, {-120.5, {189, 394}}, {-130.49, {11, 337}},
                                               {-130.5, {18, 317}},   {-59.4, {1306, 320}}};
    for (const auto& [lon, pixel] : steps) Compare(MapName::NorthAmerica, {{40, lon, pixel}});
  }

  // The seams of the formulas, and numbers that no position has.
  void PlacesOddPoints() {
    // Asia at its equator: just beyond, a half above an odd and an even pixel, and far beyond.
    Compare(MapName::Asia,
            {{-0.5, 40, {130, 938}}, {1, 40, {130, 920}}, {-1, 40, {130, 944}}, {-10, 100, {953, 1067}}});
    // The World map's table: between two rows in the north, back to a row in the south; 4.99999999 is the row of
    // 5 degrees in single precision only; the last row and the poles.
    const std::pair<double, QPoint> rows[] = {{0, {1322, 706}},     {-0.5, {1322, 715}},       {33.9, {1325, 420}},
                                              {-34.5, {1325, 966}}, {4.99999999, {1322, 628}}, {-89.99, {1352, 1387}},
                                              {90, {1357, 8}},      {-90, {1357, 1404}}};
    for (const auto& [lat, pixel] : rows) Compare(MapName::World, {{lat, 0, pixel}});
    // The date line from both sides, and the left edge.
    Compare(MapName::World, {{45, -180, {2563, 317}}, {45, 180, {2563, 317}}, {45, -170, {164, 317}}});
    // Beyond the poles, and endless.
    Compare(MapName::World, {{120, 0, {1357, 8}}, {-1e300, 1e300, {kHighest, 1404}}, {45, -kInfinite, {kLowest, 317}}});
    Compare(MapName::NNederland, {{kInfinite, -kInfinite, {kLowest, kLowest}}});
    Compare(MapName::Uk, {{-1e300, 0, {kHighest, kHighest}}});
    // Without an angle, a latitude, a longitude or a formula nothing is changed.
    Compare(MapName::NorthAmerica, {{10, kInfinite, kUntouched}});
    Compare(MapName::World, {{kNaN, 10, kUntouched}});
    Compare(MapName::Asia, {{10, kNaN, kUntouched}});
    Compare(MapName::None, {{10, 10, kUntouched}});
  }

  // Every row of the World map's table, north of the equator at its right end and south of it at its left.
  void FollowsTheWorldTable() {
    const QList<QPoint> north{{2699, 706}, {2697, 663}, {2692, 619}, {2686, 576}, {2676, 533}, {2663, 490}, {2646, 446},
                              {2624, 403}, {2596, 360}, {2563, 317}, {2526, 275}, {2482, 234}, {2434, 193}, {2384, 154},
                              {2330, 117}, {2271, 82},  {2203, 50},  {2140, 25},  {2090, 8}};
    const QList<QPoint> south{{98, 706},   {100, 749},  {104, 793},  {112, 836},  {122, 879},  {134, 922},  {150, 966},
                              {173, 1009}, {199, 1052}, {232, 1095}, {269, 1137}, {311, 1178}, {358, 1219}, {408, 1258},
                              {462, 1295}, {520, 1330}, {588, 1362}, {652, 1387}, {706, 1404}};
    for (int row = 0; row <= 18; ++row) {
      QCOMPARE(Place(MapName::World, 5 * row, 180), north.at(row));
      QCOMPARE(Place(MapName::World, -5 * row, -160), south.at(row));
    }
  }

  void MovesLongitudesPastTheDateLine() {
    const auto moved = [](MapName map, double lon) {
      double lat = 45;
      int x = 0;
      int y = 0;
      LatLonToPixel(map, lat, lon, x, y);
      return lon;
    };
    QCOMPARE(moved(MapName::World, -175), 185.0);
    QCOMPARE(moved(MapName::World, -170), -170.0);
    QCOMPARE(moved(MapName::Asia, -175), -175.0);
  }

  // Points that no box of EndsAtTheEdges decides.
  void ChoosesTheMap() {
    const auto check = [](const char* what, double lat, double lon, const QString& name) {
      const TableRow row(what);
      QCOMPARE(QString(FindMapName(lat, lon)), name);
    };
    check("Perth lies west of its map", -31.95, 115.86, u"World Map"_s);
    check("east of the UK box", 53, 3.9, u"N-Nederland Map"_s);
    check("Europe's northern edge", 60, 0, u"World Map"_s);
    check("east of Asia", 30, 150, u"World Map"_s);
    check("Rio de Janeiro", -22.9, -43.2, u"World Map"_s);
    check("nowhere", kNaN, kNaN, u"World Map"_s);
  }

  // A hair inside each edge the map is the best one, on the edge itself another is.
  void EndsAtTheEdges() {
    const auto check = [](const char* what, double west, double east, double south, double north) {
      const TableRow row(what);
      const double lat = (south + north) / 2;
      const double lon = (west + east) / 2;
      const QLatin1String name(what);
      for (const double hair : {0.001, 0.0}) {
        for (const auto& [atLat, atLon] : {std::pair(lat, west + hair), std::pair(lat, east - hair),
                                           std::pair(south + hair, lon), std::pair(north - hair, lon)}) {
          QVERIFY2((FindMapName(atLat, atLon) == name) == (hair > 0), qPrintable(u"%1 %2"_s.arg(atLat).arg(atLon)));
        }
      }
    };
    check("North America Map", -135.0, -55.0, 9.0, 55.0);
    check("Australia Map", 122.0, 155.0, -45.0, -10.0);
    check("New Zealand Map", 166.0, 179.0, -48.0, -33.0);
    check("UK Map", -12.0, 3.0, 49.0, 60.0);
    check("N-Nederland Map", 3.817, 8.0, 52.18, 53.72);
    check("Europe Map", -23.0, 54.0, 29.0, 60.0);
    check("Japan Map", 126.0, 148.0, 25.0, 45.0);
    check("Asia Map", 54.0, 148.0, -26.0, 62.0);
  }

  // Each map that has a formula is found by its name in FitsThePictures.
  void KnowsMapsByName() {
    QCOMPARE(MapOfName(u"n-nederland MAP"), MapName::NNederland);
    for (const QString& other : {u"World Map.jpg"_s, u"My Town Map"_s, QString()}) {
      QCOMPARE(MapOfName(other), MapName::None);
    }
  }

  // Shores, islands and straits as the program places them must lie where the installed pictures show them.
  void FitsThePictures() {
    // Places are latitude and longitude.
    using Places = QList<QPointF>;
    const auto check = [](const char* what, QSize size, const Places& land, const Places& water) {
      const TableRow row(what);
      const QString name = QString::fromLatin1(what);
      const QImage picture(QStringLiteral(MAPS_DIR "/") + name + u".jpg"_s);
      QCOMPARE(picture.size(), size);
      for (const auto& [places, ground] : {std::pair(land, 'l'), std::pair(water, 'w')}) {
        for (const QPointF& place : places) {
          const QPoint at = Place(MapOfName(name), place.x(), place.y());
          QVERIFY2(GroundAt(picture, at) == ground, qPrintable(u"%1 %2"_s.arg(place.x()).arg(place.y())));
        }
      }
    };

    check("Asia Map", {1760, 1330}, {{7.2, 80.8}, {24, 121}, {-6.9, 107.6}, {24.2, 55.5}, {19.2, 109.8}, {-20, 46.5}},
          {{26.5, 52}, {10.3, 101.2}, {53.5, 108.2}, {41.5, 51}, {38.5, 119.8}, {-12, 136}});
    check("Australia Map", {1500, 1350}, {{-42, 146.7}, {-35.8, 137.2}, {-13, 142.7}, {-22, 114}, {-38.7, 146.2}},
          {{-40.2, 146}, {-34.2, 137.1}, {-14.5, 139}, {-32.5, 127}, {-25.6, 113.7}, {-10.9, 129}});
    check("Europe Map", {1810, 1490},
          {{39.6, 3}, {35.2, 25}, {57.5, 18.5}, {40.1, 9}, {35, 33}, {65, -18.5}, {45.2, 34.5}},
          {{40.8, 28.2}, {46, 36.5}, {44.5, 13.5}, {61, 31.5}, {57.5, 23.5}, {54, -5}, {51.2, 1.9}});
    check("Japan Map", {1120, 1320},
          {{33.4, 126.5}, {38.05, 138.4}, {33.7, 133.3}, {43.3, 142.7}, {26.6, 128}, {37.3, 137}},
          {{41.3, 140.3}, {34.6, 135.1}, {35.25, 136.1}, {36, 133.8}, {34, 129}, {37.1, 137.25}});
    check("N-Nederland Map", {1010, 1180},
          {{53.08, 4.83}, {52.5, 5.6}, {53.44, 5.75}, {52.75, 5.7}, {51.95, 5.4}, {53.3, 6.2}},
          {{52.85, 5.4}, {53.2, 5.2}, {52.57, 5.2}, {53.5, 6.45}, {53.45, 7}, {52.9, 4.4}});
    check("New Zealand Map", {1090, 1510},
          {{-47, 167.9}, {-36.2, 175.4}, {-43.75, 172.9}, {-39.3, 174}, {-34.6, 172.95}},
          {{-38.8, 175.9}, {-41.3, 174.5}, {-36.4, 175.1}, {-46.7, 168.2}, {-40.8, 173.1}, {-37, 175.4}});
    check("North America Map", {1710, 1280},
          {{18.1, -77.3}, {48.5, -56.5}, {18.2, -66.4}, {28, -81.5}, {24.2, -110.2}, {49.6, -125.5}},
          {{48, -88}, {44, -87}, {28, -111.8}, {49.4, -124.3}, {9.8, -71.5}, {47.7, -61}, {38.5, -76.4}});
    check("UK Map", {1090, 1300},
          {{54.25, -4.5}, {50.67, -1.3}, {53.28, -4.35}, {55.58, -5.2}, {57.3, -6.25}, {54.2, -7}},
          {{54.6, -6.4}, {51.3, -4}, {56.15, -2.7}, {52.9, 0.3}, {53.2, -5.2}, {51, 1.5}});
    check("World Map", {2800, 1412},
          {{19.5, -155.5}, {65, -18.5}, {66, -172}, {66, 180}, {-42, 146.7}, {22, -79}, {-19, 47}, {-80, 60}},
          {{42, 51}, {43, 34}, {24, 36.5}, {66, -168}, {12.5, 43.8}, {-13.5, 139}, {58, 20}, {26, 52}, {41, 135}});
  }

  // There and back, over the whole picture of each map, and on the World map, whose formula knows whole degrees of
  // latitude only, over these.
  void FindsThePlaceOfAPixel() {
    const auto check = [](MapName map, const QSize& picture) {
      for (int x = 0; x <= picture.width(); x += 41) {
        for (int y = 0; y <= picture.height(); y += 13) {
          const TableRow row(qPrintable(u"map %1, %2 %3"_s.arg(static_cast<int>(map)).arg(x).arg(y)));
          std::optional<MapDegrees> place = PixelToLatLon(map, {double(x), double(y)});
          QVERIFY(place);
          // New Zealand's picture goes on beyond 180 E, where its formula places no longitude west of 180.
          if (map == MapName::NewZealand && place->lon < 0) place->lon += 360;
          QCOMPARE(Place(map, place->lat, place->lon), QPoint(x, y));
        }
      }
    };
    check(MapName::Uk, {1090, 1300});
    check(MapName::NNederland, {1000, 600});
    check(MapName::Europe, {1810, 1490});
    check(MapName::Japan, {1100, 1300});
    check(MapName::Australia, {1500, 1300});
    check(MapName::NewZealand, {1100, 1400});
    check(MapName::NorthAmerica, {1400, 1000});
    check(MapName::Asia, {1760, 1130});
    for (int lat = -89; lat < 90; ++lat) {
      for (const double lon : {-169.5, -90.0, -0.5, 0.5, 90.0, 179.5}) {
        const TableRow row(qPrintable(u"world %1 %2"_s.arg(lat).arg(lon)));
        const std::optional<MapDegrees> place =
            PixelToLatLon(MapName::World, UnroundedMapPoint(MapName::World, lat, lon));
        QVERIFY(place && std::abs(place->lat - lat) < 1e-4 && std::abs(place->lon - lon) < 1e-4);
      }
    }
    // Beyond the poles, beyond the seam, inside of a cone's top.
    const std::optional<MapDegrees> east = PixelToLatLon(MapName::World, UnroundedMapPoint(MapName::World, 10, 189));
    QVERIFY(east && std::abs(east->lon + 171) < 1e-4);
    QVERIFY(!PixelToLatLon(MapName::World, {1322, 5}) && !PixelToLatLon(MapName::World, {20, 40}));
    QVERIFY(!PixelToLatLon(MapName::NorthAmerica, {666, -1400}) && !PixelToLatLon(MapName::None, {10, 10}));
    QVERIFY(!PixelToLatLon(MapName::Uk, {kNaN, 10}));
  }
};

OMNI_TEST(TestMapProjection)
#include "test_map_projection.moc"
