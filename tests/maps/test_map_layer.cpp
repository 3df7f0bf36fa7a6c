// SPDX-License-Identifier: GPL-3.0-or-later
// The frame of a map as one image: its pixels are right after every step of panning, in every look, with thousands of
// lines.
#include <QSemaphore>
#include <QThreadPool>

#include "map_pattern.h"
#include "maps/map_file.h"
#include "maps/map_layer.h"
#include "maps/map_line.h"
#include "plain_picture.h"
#include "test_suite.h"

namespace {

// How many pixels differ by more than the shade by which rounding may change a line or a ring that begins at the edge
// of a part that was drawn anew.
int Unlike(const QImage& frame, const QImage& whole) {
  int unlike = 0;
  for (int y = 0; y < frame.height(); ++y) {
    const auto* one = reinterpret_cast<const QRgb*>(frame.constScanLine(y));
    const auto* other = reinterpret_cast<const QRgb*>(whole.constScanLine(y));
    for (int x = 0; x < frame.width(); ++x) {
      unlike += std::abs(qRed(one[x]) - qRed(other[x])) > 8 || std::abs(qGreen(one[x]) - qGreen(other[x])) > 8 ||
                std::abs(qBlue(one[x]) - qBlue(other[x])) > 8;
    }
  }
  return unlike;
}

}  // namespace

class TestMapLayer : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  // Panned in all directions, the frame has the same pixels as one that is painted anew at the same place.
  void PannedPixels() {
    const auto check = [](const char* what, double ratio, QSize picture, QSize pixels) {
      const TableRow row(what);
      MapOverlay overlay;
      for (int i = 0; i < 12; ++i) {
        overlay.lines.append({{70.0 * i, 0}, {900.0 - 70 * i, 650}, QColor(0, 0, 255), 2});
        overlay.circles.append({{70.0 * i, 300}, 12, QColor(200, 0, 0), 3, i % 2 == 0});
        overlay.labels.append(Label(u"label"_s, {80.0 * i, 55.0 * i}, true));
      }
      const auto layer = [&](MapLayer& made) {
        made.SetStyle({QFont(), QColor(Qt::gray), QColor(Qt::yellow), QColor(Qt::black), ratio});
        made.SetPicture(Pattern(pixels), picture);
        made.SetOverlay(overlay);
      };
      MapLayer walked;
      layer(walked);
      walked.Prepare(QSize(450, 350));
      walked.Frame(QSize(420, 310), QPoint(-3, -3));  // of another size before
      for (const QPoint& place : {QPoint(-250, -200), QPoint(-290, -200), QPoint(-210, -160), QPoint(-217, -431),
                                  QPoint(30, 20), QPoint(-1, -1), QPoint(-37, 0)}) {
        const QSize size = QSize(400, 300) * ratio;
        const QImage frame = walked.Frame(QSize(400, 300), place).copy(QRect(QPoint(0, 0), size));
        MapLayer fresh;
        layer(fresh);
        const QImage whole = fresh.Frame(QSize(400, 300), place);
        QCOMPARE(whole.size(), size);
        QCOMPARE(Unlike(frame, whole), 0);
      }
    };
    check("plain", 1.0, {900, 700}, {900, 700});
    check("sharp screen", 2.0, {900, 700}, {900, 700});
    check("smaller than its frame", 1.0, {120, 90}, {120, 90});
    check("narrow", 1.0, {120, 700}, {120, 700});
    check("read with fewer pixels", 1.0, {900, 700}, {562, 437});
  }

  // A screen full of lines, or of scaled pixels, is painted beside the event loop. Until it is there the frame shows
  // what there was; a step of panning in between is kept, and a frame that a newer overlay has overtaken never comes.
  void PaintsMuchBeside() {
    const auto check = [](const char* what, double ratio, qsizetype lines) {
      const TableRow row(what);
      const QSize frame = QSize(1440, 900) / ratio;
      MapOverlay overlay;
      for (qsizetype i = 0; i < lines; ++i) {
        overlay.lines.append({{double(i * 7 % 1500), 0}, {double(i * 31 % 1500), 1000}, QColor(0, 0, 255), 2});
      }
      const auto begin = [&](MapLayer& layer, const QPoint& place) {
        layer.SetStyle({QFont(), QColor(Qt::gray), QColor(Qt::yellow), QColor(Qt::black), ratio});
        layer.SetPicture(Pattern(QSize(1500, 1000)), QSize(1500, 1000));
        layer.Frame(frame, place);
      };
      const auto finish = [](MapLayer& layer) {
        QVERIFY(layer.IsBehind());
        MapLayer::Job job = layer.MakeJob();
        job.Paint();
        layer.Take(std::move(job));
      };
      MapLayer fresh;
      begin(fresh, QPoint(-30, -20));
      fresh.SetOverlay(overlay);
      finish(fresh);
      QVERIFY(!fresh.IsBehind());
      const QImage expected = fresh.Frame(frame, QPoint(-30, -20)).copy();

      MapLayer layer;
      begin(layer, QPoint(0, 0));
      layer.SetOverlay({});
      const QImage before = layer.Frame(frame, QPoint(0, 0)).copy();
      layer.SetOverlay(overlay);
      if (lines > 1000) QCOMPARE(layer.Frame(frame, QPoint(0, 0)), before);
      MapLayer::Job job = layer.MakeJob();
      layer.Frame(frame, QPoint(-30, -20));
      job.Paint();
      layer.Take(std::move(job));
      QCOMPARE(Unlike(layer.Frame(frame, QPoint(-30, -20)), expected), 0);
      QVERIFY(!layer.IsBehind());
      // A new overlay is no new picture.
      layer.SetOverlay({});
      if (layer.IsBehind()) finish(layer);
      job = layer.MakeJob();
      layer.SetOverlay(overlay);
      job.Paint();
      layer.Take(std::move(job));
      QCOMPARE(layer.IsBehind(), lines > 1000);
      if (layer.IsBehind()) finish(layer);
      QCOMPARE(Unlike(layer.Frame(frame, QPoint(-30, -20)), expected), 0);
    };
    check("many lines", 1.0, 2000);
    check("sharp screen", 1.5, 2000);
    check("a few lines on a sharp screen", 1.5, 3);
  }

  // No label's box hides the mark that it belongs to, and no mark hides the text of a label.
  void MarksLieOnBoxes() {
    MapOverlay overlay;
    overlay.labels = {Label(u"label"_s, {20, 20}, false)};
    overlay.labels.first().box = QRectF(18, 18, 86, 66);
    overlay.labels.first().boxColour = Qt::green;
    const auto painted = [&overlay](const QColor& text) {
      MapLayer layer;
      layer.SetStyle({QFont(), QColor(Qt::gray), QColor(Qt::yellow), text, 1});
      layer.SetPicture(Pattern(QSize(200, 150)), QSize(200, 150));
      layer.SetOverlay(overlay);
      return layer.Frame(QSize(200, 150), QPoint(0, 0)).copy();
    };
    overlay.circles = {{{60, 84}, 4, QColor(0, 0, 255), 4, false}};
    const QImage rim = painted(Qt::black);
    QCOMPARE(rim.pixelColor(60, 80), QColor(0, 0, 255));
    QCOMPARE(rim.pixelColor(30, 84), QColor(Qt::green));
    overlay.circles = {{{60, 40}, 60, QColor(0, 0, 255), 0, true}};
    QCOMPARE_GT(Brightest(painted(Qt::white), QRect(20, 20, 80, 40)), 200);
  }

  // A busy band, with a second thread at hand and without: each tile as if the whole frame had been drawn at once.
  void ManyLines() {
    const QSize size(1100, 600);
    MapOverlay overlay;
    QImage expected(size, QImage::Format_RGB32);
    expected.fill(Qt::white);
    // Converted here, because Qt would do it with the threads that are busy below.
    const QImage white = expected.convertToFormat(kMapFormat);
    MapLineCanvas canvas(expected, expected.rect());
    for (int i = 0; i < 2400; ++i) {
      const QPointF from(i * 7 % 1100, i * 13 % 600);
      const QPointF to((i * 31 + 700) % 1100, (i * 17 + 300) % 600);
      const QColor colour(i % 200, i * 3 % 200, i * 7 % 200);
      overlay.lines.append({from, to, colour, 2});
      canvas.Draw(from, to, {colour.rgba(), 2, false});
    }
    QThreadPool* pool = QThreadPool::globalInstance();
    const auto restored = qScopeGuard([pool, most = pool->maxThreadCount()]() { pool->setMaxThreadCount(most); });
    for (const bool busy : {false, true}) {
      pool->setMaxThreadCount(busy ? 1 : 2);
      QSemaphore gate;
      if (busy) pool->start([&gate]() { gate.acquire(); });
      MapLayer layer;
      layer.SetPicture(white, size);
      layer.SetOverlay(overlay);
      const QImage frame = layer.Frame(size, QPoint(0, 0)).copy(QRect(QPoint(0, 0), size));
      gate.release();
      pool->waitForDone();
      QCOMPARE(frame, expected);
    }
  }

  // A desktop that turns dark while a map is open: labels that have a colour of their own keep it, with readable text.
  void TakesTheLook() {
    MapLayer layer;
    layer.SetPicture(Pattern(QSize(200, 150)), QSize(200, 150));
    MapOverlay overlay;
    overlay.labels = {Label(u"plain"_s, {10, 10}, false), Label(u"own"_s, {100, 10}, false)};
    overlay.labels.last().back = Qt::black;
    layer.SetOverlay(overlay);
    const auto colours = [&layer](const QColor& tip) {
      layer.SetStyle({QFont(), QColor(Qt::gray), tip, QColor(Qt::red), 1});
      const QImage frame = layer.Frame(QSize(200, 150), QPoint(0, 0));
      const bool white = Brightest(frame, QRect(100, 10, 80, 40)) > 200;
      return frame.pixelColor(11, 11).name() + frame.pixelColor(101, 11).name() + (white ? u" white"_s : QString());
    };
    QCOMPARE(colours(Qt::yellow), u"#ffff00#000000 white"_s);
    QCOMPARE(colours(Qt::darkBlue), u"#000080#000000 white"_s);
  }

  void LinesThatCanBeSeenThrough() {
    for (const bool smooth : {false, true}) {
      QImage image(20, 20, QImage::Format_RGB32);
      image.fill(Qt::white);
      MapLineCanvas(image, image.rect()).Draw({2, 10}, {18, 10}, {qRgba(0, 0, 0, 127), 2, smooth});
      QVERIFY(std::abs(qGray(image.pixel(10, 10)) - 128) <= 2);
    }
  }

  // How many pixels a line covers, and that it keeps to its clip.
  void Lines() {
    const auto check = [](const char* what, QPointF from, QPointF to, double width, double covered) {
      const TableRow row(what);
      const QRect clip(2, 2, 96, 96);
      for (const bool smooth : {false, true}) {
        QImage image(100, 100, QImage::Format_RGB32);
        image.fill(Qt::white);
        MapLineCanvas(image, clip).Draw(from, to, {qRgb(0, 0, 0), width, smooth});
        double ink = 0;
        for (int y = 0; y < 100; ++y) {
          for (int x = 0; x < 100; ++x) {
            const double dark = (255 - qGray(image.pixel(x, y))) / 255.0;
            ink += dark;
            QVERIFY(dark == 0 || clip.contains(x, y));
          }
        }
        QVERIFY2(std::abs(ink - covered) <= (smooth ? 3 : 50), qPrintable(QString::number(ink)));
      }
    };
    check("level", {10, 50}, {90, 50}, 2.0, 160.0);
    check("upright, backwards", {50, 90}, {50, 10}, 2.0, 160.0);
    check("slanted", {10, 20}, {90, 80}, 2.0, 200.0);
    check("diagonal", {20, 80}, {80, 20}, 2.0, 169.7);
    check("through all of it", {-1e9, 50}, {1e9, 50}, 2.0, 192.0);
    check("steep from far off", {50, -2147483648.0}, {50, 2147483647.0}, 2.0, 192.0);
    check("wide, along the edge", {10, 4}, {90, 4}, 8.0, 480.0);
    check("beside it", {-10, -50}, {-10, 150}, 2.0, 0.0);
    check("no length", {50, 50}, {50, 50}, 2.0, 0.0);
    check("no number", {qQNaN(), 50}, {50, 50}, 2.0, 0.0);
    check("no end", {-qInf(), 50}, {50, 50}, 2.0, 0.0);
  }
};

OMNI_TEST(TestMapLayer)
#include "test_map_layer.moc"
