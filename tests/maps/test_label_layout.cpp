// SPDX-License-Identifier: GPL-3.0-or-later
// Labels of crowded maps: what may not happen to any of them, on two seeded sets of 500 stations.
#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QTest>

#include "maps/label_layout.h"
#include "maps/map_projection.h"
#include "test_suite.h"

using namespace Qt::StringLiterals;

namespace {

// Stations within these degrees, each with a text as wide as six to nine letters are.
MapOverlay Stations(MapName map, const QRectF& degrees, int count) {
  MapOverlay overlay;
  QRandomGenerator random(42);
  for (int i = 0; i < count; ++i) {
    double lat = degrees.top() + random.bounded(degrees.height());
    double lon = degrees.left() + random.bounded(degrees.width());
    int x = 0;
    int y = 0;
    LatLonToPixel(map, lat, lon, x, y);
    MapOverlay::Label label;
    label.id = u"ZZ%1AB"_s.arg(i);
    label.text = u' ' + label.id + u' ';
    label.place = QRectF(0, 0, 48 + random.bounded(20), 19);
    label.anchor = QPointF(x, y);
    overlay.labels.append(label);
  }
  return overlay;
}

}  // namespace

class TestLabelLayout : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void CoversNothing_data() {
    QTest::addColumn<int>("map");
    QTest::addColumn<QRectF>("degrees");  // longitude, latitude
    QTest::addColumn<QSize>("picture");
    QTest::addColumn<int>("mostDots");
    QTest::newRow("world") << int(MapName::World) << QRectF(-165, -55, 330, 120) << QSize(2800, 1412) << 10;
    QTest::newRow("Europe") << int(MapName::Europe) << QRectF(-10, 36, 45, 22) << QSize(1810, 1490) << 100;
  }
  void CoversNothing() {
    QFETCH(int, map);
    QFETCH(QRectF, degrees);
    QFETCH(QSize, picture);
    QFETCH(int, mostDots);
    MapOverlay overlay = Stations(MapName(map), degrees, 500);
    // A label with a told place, over the middle of the crowd.
    MapOverlay::Label fixed;
    fixed.text = u" To ZZ9QX "_s;
    fixed.place = QRectF(QPointF(picture.width() / 2.0, picture.height() / 2.0), QSizeF(120, 19));
    fixed.box = fixed.place.adjusted(-2, -2, 4, 4);
    overlay.labels.append(fixed);
    QElapsedTimer timer;
    timer.start();
    const LabelCounts counts = LayOutLabels(overlay, picture);
    qInfo("%s: %lld beside their marks, %lld with a line, %lld dots, in %.1f ms", QTest::currentDataTag(),
          qlonglong(counts.beside), qlonglong(counts.led), qlonglong(counts.dots), double(timer.nsecsElapsed()) / 1e6);
    QCOMPARE(counts.beside + counts.led + counts.dots, 500);
    QVERIFY(counts.dots < mostDots);
    QCOMPARE(overlay.lines.size(), counts.led);
    QCOMPARE(overlay.labels.last().place, fixed.place);

    const QRectF inside(QPointF(0, 0), QSizeF(picture));
    for (const MapOverlay::Label& label : std::as_const(overlay.labels)) {
      QVERIFY2(inside.contains(label.place), qPrintable(label.text));
      if (label.dot) continue;
      for (const MapOverlay::Label& other : std::as_const(overlay.labels)) {
        const QRectF taken = other.dot ? QRectF() : other.place.united(other.box);
        QVERIFY2(&other == &label || !label.place.intersects(taken), qPrintable(label.text + other.text));
        // Told places know nothing of marks.
        const bool onMark = label.anchor && other.anchor && label.place.contains(*other.anchor);
        QVERIFY2(!onMark, qPrintable(label.text + other.text));
      }
    }
  }

  // A feed that sends its stations in another order must not make the labels jump.
  void GoesByTheCallsAlone() {
    MapOverlay overlay = Stations(MapName::Europe, QRectF(-10, 36, 45, 22), 500);
    MapOverlay turned = overlay;
    std::reverse(turned.labels.begin(), turned.labels.end());
    LayOutLabels(overlay, QSize(1810, 1490));
    LayOutLabels(turned, QSize(1810, 1490));
    std::reverse(turned.labels.begin(), turned.labels.end());
    for (qsizetype i = 0; i < overlay.labels.size(); ++i) {
      QCOMPARE(turned.labels.at(i).place, overlay.labels.at(i).place);
    }
  }

  // Where nothing fits, a label stays as its mark and keeps its text.
  void LeavesADotWhereNothingFits() {
    MapOverlay overlay = Stations(MapName::World, QRectF(0, 0, 1, 1), 3);
    for (MapOverlay::Label& label : overlay.labels) label.anchor = QPointF(20, 12);
    const LabelCounts counts = LayOutLabels(overlay, QSize(40, 24));
    QCOMPARE(counts, (LabelCounts{0, 0, 3}));
    QVERIFY(overlay.labels.first().dot && overlay.labels.first().place.contains(QPointF(20, 12)));
    QCOMPARE(overlay.labels.first().text, u" ZZ0AB "_s);
  }
};

OMNI_TEST(TestLabelLayout)
#include "test_label_layout.moc"
