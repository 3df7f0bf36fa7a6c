// SPDX-License-Identifier: GPL-3.0-or-later
// The arithmetic of fitting and panning a map, on pictures as large as the ones that come with the program.
#include <QRect>

#include "maps/map_fit.h"
#include "test_suite.h"

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kWorld(2800, 1412);
constexpr QSize kUk(1090, 1300);
constexpr QSize kScreen(1600, 1000);

MapFit Fitted(const QSize& picture, const QSize& window, const QSize& border = QSize(0, 0)) {
  MapFit fit;
  fit.picture = picture;
  fit.place = QPoint(-77, -78);  // of the map before
  fit.FitMapToWindow(window, border);
  return fit;
}

}  // namespace

class TestMapFit : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void Fit() {
    const auto check = [](const char* what, QSize picture, QSize window, QSize border, QPoint place,
                          const QString& pan) {
      const TableRow row(what);
      const MapFit fit = Fitted(picture, window, border);
      QCOMPARE(fit.place, place);
      QCOMPARE(QString((fit.PanX ? u"X"_s : QString()) + (fit.PanY ? u"Y"_s : QString())), pan);
      QCOMPARE(fit.frame, window - border);
    };
    check("larger both ways", kWorld, kScreen, {0, 0}, {-600, -206}, u"XY"_s);
    check("higher only", kUk, {1090, 1000}, {0, 0}, {0, -150}, u"Y"_s);
    check("smaller", {100, 80}, {360, 220}, {0, 0}, {130, 70}, {});
    check("narrow and high", {100, 400}, {360, 220}, {0, 0}, {130, -90}, u"Y"_s);
    check("as large", kUk, kUk, {0, 0}, {0, 0}, {});
    check("larger by its border", kUk, kUk, {4, 4}, {-2, -2}, u"XY"_s);
    check("smaller, with a border", {100, 80}, {360, 220}, {4, 4}, {128, 68}, {});
  }

  void KeepInView() {
    const auto check = [](const char* what, QSize picture, QSize window, QPointF point, int room, QPoint place) {
      const TableRow row(what);
      MapFit fit = Fitted(picture, window);
      fit.KeepInView(point, room);
      QCOMPARE(fit.place, place);
    };
    check("in the middle", kWorld, kScreen, {1458, 700}, 25, {-658, -200});
    check("top left", kWorld, kScreen, {10, 10}, 25, {0, 0});
    check("bottom right", kWorld, kScreen, {2790, 1400}, 25, {-1200, -437});
    check("bottom, no room", kWorld, kScreen, {2790, 1400}, 0, {-1200, -412});
    check("far off", kWorld, kScreen, {-2147483648.0, 2147483647.0}, 25, {0, -437});
    // A picture as large as its frame still moves up by the rows that the bar covers.
    check("all in view", kUk, kUk, {500, 1200}, 25, {0, -25});
    check("smaller", {100, 80}, {360, 220}, {50, 40}, 25, {130, 70});
    // Centred by its width although the point would ask for another height.
    check("narrow and high", {100, 400}, {360, 220}, {50, 10}, 25, {130, -90});
  }

  // From (-600, -206) of the World map; it can be dragged to -1199 and -411 at most.
  void Drag() {
    const auto check = [](const char* what, QSize picture, QPoint to, QPoint place) {
      const TableRow row(what);
      MapFit fit = Fitted(picture, kScreen);
      const QPoint before = fit.place;
      const bool moved = fit.DragTo(to);
      QCOMPARE(fit.place, place);
      QCOMPARE(moved, fit.place != before);
    };
    check("both ways", kWorld, {-700, -100}, {-700, -100});
    check("to the corner", kWorld, {0, 0}, {0, 0});
    check("beyond the left", kWorld, {1, -100}, {-600, -100});
    check("last column", kWorld, {-1199, -411}, {-1199, -411});
    check("at the bound", kWorld, {-1200, -412}, {-600, -206});
    check("only one way", {1000, 1412}, {-50, -100}, {300, -100});
  }

  void KeysStopAtTheEdges() {
    MapFit fit = Fitted(kWorld, kScreen);
    QVERIFY(fit.PanBy(QPoint(5000, -5000), 25));
    QCOMPARE(fit.place, QPoint(0, -437));  // the last row of the picture stands at the window's edge
    QVERIFY(!fit.PanBy(QPoint(40, -40), 25));
    MapFit small = Fitted(QSize(100, 80), QSize(360, 220));
    QVERIFY(!small.PanBy(QPoint(40, 40), 25));
  }

  void WindowFollowsThePicture() {
    QCOMPARE(MapWindowSize(kUk, QSize(2, 30), QSize(2560, 1440)), QSize(1092, 1330));
    QCOMPARE(MapWindowSize(kUk, QSize(2, 30), kScreen), QSize(1092, 1000));
    QCOMPARE(MapWindowSize(kWorld, QSize(2, 30), kScreen), kScreen);
  }
};

OMNI_TEST(TestMapFit)
#include "test_map_fit.moc"
