// SPDX-License-Identifier: GPL-3.0-or-later
// Name and description of a cell, as a screen reader says them, and its press.
#include <QAccessible>

#include "page/thumb_cell.h"
#include "test_suite.h"

class TestThumbCell : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void IsReadAloud() {
    const auto check = [](const char* what, const QString& site, const QString& caption, CellColour colour, bool error,
                          const QString& said) {
      const TableRow row(what);
      Cell cell;
      cell.lblDisk = site;
      cell.lblCall = caption;
      cell.lblFrom = u"From ZZ2BB"_s;
      cell.Shape1 = colour;
      if (colour == CellColour::OnAir) cell.onAirTip = u"On air"_s;
      cell.errorBox = error;
      cell.lblError = u"ERROR"_s;
      cell.lblInfo = u"Image error 1"_s;
      cell.lblInfo2 = u"Not found"_s;
      ThumbCell widget(0, nullptr);
      widget.SetDetails(u"EP snr -3"_s, u"3/15/2026 10:30"_s, u"empty cell"_s);
      widget.SetCell(cell);
      QCOMPARE(widget.accessibleName() + u": "_s + widget.accessibleDescription(), said);
    };
    const QString details = u"From ZZ2BB, EP snr -3, 3/15/2026 10:30"_s;
    check("young", u"ZZ10A"_s, u"ZZ1ØA"_s, CellColour::Window, false, u"ZZ10A: "_s + details);
    check("on air", u"ZZ1AA"_s, u"ZZ1AA"_s, CellColour::OnAir, false, u"ZZ1AA: "_s + details + u", On air"_s);
    check("old", u"ZZ10A"_s, u"ZZ1ØA - 14 days"_s, CellColour::Window, false, u"ZZ10A: 14 days, "_s + details);
    check("stale", u"ZZ1AA"_s, u"ZZ1AA - 31 days"_s, CellColour::Stale, false, u"ZZ1AA: 31 days, stale, "_s + details);
    check("old error", u"ZZ1AA"_s, u"ZZ1AA - 1 day"_s, CellColour::Window, true,
          u"ZZ1AA: 1 day, ERROR, Image error 1, Not found, 3/15/2026 10:30"_s);
    check("weather", {}, u"Gulf 2 days"_s, CellColour::Window, false, u"Gulf 2 days: "_s + details);
    check("empty", {}, {}, CellColour::Window, false, u"empty cell: "_s + details);
  }

  void IsAButton() {
    AccessibleCell::Install();
    ThumbCell widget(7, nullptr);
    QSignalSpy pressed(&widget, &ThumbCell::Pressed);
    QAccessibleInterface* cell = QAccessible::queryAccessibleInterface(&widget);
    QCOMPARE(cell->role(), QAccessible::Button);
    cell->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QCOMPARE(pressed, QList<QVariantList>{{7}});
  }
};

OMNI_TEST(TestThumbCell)
#include "test_thumb_cell.moc"
