// SPDX-License-Identifier: GPL-3.0-or-later
// The arithmetic of the page against worked figures.

#include "page/thumb_layout.h"
#include "test_suite.h"

class TestThumbLayout : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void PlacesCells() {
    const auto check = [](const char* what, int layout, int slot, QRectF place) {
      const TableRow row(what);
      QCOMPARE(CellRect(layout, slot), place);
    };
    check("first", 3, 0, {6, 2, 130, 117});
    check("end of a row of five", 3, 4, {534, 2, 130, 117});
    check("last of 24", 4, 23, {666, 359, 130, 117});
    check("last of 35", 5, 34, {798, 478, 130, 117});
    check("last of 36", 6, 35, {666, 597, 130, 117});
    for (const auto& [layout, slot] : {std::pair(1, 5), std::pair(7, 0)}) check("none", layout, slot, {});
  }

  void EveryCellLiesOnThePage() {
    for (int layout = 1; layout <= 6; ++layout) {
      const QRectF page(QPointF(0, 0), PageUnits(layout, 34));
      for (int slot = 0; slot < LayoutOf(layout).count; ++slot) QVERIFY(page.contains(CellRect(layout, slot)));
    }
    QVERIFY(PageUnits(3, 20) == QSizeF(670, 367) && PageUnits(5, 20) == QSizeF(934, 598));
  }

  void FramesPictures() {
    const auto check = [](const char* what, QSize picture, QRectF frame) {
      const TableRow row(what);
      const QRectF is = ThumbFrame(picture);
      QVERIFY(qAbs(is.left() - frame.left()) < 1e-9 && qAbs(is.top() - frame.top()) < 1e-9);
      QVERIFY(qAbs(is.width() - frame.width()) < 1e-9 && qAbs(is.height() - frame.height()) < 1e-9);
    };
    check("portrait by its height", {100, 200}, {43, 3, 44, 88});
    check("panorama by its width", {200, 100}, {6, 17.5, 118, 59});
    check("exactly three quarters by its height", {400, 300}, {65 - 176.0 / 3, 3, 352.0 / 3, 88});
    check("nothing", {0, 0}, {});
  }

  void SizesWindows() {
    const auto check = [](const char* what, int layout, int mode, QSize client) {
      const TableRow row(what);
      QCOMPARE(ClientSize(layout, mode, 16200, 20, 15), client.isEmpty() ? QSize() : client);
    };
    // A screen of 1080 lines is 16200 twips high; a menu bar of 20 pixels.
    check("smallest", 3, 0, {810, 465});
    check("one row", 1, 2, {1008, 210});
    check("two rows", 2, 1, {864, 339});
    check("24 in the largest", 4, 3, {1463, 917});
    check("35", 5, 2, {1415, 944});
    check("36", 6, 1, {1031, 963});
    check("a mode that is none", 3, 9, {1224, 691});
    check("a layout that is none", 0, 2, {});
  }

  void FontsFollowTheScreen() {
    QVERIFY(qFuzzyCompare(CellFontPoints(0, 16200), 7.2) && qFuzzyCompare(CellFontPoints(3, 16200), 12.6));
  }
};

OMNI_TEST(TestThumbLayout)
#include "test_thumb_layout.moc"
