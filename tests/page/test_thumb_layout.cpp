// SPDX-License-Identifier: GPL-3.0-or-later
// The arithmetic of the page against worked figures.
#include <QTest>

#include "page/thumb_layout.h"
#include "test_suite.h"

class TestThumbLayout : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void PlacesCells_data() {
    QTest::addColumn<int>("layout");
    QTest::addColumn<int>("slot");
    QTest::addColumn<QRectF>("place");
    QTest::newRow("first") << 3 << 0 << QRectF(6, 2, 130, 117);
    QTest::newRow("end of a row of five") << 3 << 4 << QRectF(534, 2, 130, 117);
    QTest::newRow("last of 24") << 4 << 23 << QRectF(666, 359, 130, 117);
    QTest::newRow("last of 35") << 5 << 34 << QRectF(798, 478, 130, 117);
    QTest::newRow("last of 36") << 6 << 35 << QRectF(666, 597, 130, 117);
    QTest::newRow("beyond the layout") << 1 << 5 << QRectF();
    QTest::newRow("no such layout") << 7 << 0 << QRectF();
  }

  void PlacesCells() {
    QFETCH(int, layout);
    QFETCH(int, slot);
    QFETCH(QRectF, place);
    QCOMPARE(CellRect(layout, slot), place);
  }

  void EveryCellLiesOnThePage() {
    for (int layout = 1; layout <= 6; ++layout) {
      const QRectF page(QPointF(0, 0), PageUnits(layout, 34));
      for (int slot = 0; slot < LayoutOf(layout).count; ++slot) QVERIFY(page.contains(CellRect(layout, slot)));
    }
    QCOMPARE(PageUnits(3, 20), QSizeF(670, 367));
    QCOMPARE(PageUnits(5, 20), QSizeF(934, 598));
  }

  void FramesPictures_data() {
    QTest::addColumn<QSize>("picture");
    QTest::addColumn<QRectF>("frame");
    QTest::newRow("portrait by its height") << QSize(100, 200) << QRectF(43, 3, 44, 88);
    QTest::newRow("panorama by its width") << QSize(200, 100) << QRectF(6, 17.5, 118, 59);
    QTest::newRow("exactly three quarters by its height")
        << QSize(400, 300) << QRectF(65 - 176.0 / 3, 3, 352.0 / 3, 88);
    QTest::newRow("nothing") << QSize(0, 0) << QRectF();
  }

  void FramesPictures() {
    QFETCH(QSize, picture);
    QFETCH(QRectF, frame);
    const QRectF is = ThumbFrame(picture);
    QVERIFY(qAbs(is.left() - frame.left()) < 1e-9 && qAbs(is.top() - frame.top()) < 1e-9);
    QVERIFY(qAbs(is.width() - frame.width()) < 1e-9 && qAbs(is.height() - frame.height()) < 1e-9);
  }

  void SizesWindows_data() {
    QTest::addColumn<int>("layout");
    QTest::addColumn<int>("mode");
    QTest::addColumn<QSize>("client");
    // A screen of 1080 lines is 16200 twips high; a menu bar of 20 pixels.
    QTest::newRow("smallest") << 3 << 0 << QSize(810, 465);
    QTest::newRow("one row") << 1 << 2 << QSize(1008, 210);
    QTest::newRow("two rows") << 2 << 1 << QSize(864, 339);
    QTest::newRow("24 in the largest") << 4 << 3 << QSize(1463, 917);
    QTest::newRow("35") << 5 << 2 << QSize(1415, 944);
    QTest::newRow("36") << 6 << 1 << QSize(1031, 963);
    QTest::newRow("a mode that is none") << 3 << 9 << QSize(1224, 691);
    QTest::newRow("a layout that is none") << 0 << 2 << QSize();
  }

  void SizesWindows() {
    QFETCH(int, layout);
    QFETCH(int, mode);
    QFETCH(QSize, client);
    QCOMPARE(ClientSize(layout, mode, 16200, 20, 15), client.isEmpty() ? QSize() : client);
  }

  void FontsFollowTheScreen() {
    QCOMPARE(CellFontPoints(0, 16200), 7.2);
    QCOMPARE(CellFontPoints(3, 16200), 12.6);
  }
};

OMNI_TEST(TestThumbLayout)
#include "test_thumb_layout.moc"
