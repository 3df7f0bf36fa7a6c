// SPDX-License-Identifier: GPL-3.0-or-later
// The arithmetic of fitting and panning a map, on pictures as large as the ones that come with the program.
#include <QRect>
#include <QTest>

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
  void Fit_data() {
    QTest::addColumn<QSize>("picture");
    QTest::addColumn<QSize>("window");
    QTest::addColumn<QSize>("border");
    QTest::addColumn<QPoint>("place");
    QTest::addColumn<QString>("pan");
    QTest::newRow("larger both ways") << kWorld << kScreen << QSize(0, 0) << QPoint(-600, -206) << u"XY"_s;
    QTest::newRow("higher only") << kUk << QSize(1090, 1000) << QSize(0, 0) << QPoint(0, -150) << u"Y"_s;
    QTest::newRow("smaller") << QSize(100, 80) << QSize(360, 220) << QSize(0, 0) << QPoint(130, 70) << QString();
    QTest::newRow("narrow and high") << QSize(100, 400) << QSize(360, 220) << QSize(0, 0) << QPoint(130, -90) << u"Y"_s;
    QTest::newRow("as large") << kUk << kUk << QSize(0, 0) << QPoint(0, 0) << QString();
    QTest::newRow("larger by its border") << kUk << kUk << QSize(4, 4) << QPoint(-2, -2) << u"XY"_s;
    QTest::newRow("smaller, with a border")
        << QSize(100, 80) << QSize(360, 220) << QSize(4, 4) << QPoint(128, 68) << QString();
  }

  void Fit() {
    QFETCH(QSize, picture);
    QFETCH(QSize, window);
    QFETCH(QSize, border);
    const MapFit fit = Fitted(picture, window, border);
    QTEST(fit.place, "place");
    QTEST(QString((fit.PanX ? u"X"_s : QString()) + (fit.PanY ? u"Y"_s : QString())), "pan");
    QCOMPARE(fit.frame, window - border);
  }

  void KeepInView_data() {
    QTest::addColumn<QSize>("picture");
    QTest::addColumn<QSize>("window");
    QTest::addColumn<QPointF>("point");
    QTest::addColumn<int>("room");
    QTest::addColumn<QPoint>("place");
    QTest::newRow("in the middle") << kWorld << kScreen << QPointF(1458, 700) << 25 << QPoint(-658, -200);
    QTest::newRow("top left") << kWorld << kScreen << QPointF(10, 10) << 25 << QPoint(0, 0);
    QTest::newRow("bottom right") << kWorld << kScreen << QPointF(2790, 1400) << 25 << QPoint(-1200, -437);
    QTest::newRow("bottom, no room") << kWorld << kScreen << QPointF(2790, 1400) << 0 << QPoint(-1200, -412);
    QTest::newRow("far off") << kWorld << kScreen << QPointF(-2147483648.0, 2147483647.0) << 25 << QPoint(0, -437);
    // A picture as large as its frame still gives way to what the bar takes.
    QTest::newRow("all in view") << kUk << kUk << QPointF(500, 1200) << 25 << QPoint(0, -25);
    QTest::newRow("smaller") << QSize(100, 80) << QSize(360, 220) << QPointF(50, 40) << 25 << QPoint(130, 70);
    // Centred by its width although the point would ask for another height.
    QTest::newRow("narrow and high") << QSize(100, 400) << QSize(360, 220) << QPointF(50, 10) << 25 << QPoint(130, -90);
  }

  void KeepInView() {
    QFETCH(QSize, picture);
    QFETCH(QSize, window);
    QFETCH(QPointF, point);
    QFETCH(int, room);
    MapFit fit = Fitted(picture, window);
    fit.KeepInView(point, room);
    QTEST(fit.place, "place");
  }

  // From (-600, -206) of the World map; it can be dragged to -1199 and -411 at most.
  void Drag_data() {
    QTest::addColumn<QSize>("picture");
    QTest::addColumn<QPoint>("to");
    QTest::addColumn<QPoint>("place");
    QTest::newRow("both ways") << kWorld << QPoint(-700, -100) << QPoint(-700, -100);
    QTest::newRow("to the corner") << kWorld << QPoint(0, 0) << QPoint(0, 0);
    QTest::newRow("beyond the left") << kWorld << QPoint(1, -100) << QPoint(-600, -100);
    QTest::newRow("last column") << kWorld << QPoint(-1199, -411) << QPoint(-1199, -411);
    QTest::newRow("at the bound") << kWorld << QPoint(-1200, -412) << QPoint(-600, -206);
    QTest::newRow("only one way") << QSize(1000, 1412) << QPoint(-50, -100) << QPoint(300, -100);
  }

  void Drag() {
    QFETCH(QSize, picture);
    QFETCH(QPoint, to);
    MapFit fit = Fitted(picture, kScreen);
    const QPoint before = fit.place;
    const bool moved = fit.DragTo(to);
    QTEST(fit.place, "place");
    QCOMPARE(moved, fit.place != before);
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
