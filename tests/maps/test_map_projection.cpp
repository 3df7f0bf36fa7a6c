// SPDX-License-Identifier: GPL-3.0-or-later
#include <QColor>
#include <QImage>
#include <QPoint>
#include <QTest>
#include <limits>

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

void PointColumns() {
  QTest::addColumn<MapName>("map");
  QTest::addColumn<double>("lat");
  QTest::addColumn<double>("lon");
  QTest::addColumn<QPoint>("pixel");
}

void Row(const char* what, MapName map, double lat, double lon, QPoint pixel) {
  QTest::newRow(what) << map << lat << lon << pixel;
}

void ComparePoint() {
  QFETCH(const MapName, map);
  QFETCH(const double, lat);
  QFETCH(const double, lon);
  QTEST(Place(map, lat, lon), "pixel");
}

}  // namespace

class TestMapProjection : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void PlacesPoints_data();
  void PlacesPoints();
  void PlacesOddPoints_data();
  void PlacesOddPoints();
  void FollowsTheWorldTable();
  void MovesLongitudesPastTheDateLine();
  void ChoosesTheMap_data();
  void ChoosesTheMap();
  void EndsAtTheEdges_data();
  void EndsAtTheEdges();
  void KnowsMapsByName();
  void FitsThePictures_data();
  void FitsThePictures();
};

void TestMapProjection::PlacesPoints_data() {
  PointColumns();
  Row("London", MapName::Uk, 51.507, -0.128, {804, 944});
  Row("Amsterdam", MapName::NNederland, 52.373, 4.9, {243, 511});
  Row("Groningen", MapName::NNederland, 53.219, 6.567, {644, 184});
  Row("Tokyo", MapName::Japan, 35.69, 139.692, {657, 690});
  Row("Sydney", MapName::Australia, -33.8688, 151.2, {1213, 915});
  Row("Auckland", MapName::NewZealand, -36.8485, 174.7633, {681, 292});
  Row("New York", MapName::NorthAmerica, 40.7128, -74.006, {1048, 403});
  Row("Denver", MapName::NorthAmerica, 39.7392, -104.9903, {472, 465});
  Row("Delhi", MapName::Asia, 28.6139, 77.209, {641, 525});
  Row("Cape Town", MapName::World, -33.9249, 18.4241, {1458, 1000});

  // The radius of North America shrinks in steps; a half goes to the even degree, so 105.5 W still counts as 10.
  Row("skew 0", MapName::NorthAmerica, 40, -104.49, {482, 462});
  Row("skew 3 from a half", MapName::NorthAmerica, 40, -104.5, {482, 459});
  Row("skew 3 at the next half", MapName::NorthAmerica, 40, -105.5, {463, 457});
  Row("skew 7 from a half", MapName::NorthAmerica, 40, -110.5, {371, 440});
  Row("skew 7 to the next half", MapName::NorthAmerica, 40, -115.5, {278, 423});
  Row("skew 10 beyond it", MapName::NorthAmerica, 40, -115.51, {279, 420});
  Row("skew 10 below the next", MapName::NorthAmerica, 40, -120.49, {188, 399});
  Row("skew 15 from a half", MapName::NorthAmerica, 40, -120.5, {189, 394});
  Row("skew 15 to the west", MapName::NorthAmerica, 40, -130.49, {11, 337});
  Row("skew 36 from a half", MapName::NorthAmerica, 40, -130.5, {18, 317});
  Row("skew 36 in the east", MapName::NorthAmerica, 40, -59.4, {1306, 320});

  // Far corners of the cones: a turn that is a little off is still right in their middle.
  Row("off the Azores", MapName::Europe, 30, -22, {-388, 1098});
  Row("Karelia", MapName::Europe, 59, 53, {1348, 352});
  Row("west of Tasmania", MapName::Australia, -44, 123, {408, 1241});
  Row("Coral Sea", MapName::Australia, -11, 154, {1440, 128});
  Row("Stewart Island", MapName::NewZealand, -47, 167, {96, 1381});
  Row("Kermadec", MapName::NewZealand, -34, 178, {974, 2});
  Row("off Ireland", MapName::Uk, 50, -11, {-5, 1108});
  Row("Shetland", MapName::Uk, 59, 2, {876, 59});
  Row("Okinawa", MapName::Japan, 26, 127, {30, 1214});
  Row("Kuril Islands", MapName::Japan, 44, 147, {942, 204});
  Row("Polynesia", MapName::NorthAmerica, 10, -134, {-334, 989});
  Row("Labrador", MapName::NorthAmerica, 54, -56, {1229, -33});
  Row("a pixel right of where pi itself would be", MapName::NewZealand, -46, 173, {530, 1260});
}

void TestMapProjection::PlacesPoints() {
  ComparePoint();
}

// What the formulas do at their seams, and with numbers that no position has.
void TestMapProjection::PlacesOddPoints_data() {
  PointColumns();
  Row("Asia just beyond the equator", MapName::Asia, -0.5, 40, {130, 938});
  Row("a half above an odd pixel", MapName::Asia, 1, 40, {130, 920});
  Row("a half above an even pixel", MapName::Asia, -1, 40, {130, 944});
  Row("Asia beyond the equator", MapName::Asia, -10, 100, {953, 1067});

  Row("equator", MapName::World, 0, 0, {1322, 706});
  Row("floor of the south", MapName::World, -0.5, 0, {1322, 715});
  Row("north within a row", MapName::World, 33.9, 0, {1325, 420});
  Row("south falls back to its row", MapName::World, -34.5, 0, {1325, 966});
  Row("a row reached in single precision only", MapName::World, 4.99999999, 0, {1322, 628});
  Row("last row", MapName::World, -89.99, 0, {1352, 1387});
  Row("north pole", MapName::World, 90, 0, {1357, 8});
  Row("south pole", MapName::World, -90, 0, {1357, 1404});
  Row("date line from the east", MapName::World, 45, -180, {2563, 317});
  Row("date line from the west", MapName::World, 45, 180, {2563, 317});
  Row("left edge", MapName::World, 45, -170, {164, 317});

  Row("beyond the pole", MapName::World, 120, 0, {1357, 8});
  Row("far beyond", MapName::World, -1e300, 1e300, {kHighest, 1404});
  Row("endless to the west", MapName::World, 45, -kInfinite, {kLowest, 317});
  Row("endless plane", MapName::NNederland, kInfinite, -kInfinite, {kLowest, kLowest});
  Row("far off a cone", MapName::Uk, -1e300, 0, {kHighest, kHighest});
  Row("no angle", MapName::NorthAmerica, 10, kInfinite, kUntouched);
  Row("no latitude", MapName::World, kNaN, 10, kUntouched);
  Row("no longitude", MapName::Asia, 10, kNaN, kUntouched);
  Row("a user's own map", MapName::None, 10, 10, kUntouched);
}

void TestMapProjection::PlacesOddPoints() {
  ComparePoint();
}

// Every row of the World map's table, north of the equator at its right end and south of it at its left.
void TestMapProjection::FollowsTheWorldTable() {
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

void TestMapProjection::MovesLongitudesPastTheDateLine() {
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

void TestMapProjection::ChoosesTheMap_data() {
  QTest::addColumn<double>("lat");
  QTest::addColumn<double>("lon");
  QTest::addColumn<QString>("name");
  const auto row = [](const char* what, double lat, double lon, const QString& name) {
    QTest::newRow(what) << lat << lon << name;
  };
  row("Boston", 42.4, -71.1, u"North America Map"_s);
  row("Perth lies west of its map", -31.95, 115.86, u"World Map"_s);
  row("Darwin", -12.4, 130.9, u"Australia Map"_s);
  row("Auckland", -36.8, 174.8, u"New Zealand Map"_s);
  row("Dublin", 53.3, -6.3, u"UK Map"_s);
  row("east of the UK box", 53, 3.9, u"N-Nederland Map"_s);
  row("Berlin", 52.5, 13.4, u"Europe Map"_s);
  row("Europe's northern edge", 60, 0, u"World Map"_s);
  row("Seoul", 37.6, 127, u"Japan Map"_s);
  row("Tibet", 30, 100, u"Asia Map"_s);
  row("east of Asia", 30, 150, u"World Map"_s);
  row("Rio de Janeiro", -22.9, -43.2, u"World Map"_s);
  row("nowhere", kNaN, kNaN, u"World Map"_s);
}

void TestMapProjection::ChoosesTheMap() {
  QFETCH(const double, lat);
  QFETCH(const double, lon);
  QTEST(QString(FindMapName(lat, lon)), "name");
}

void TestMapProjection::EndsAtTheEdges_data() {
  QTest::addColumn<double>("west");
  QTest::addColumn<double>("east");
  QTest::addColumn<double>("south");
  QTest::addColumn<double>("north");
  QTest::newRow("North America Map") << -135.0 << -55.0 << 9.0 << 55.0;
  QTest::newRow("Australia Map") << 122.0 << 155.0 << -45.0 << -10.0;
  QTest::newRow("New Zealand Map") << 166.0 << 179.0 << -48.0 << -33.0;
  QTest::newRow("UK Map") << -12.0 << 3.0 << 49.0 << 60.0;
  QTest::newRow("N-Nederland Map") << 3.817 << 8.0 << 52.18 << 53.72;
  QTest::newRow("Europe Map") << -23.0 << 54.0 << 29.0 << 60.0;
  QTest::newRow("Japan Map") << 126.0 << 148.0 << 25.0 << 45.0;
  QTest::newRow("Asia Map") << 54.0 << 148.0 << -26.0 << 62.0;
}

// A hair inside each edge the map is the best one, on the edge itself another is.
void TestMapProjection::EndsAtTheEdges() {
  QFETCH(const double, west);
  QFETCH(const double, east);
  QFETCH(const double, south);
  QFETCH(const double, north);
  const double lat = (south + north) / 2;
  const double lon = (west + east) / 2;
  const QLatin1String name(QTest::currentDataTag());
  for (const double hair : {0.001, 0.0}) {
    for (const auto& [atLat, atLon] : {std::pair(lat, west + hair), std::pair(lat, east - hair),
                                       std::pair(south + hair, lon), std::pair(north - hair, lon)}) {
      QVERIFY2((FindMapName(atLat, atLon) == name) == (hair > 0), qPrintable(u"%1 %2"_s.arg(atLat).arg(atLon)));
    }
  }
}

void TestMapProjection::KnowsMapsByName() {
  QCOMPARE(MapOfName(u"UK Map"), MapName::Uk);
  QCOMPARE(MapOfName(u"n-nederland MAP"), MapName::NNederland);
  QCOMPARE(MapOfName(u"World Map"), MapName::World);
  QCOMPARE(MapOfName(u"World Map.jpg"), MapName::None);
  QCOMPARE(MapOfName(u"My Town Map"), MapName::None);
  QCOMPARE(MapOfName(u""), MapName::None);
}

// Shores, islands and straits as the program places them must lie where the installed pictures show them.
void TestMapProjection::FitsThePictures_data() {
  QTest::addColumn<QString>("name");
  QTest::addColumn<QSize>("size");
  QTest::addColumn<QList<QPointF>>("land");  // latitude, longitude
  QTest::addColumn<QList<QPointF>>("water");
  using Places = QList<QPointF>;
  const auto row = [](const char* name, QSize size, const Places& land, const Places& water) {
    QTest::newRow(name) << QString::fromLatin1(name) << size << land << water;
  };
  row("Asia Map", {1760, 1330}, {{7.2, 80.8}, {24, 121}, {-6.9, 107.6}, {24.2, 55.5}, {19.2, 109.8}, {-20, 46.5}},
      {{26.5, 52}, {10.3, 101.2}, {53.5, 108.2}, {41.5, 51}, {38.5, 119.8}, {-12, 136}});
  row("Australia Map", {1500, 1350}, {{-42, 146.7}, {-35.8, 137.2}, {-13, 142.7}, {-22, 114}, {-38.7, 146.2}},
      {{-40.2, 146}, {-34.2, 137.1}, {-14.5, 139}, {-32.5, 127}, {-25.6, 113.7}, {-10.9, 129}});
  row("Europe Map", {1810, 1490}, {{39.6, 3}, {35.2, 25}, {57.5, 18.5}, {40.1, 9}, {35, 33}, {65, -18.5}, {45.2, 34.5}},
      {{40.8, 28.2}, {46, 36.5}, {44.5, 13.5}, {61, 31.5}, {57.5, 23.5}, {54, -5}, {51.2, 1.9}});
  row("Japan Map", {1120, 1320},
      {{33.4, 126.5}, {38.05, 138.4}, {33.7, 133.3}, {43.3, 142.7}, {26.6, 128}, {37.3, 137}},
      {{41.3, 140.3}, {34.6, 135.1}, {35.25, 136.1}, {36, 133.8}, {34, 129}, {37.1, 137.25}});
  row("N-Nederland Map", {1010, 1180},
      {{53.08, 4.83}, {52.5, 5.6}, {53.44, 5.75}, {52.75, 5.7}, {51.95, 5.4}, {53.3, 6.2}},
      {{52.85, 5.4}, {53.2, 5.2}, {52.57, 5.2}, {53.5, 6.45}, {53.45, 7}, {52.9, 4.4}});
  row("New Zealand Map", {1090, 1510}, {{-47, 167.9}, {-36.2, 175.4}, {-43.75, 172.9}, {-39.3, 174}, {-34.6, 172.95}},
      {{-38.8, 175.9}, {-41.3, 174.5}, {-36.4, 175.1}, {-46.7, 168.2}, {-40.8, 173.1}, {-37, 175.4}});
  row("North America Map", {1710, 1280},
      {{18.1, -77.3}, {48.5, -56.5}, {18.2, -66.4}, {28, -81.5}, {24.2, -110.2}, {49.6, -125.5}},
      {{48, -88}, {44, -87}, {28, -111.8}, {49.4, -124.3}, {9.8, -71.5}, {47.7, -61}, {38.5, -76.4}});
  row("UK Map", {1090, 1300}, {{54.25, -4.5}, {50.67, -1.3}, {53.28, -4.35}, {55.58, -5.2}, {57.3, -6.25}, {54.2, -7}},
      {{54.6, -6.4}, {51.3, -4}, {56.15, -2.7}, {52.9, 0.3}, {53.2, -5.2}, {51, 1.5}});
  row("World Map", {2800, 1412},
      {{19.5, -155.5}, {65, -18.5}, {66, -172}, {66, 180}, {-42, 146.7}, {22, -79}, {-19, 47}, {-80, 60}},
      {{42, 51}, {43, 34}, {24, 36.5}, {66, -168}, {12.5, 43.8}, {-13.5, 139}, {58, 20}, {26, 52}, {41, 135}});
}

void TestMapProjection::FitsThePictures() {
  QFETCH(const QString, name);
  QFETCH(const QList<QPointF>, land);
  QFETCH(const QList<QPointF>, water);
  const QImage picture(QStringLiteral(MAPS_DIR "/") + name + u".jpg"_s);
  QTEST(picture.size(), "size");
  for (const auto& [places, ground] : {std::pair(land, 'l'), std::pair(water, 'w')}) {
    for (const QPointF& place : places) {
      const QPoint at = Place(MapOfName(name), place.x(), place.y());
      QVERIFY2(GroundAt(picture, at) == ground, qPrintable(u"%1 %2"_s.arg(place.x()).arg(place.y())));
    }
  }
}

OMNI_TEST(TestMapProjection)
#include "test_map_projection.moc"
