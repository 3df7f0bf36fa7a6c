// SPDX-License-Identifier: GPL-3.0-or-later
// Cells as pixels, on a light and on a dark palette.

#include "page/cell_painter.h"
#include "page/thumb_layout.h"
#include "test_suite.h"

namespace {

constexpr int kScale = 2;
constexpr QColor kLightPage(230, 230, 230);
constexpr QColor kDarkPage(42, 46, 50);
constexpr double kReadable = 4.5;  // contrast that small text asks for

QImage Render(const Cell& cell, const QColor& page) {
  QImage red(116, 86, QImage::Format_RGB32);
  red.fill(Qt::red);
  QImage canvas((cell_part::kCell * kScale).toSize(), QImage::Format_RGB32);
  canvas.fill(Qt::magenta);
  QPainter painter(&canvas);
  CellTheme theme;
  theme.scale = kScale;
  theme.palette = QPalette(page);
  PaintCell(painter, cell, theme, QPixmap::fromImage(red));
  return canvas;
}

double Luminance(const QColor& colour) {
  const auto linear = [](double p) { return p <= 0.04045 ? p / 12.92 : std::pow((p + 0.055) / 1.055, 2.4); };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

double Contrast(const QColor& one, const QColor& other) {
  const double a = Luminance(one);
  const double b = Luminance(other);
  return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

// The strongest contrast to a colour within a part of the cell: that of the text which is painted there.
double ContrastWithin(const QImage& image, const QRectF& units, const QColor& background) {
  double most = 1;
  for (int y = static_cast<int>(units.top()) * kScale; y < static_cast<int>(units.bottom()) * kScale; ++y) {
    for (int x = static_cast<int>(units.left()) * kScale; x < static_cast<int>(units.right()) * kScale; ++x) {
      most = std::max(most, Contrast(image.pixelColor(x, y), background));
    }
  }
  return most;
}

}  // namespace

class TestCellPainter : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void PaintsWhatTheCellHolds() {
    Cell cell;
    cell.img = QRectF(4, 4, 120, 90);
    cell.Shape1 = CellColour::Stale;
    const QImage plain = Render(cell, kLightPage);
    QCOMPARE(plain.pixelColor(128, 98), QColor(Qt::red));
    QCOMPARE(plain.pixelColor(100, 0), QColor(Qt::white));
    cell.picProg = true;
    cell.progress = 50;
    const QImage half = Render(cell, kLightPage);
    QVERIFY(half.pixelColor(60, 220) != half.pixelColor(180, 220));
    cell.errorBox = true;
    QCOMPARE(Render(cell, kLightPage).pixelColor(14, 14), kErrorColour);
    cell.flash = true;
    QCOMPARE(Render(cell, kDarkPage).pixelColor(10, 230), kFlashColour);
  }

  void ColoursSuitThePage() {
    // given: the colours of a cell on air and of a stale one; empty where the painter darkens them.
    const auto check = [](const char* what, const QColor& page, const QList<QColor>& given) {
      const TableRow row(what);
      QList<QColor> seen;
      for (const CellColour state : {CellColour::OnAir, CellColour::Stale, CellColour::Window}) {
        Cell cell;
        cell.Shape1 = state;
        cell.lblCall = u"ZZ1AA"_s;
        cell.lblFrom = u"From ZZ2BB"_s;
        const QImage image = Render(cell, page);
        const QColor back = image.pixelColor(10, 230);
        for (const QRectF& text : {cell_part::kCall, cell_part::kFrom}) {
          QVERIFY(ContrastWithin(image, text, back) >= kReadable);
        }
        seen.append(back);
      }
      if (!given.isEmpty()) QCOMPARE(seen.first(2), given);
      QCOMPARE(seen.last(), page);
      for (int i = 0; i < 3; ++i) {
        if (page == kDarkPage) QVERIFY2(Luminance(seen.at(i)) < 0.1, "a bright cell glares on a dark page");
        const QColor& next = seen.at((i + 1) % 3);
        const int apart = std::abs(seen.at(i).red() - next.red()) + std::abs(seen.at(i).green() - next.green()) +
                          std::abs(seen.at(i).blue() - next.blue());
        QVERIFY2(apart >= 40, "the states look alike");
      }
    };
    check("light", kLightPage, {kOnAirColour, kStaleColour});
    check("dark", kDarkPage, {});
  }

  // The pink of some modes is nearly that of a stale cell.
  void TagsStandOut() {
    for (const QColor& page : {kLightPage, kDarkPage}) {
      for (const CellColour state : {CellColour::OnAir, CellColour::Stale, CellColour::Window}) {
        for (const QColor& tag : {QColor(255, 120, 120), QColor(192, 192, 0), QColor(0, 192, 192)}) {
          Cell cell;
          cell.Shape1 = state;
          cell.lblMode = u"FT8"_s;
          cell.modeColour = tag;
          const QImage image = Render(cell, page);
          const QPoint edge = (cell_part::kMode.topLeft() * kScale).toPoint() + QPoint(0, 12);
          QCOMPARE(image.pixelColor(edge + QPoint(5, 0)), tag);
          QVERIFY(Contrast(image.pixelColor(edge), tag) >= 3);
          QVERIFY(ContrastWithin(image, cell_part::kMode.adjusted(2, 2, -2, -2), tag) >= kReadable);
        }
      }
    }
  }
};

OMNI_TEST(TestCellPainter)
#include "test_cell_painter.moc"
