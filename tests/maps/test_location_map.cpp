// SPDX-License-Identifier: GPL-3.0-or-later
// What the location map draws, in both of its cases, and how it finds its map.
#include <QDir>
#include <QTemporaryDir>

#include "app/load_sequence.h"
#include "maps/location_map.h"
#include "maps/map_list.h"
#include "maps/map_projection.h"
#include "test_suite.h"

using namespace Qt::StringLiterals;

namespace {

// Eight pixels a character and twenty a line, so that places can be figured by hand.
QSizeF Measure(const QString& text) {
  const QStringList lines = text.split(u"\r\n"_s);
  qsizetype longest = 0;
  for (const QString& line : lines) longest = std::max(longest, line.size());
  return QSizeF(static_cast<double>(8 * longest), static_cast<double>(20 * lines.size()));
}

struct Picked {
  Program program;
  MapTarget target{u"ZZ1AA"_s, 48, 2};
  QSize picture{1810, 1490};

  explicit Picked(const QString& map = u"Europe Map.jpg"_s) {
    LoadLanguage(QStringLiteral(LANGUAGES_DIR), u"English"_s, 8, Program::ProgVersion(), program.language);
    program.lstMap = {u"Asia Map.jpg"_s, map};
    program.config.MapIndex = 1;
    program.config.MyLat = 52.5;
    program.config.MyLon = -1.25;
  }
  MapDrawing Build() {
    return BuildLocationMap(program, target, {MapOfName(MapTitle(program.lstMap, 1)), picture, Measure});
  }
};

// The plainest of the maps: its pixels can be turned back into degrees.
Picked Netherlands(const QPoint& target, const QPoint& own) {
  Picked picked(u"N-Nederland Map.jpg"_s);
  picked.picture = QSize(1010, 1180);
  const auto lat = [](const QPoint& pixel) { return 52.184 + (584 - pixel.y()) / 386.36; };
  const auto lon = [](const QPoint& pixel) { return 3.828 + (pixel.x() + 14) / 240.16; };
  picked.target = {u"ZZ1AA"_s, lat(target), lon(target)};
  picked.program.config.MyLat = lat(own);
  picked.program.config.MyLon = lon(own);
  return picked;
}

// Name and text of each label, in the order of drawing.
QStringList Labels(const MapDrawing& map) {
  QStringList labels;
  for (const MapOverlay::Label& label : map.overlay.labels) labels.append(label.name + u'=' + label.text);
  return labels;
}

int CirclesAt(const MapDrawing& map, const QPointF& point) {
  return static_cast<int>(std::count_if(map.overlay.circles.begin(), map.overlay.circles.end(),
                                        [&point](const auto& circle) { return circle.centre == point; }));
}

}  // namespace

class TestLocationMap : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void Names() {
    const auto check = [](const char* what, const QString& file, const QString& title, const QString& listed) {
      const TableRow row(what);
      QCOMPARE(MapTitle({file}, 0), title);
      QCOMPARE(MapListName(file), listed);
      QCOMPARE(MapTitle({file}, 1), QString());
      QCOMPARE(MapTitle({file}, -1), QString());
    };
    check("picture", u"New Zealand Map.jpg"_s, u"New Zealand Map"_s, u"New Zealand"_s);
    check("gif", u"Asia Map.gif"_s, u"Asia Map"_s, u"Asia"_s);
    check("other case", u"uk map.JPG"_s, u"uk map"_s, u"uk"_s);
    check("other type", u"My Map.png"_s, u"My Map"_s, u"My Map.png"_s);
    check("no name", u".jp"_s, {}, u".jp"_s);
  }

  // The files of the maps' folder that are listed at the start, with their offsets.
  void Catalogue() {
    const QTemporaryDir folder;
    Program program;
    program.AppDataDir = folder.path();
    QDir(folder.path()).mkpath(u"maps/Folder Map.jpg"_s);  // the letter case is the user's
    for (const QString& name : {u"World Map.jpg"_s, u"uk map.GIF"_s, u"Asia Map.jpg"_s, u"Homemap.png"_s, u"Map.jpg"_s,
                                u"Map of Mars.jpg"_s, u"Moon Map.jpeg"_s, u"map"_s}) {
      QFile file(folder.filePath(u"maps/"_s + name));
      QVERIFY(file.open(QIODevice::WriteOnly));
    }
    SettingsStore store(folder.filePath(u"settings.ini"_s));
    store.SetValue(u"Omni-Perch"_s, u"MapLeft"_s, u"8"_s, u"-7"_s);
    HeightTable heights;
    const Clock clock;
    Translations translations;
    LoadSequence(program, translations, heights, store, clock).ReadSettings(true);
    QCOMPARE(program.lstMap.join(u", "_s), u"Asia Map.jpg, Homemap.png, Map.jpg, uk map.GIF, World Map.jpg"_s);
    QCOMPARE(program.MapLeft.at(8), -7);
    QCOMPARE(program.MapTop.at(7), -267);
  }

  void BestMap() {
    const auto check = [](const char* what, double lat, double lon, int index) {
      const TableRow row(what);
      const QStringList maps = {u"Asia Map.jpg"_s, u"Old Europe Map.gif"_s, u"Europe Map.jpg"_s, u"UK MAP.JPG"_s};
      QCOMPARE(BestMapIndex(maps, lat, lon), index);
      QCOMPARE(BestMapIndex({}, lat, lon), 0);
    };
    check("by the first entry that has the name", 50.0, 10.0, 1);
    check("any letter case", 54.0, -1.5, 3);
    check("missing", 36.0, 139.0, 4);
  }

  void TargetOnThePicture() {
    Picked picked;
    const MapDrawing map = picked.Build();
    QVERIFY(map.keep.has_value());
    const QPointF target = *map.keep;
    QVERIFY(QRectF(QPointF(0, 0), picked.picture).contains(target));
    QCOMPARE(CirclesAt(map, target), 2);
    QCOMPARE(map.overlay.circles.at(0).radius, 4.0);
    QCOMPARE(map.overlay.circles.at(1).radius, 25.0);
    QCOMPARE(map.overlay.circles.at(0).width, 3.0);
    QVERIFY(map.overlay.lines.isEmpty());

    QCOMPARE(Labels(map), (QStringList{u"lblCall(0)=ZZ1AA\r\n  Dx 551 km  Az 153° "_s, u"lblMe= Me "_s}));
    QCOMPARE(map.info, u"ZZ1AA  Dx 551 km  Az 153°"_s);
    const MapOverlay::Label& call = map.overlay.labels.at(0);
    QCOMPARE(call.place, QRectF(target.x() - 84, target.y() - 65, 168, 40));
    QCOMPARE(call.box, QRectF(QPointF(target.x() - 86, target.y() - 67), QPointF(target.x() + 88, target.y() - 21)));
    QVERIFY(call.clickable);
    QCOMPARE(call.boxWidth, 3.0);

    const QPointF own = map.overlay.circles.last().centre;
    QCOMPARE(CirclesAt(map, own), 2);
    QCOMPARE(map.overlay.circles.last().colour, QColor(0, 0, 255));
    const MapOverlay::Label& me = map.overlay.labels.at(1);
    QCOMPARE(me.place, QRectF(own.x() - 16, own.y() - 26, 32, 20));
    QCOMPARE(me.box, QRectF(QPointF(own.x() - 17, own.y() - 27), QPointF(own.x() + 19, own.y() - 3)));
    QVERIFY(!me.clickable);
  }

  void TargetOffThePicture() {
    Picked picked;
    picked.program.config.DistUnit = 1;
    picked.target = {u"ZZ2BB"_s, 40, -75};
    const MapDrawing map = picked.Build();
    QCOMPARE(map.overlay.lines.size(), 1);
    const MapOverlay::Line& stub = map.overlay.lines.first();
    QCOMPARE(stub.from, *map.keep);
    QCOMPARE(stub.colour, QColor(0, 0, 255));
    QCOMPARE(stub.width, 2.0);
    // Azimuth 286: 100 pixels to the left, a little up.
    QVERIFY(std::abs(stub.to.x() - stub.from.x() + 96.1) < 0.1);
    QVERIFY(std::abs(stub.to.y() - stub.from.y() + 27.6) < 0.1);
    QCOMPARE(Labels(map), (QStringList{u"lblCall(0)= To ZZ2BB  Dx 3,473 miles  Az 286° "_s, u"lblMe= Me "_s}));
    const MapOverlay::Label& call = map.overlay.labels.first();
    QCOMPARE(call.place.bottom(), stub.to.y() - 2);
    QCOMPARE(call.place.center().x(), stub.to.x());
    QCOMPARE(call.box, QRectF(call.place.topLeft() - QPointF(2, 2), call.place.bottomRight() + QPointF(4, 4)));
    QCOMPARE(call.boxWidth, 2.0);
    QCOMPARE(CirclesAt(map, stub.from), 2);
    QCOMPARE(map.overlay.circles.size(), 2);
  }

  // A stub that ends near an edge, or off the picture: its label is moved onto the picture with its frame, the line is
  // drawn as it is.
  void StubLabelStaysOnThePicture() {
    const auto check = [](const char* what, QPoint own, QPoint target) {
      const TableRow row(what);
      Picked picked = Netherlands(target, own);
      const MapDrawing map = picked.Build();
      QCOMPARE(map.overlay.lines.first().from, QPointF(own));
      const MapOverlay::Label& call = map.overlay.labels.first();
      QVERIFY(QRectF(QPointF(0, 0), picked.picture).contains(call.box.adjusted(-1, -1, 1, 1)));
      QCOMPARE(call.place.size(), Measure(call.text));
    };
    check("left", {5, 500}, {-800, 500});
    check("right", {1005, 500}, {1800, 500});
    check("top", {500, 3}, {500, -800});
    check("corner", {1008, 1178}, {2000, 2000});
  }

  // Where neither target nor own position lies on the picture, an arrow at the nearest edge points to the target.
  void ArrowAtTheEdge() {
    // Where the tip is null no arrow is drawn.
    const auto check = [](const char* what, QPoint target, QPoint own, QPointF tip) {
      const TableRow row(what);
      Picked picked = Netherlands(target, own);
      const MapDrawing map = picked.Build();
      const bool stub = picked.picture.height() > own.y();
      QCOMPARE(map.overlay.lines.size(), tip.isNull() ? (stub ? 1 : 0) : 3);
      if (tip.isNull()) return;
      const QPointF way = map.overlay.lines.first().to - map.overlay.lines.first().from;
      QCOMPARE(map.overlay.lines.first().to, tip);
      // It points from the picture's inside to where the target lies.
      const QPointF wanted = QPointF(target) - tip;
      QVERIFY(QPointF::dotProduct(way, wanted) >
              0.999 * std::hypot(way.x(), way.y()) * std::hypot(wanted.x(), wanted.y()));
      const MapOverlay::Label& beside = map.overlay.labels.at(1);
      QVERIFY(beside.text.startsWith(u" ZZ1AA  Az "_s) && beside.clickable);
      QVERIFY(QRectF(QPointF(0, 0), picked.picture).contains(beside.box));
      QVERIFY(!beside.box.contains(tip));
      // The target's own label is drawn all the same, over its place off the picture, and the view goes there.
      QCOMPARE(map.overlay.labels.first().place.center().x(), double(target.x()));
      QCOMPARE(*map.keep, QPointF(target));
      // Without own position the arrow has no azimuth to tell.
      picked.program.config.MyLat = picked.program.config.MyLon = 0;
      QCOMPARE(picked.Build().overlay.labels.at(1).text, u" ZZ1AA "_s);
    };
    const QPoint off(500, 3000);
    check("west", {-900, 500}, off, {10, 500});
    check("far to the north", {400, -20000}, off, {400, 44});
    check("beyond a corner", {1500, 2000}, off, {1000, 1156});
    check("a hair off", {-1, 500}, off, {10, 500});
    check("on the edge", {0, 500}, off, {});
    check("own position shows", {-900, 500}, {500, 500}, {});
  }

  // Thousands are parted as the desktop parts them, also where its numbers usually are not.
  void Thousands() {
    const auto check = [](const char* what, const QLocale& locale, const QString& info) {
      const TableRow row(what);
      const auto restored = qScopeGuard([before = QLocale()]() { QLocale::setDefault(before); });
      QLocale::setDefault(locale);
      Picked picked;
      picked.target = {u"ZZ2BB"_s, 40, -75};
      QCOMPARE(picked.Build().info, info);
    };
    check("plain", QLocale::c(), u"ZZ2BB  Dx 5,589 km  Az 286°"_s);
    check("German", QLocale(QLocale::German), u"ZZ2BB  Dx 5.589 km  Az 286°"_s);
  }

  // A target on the very edge of the picture is on it, own position there is not.
  void Edges() {
    const auto check = [](const char* what, QPoint target, QPoint own, bool stub) {
      const TableRow row(what);
      Picked picked = Netherlands(target, own);
      const MapDrawing map = picked.Build();
      QCOMPARE(map.overlay.lines.size() == 1, stub);
      QCOMPARE(*map.keep, QPointF(stub ? own : target));
      QCOMPARE(map.overlay.circles.last().centre, QPointF(own));

      // Without own position no line is drawn from there.
      picked.program.config.MyLat = picked.program.config.MyLon = 0;
      const MapDrawing alone = picked.Build();
      QVERIFY(alone.overlay.lines.size() != 1);
      QCOMPARE(alone.overlay.labels.first().text, u"ZZ1AA\r\n  Set your own location first (Setup) "_s);
      QCOMPARE(*alone.keep, QPointF(target));
    };
    const QPoint inside(300, 700);
    const QPoint off(-500, 700);
    const std::pair<QPoint, QPoint> edges[] = {
        {{0, 500}, {-1, 0}}, {{1010, 500}, {1, 0}}, {{500, 0}, {0, -1}}, {{500, 1180}, {0, 1}}};
    for (const auto& [edge, outwards] : edges) {
      check("target on the edge", edge, inside, false);
      check("target off the edge", edge + outwards, inside, true);
      check("own position on the edge", off, edge, false);
      check("own position inside the edge", off, edge - outwards, true);
    }
    check("both off", off, {500, 2000}, false);
  }

  void OwnPosition() {
    const auto check = [](const char* what, double lat, double lon, double latAfter, bool drawn) {
      const TableRow row(what);
      Picked picked;
      picked.program.config.MyLat = lat;
      picked.program.config.MyLon = lon;
      const MapDrawing map = picked.Build();
      QCOMPARE(picked.program.config.MyLat, latAfter);
      QCOMPARE(CirclesAt(map, *map.keep), 2);
      QCOMPARE(map.overlay.labels.size(), drawn ? 2 : 1);
      QCOMPARE(map.overlay.circles.size(), drawn ? 4 : 2);
    };
    check("north of the maps", 89.5, 10.0, 89.0, true);
    check("south of them", -90.0, 10.0, -89.0, true);
    check("beyond the pole", 1234.0, 10.0, 89.0, true);
    check("not set", 0.0, 0.0, 0.0, false);
    check("on the equator", 0.0, 10.0, 0.0, true);
    check("no number", qQNaN(), 10.0, qQNaN(), false);
  }

  void TextWithoutDistance() {
    Picked picked;
    picked.program.config.MyLat = 0;
    QCOMPARE(picked.Build().info, u"ZZ1AA  Set your own location first (Setup)"_s);
    picked.target.lon = 0;
    QCOMPARE(picked.Build().info, u"ZZ1AA  No location for ZZ1AA"_s);
    Picked here;
    here.target = {u"ZZ1AA"_s, 52.5, -1.25};
    QCOMPARE(here.Build().info, u"ZZ1AA  Dx 0 km  Az 0°"_s);
  }

  void OddPlacesAndMaps() {
    Picked world(u"World Map.jpg"_s);
    world.target = {u"ZZ1AA"_s, -18, -175};
    world.picture = QSize(2800, 1412);
    QVERIFY(world.Build().keep->x() > 2600);
    QCOMPARE(world.target.lon, 185.0);
    // Own position is drawn past the date line like any other, and stays as it is stored: 185 degrees have no locator.
    world.program.config.MyLon = -175;
    QVERIFY(world.Build().overlay.circles.last().centre.x() > 2400);
    QCOMPARE(world.program.config.MyLon, -175.0);
    for (const double far : {1e300, -1e300, qInf()}) {
      for (const QString& name : {u"Europe Map.jpg"_s, u"World Map.jpg"_s, u"Asia Map.jpg"_s}) {
        Picked picked(name);
        picked.target = {u"ZZ1AA"_s, far, far};
        picked.Build();
      }
    }
    // A map of the user's own has no formula: nothing is drawn upon it, and the information line has the distance all
    // the same.
    Picked own(u"Moon Map.jpg"_s);
    const MapDrawing map = own.Build();
    QVERIFY(map.overlay.circles.isEmpty() && map.overlay.labels.isEmpty() && !map.keep);
    QCOMPARE(map.info, u"ZZ1AA  Dx 551 km  Az 153°"_s);
  }
};

OMNI_TEST(TestLocationMap)
#include "test_location_map.moc"
