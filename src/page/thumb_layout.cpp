// SPDX-License-Identifier: GPL-3.0-or-later
#include "page/thumb_layout.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr double kPitchX = 132;
constexpr double kPitchY = 119;
constexpr int kTwips = 15;         // twips a pixel in the constants of the window's height
constexpr int kGivenMenuBar = 20;  // pixels of menu bar that these constants include for layouts 1 to 3

bool IsLayout(int thumbLayout) {
  return thumbLayout >= 1 && thumbLayout <= 6;
}

double WidthFactor(int thumbLayout, int guiMode) {
  static constexpr std::array<std::array<double, 4>, 4> factors = {{
      {0.75, 0.75, 0.75, 0.75},
      {0.8, 0.955, 1.11, 0.955},
      {0.9333, 1.12, 1.31, 1.12},
      {1.13333, 1.355, 1.31, 1.12},
  }};
  const auto mode = static_cast<std::size_t>(std::clamp(guiMode, 0, 3));
  return factors[mode][static_cast<std::size_t>(std::max(0, thumbLayout - 3))];
}

}  // namespace

ThumbLayoutInfo LayoutOf(int thumbLayout) {
  static constexpr std::array<ThumbLayoutInfo, 7> layouts = {
      {{0, 0, 0}, {5, 1, 5}, {10, 2, 5}, {15, 3, 5}, {24, 4, 6}, {35, 5, 7}, {36, 6, 6}}};
  return IsLayout(thumbLayout) ? layouts[static_cast<std::size_t>(thumbLayout)] : layouts[0];
}

QRectF CellRect(int thumbLayout, int slot) {
  const ThumbLayoutInfo layout = LayoutOf(thumbLayout);
  if (slot < 0 || slot >= layout.count) return {};
  return GridCellRect(layout.columns, slot);
}

QRectF GridCellRect(int columns, int slot) {
  const int row = slot / columns;
  const int column = slot % columns;
  return QRectF(QPointF(column * kPitchX + 6, row * kPitchY + 2), cell_part::kCell);
}

QSizeF PageUnits(int thumbLayout, int menuBarHeight) {
  static constexpr std::array<QSizeF, 7> sizes = {
      {{0, 0}, {670, 147}, {670, 265}, {670, 387}, {802, 478}, {934, 595}, {802, 715}}};
  if (!IsLayout(thumbLayout)) return {};
  QSizeF size = sizes[static_cast<std::size_t>(thumbLayout)];
  // The heights of layouts 1 to 3 include the menu bar; of what was added for it to the others, 3 units remain on the
  // page.
  size.rheight() += thumbLayout <= 3 ? -menuBarHeight : 3;
  const QRectF last = CellRect(thumbLayout, LayoutOf(thumbLayout).count - 1);
  return {size.width(), std::max(size.height(), last.bottom() + 2)};
}

QRectF ThumbFrame(QSize picture) {
  const double w = picture.width();
  const double h = picture.height();
  const double ratio = w > 0 ? h / w : 0;
  const double scale = ratio >= 0.75 ? h / 88 : w / 118;
  if (scale <= 0) return {};
  return {65 - w / scale / 2, 47 - h / scale / 2, w / scale, h / scale};
}

QSize ClientSize(int thumbLayout, int guiMode, long screenHTwips, int menuBarHeight, int twips) {
  if (!IsLayout(thumbLayout)) return {};
  static constexpr std::array<double, 7> shares = {0, 0.183, 0.365, 0.545, 0.61, 0.65, 0.91};
  const double width = static_cast<double>(screenHTwips) * WidthFactor(thumbLayout, guiMode);
  const double grid = width * shares[static_cast<std::size_t>(thumbLayout)];
  const double menu = static_cast<double>(menuBarHeight) * twips;
  // 390 and 360 twips include a menu bar of 20 pixels; a taller one must not take its height from the page.
  const double rest = thumbLayout == 1   ? 390 + menu - kGivenMenuBar * kTwips
                      : thumbLayout <= 3 ? 360 + menu - kGivenMenuBar * kTwips
                                         : menu + 60;
  return {static_cast<int>(std::lround(width / twips)), static_cast<int>(std::lround((grid + rest) / twips))};
}

double CellFontPoints(int guiMode, long screenHTwips) {
  return static_cast<double>(screenHTwips) * (std::clamp(guiMode, 0, 3) + 4) / 9000.0;
}

double FontPixelsOf(double points) {
  return points * 96 / 72;
}

int TwipsPerPixel(double dotsPerInch) {
  const int twips = dotsPerInch > 0 ? static_cast<int>(std::lround(1440 / dotsPerInch)) : 0;
  return twips < 10 || twips > 20 ? kTwips : twips;
}
