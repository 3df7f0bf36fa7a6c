// SPDX-License-Identifier: GPL-3.0-or-later
// The arithmetic of the page: six layouts, four window sizes, and the frames of a cell's parts. The grid and the main
// window call it; nothing is drawn here.
#pragma once

#include <QRectF>
#include <QSize>
#include <QSizeF>

// Number of cells of a layout.
struct ThumbLayoutInfo {
  int count = 0;
  int rows = 0;
  int columns = 0;
};

// thumbLayout is 1 to 6. Any other number gives no cells, and the window then stays without a layout.
ThumbLayoutInfo LayoutOf(int thumbLayout);

// Parts of a cell relative to its upper left corner, in page units.
namespace cell_part {
inline constexpr QSizeF kCell(130, 117);
inline constexpr QRectF kEmptyImg(4, 4, 120, 90);
inline constexpr QRectF kErrorImg(5, 4, 120, 90);
inline constexpr QRectF kCall(0, 91, 130, 15);
inline constexpr QRectF kFrom(15, 102, 100, 15);
inline constexpr QRectF kConnect(22, 104, 77, 12);
inline constexpr QRectF kProgress(22, 107, 77, 6);
inline constexpr QRectF kMode(130 - 28, 117 - 14, 26, 13);
inline constexpr QRectF kCam(2, 98, 17, 17);
inline constexpr QRectF kCamOnlyImg(18, 3, 94, 88);
}  // namespace cell_part

// Frame of a cell in a grid of that many columns, in page units; slot from 0.
QRectF GridCellRect(int columns, int slot);
// Frame of a cell on the page, in page units; slot from 0. Empty for a slot outside the layout.
QRectF CellRect(int thumbLayout, int slot);
// Inner size of the page (picAll) in units; menuBarHeight in pixels. Never smaller than the cells need.
QSizeF PageUnits(int thumbLayout, int menuBarHeight);
// Frame of a picture of these pixels, centred on (65, 47) of its cell.
QRectF ThumbFrame(QSize picture);

// Twips a pixel of a screen; 15 where that would be below 10 or above 20, which no real screen has.
int TwipsPerPixel(double dotsPerInch);
// Size of the window's client area in pixels for a screen height in twips; layouts other than 1 to 6 give an empty
// size.
QSize ClientSize(int thumbLayout, int guiMode, long screenHTwips, int menuBarHeight, int twips);
// Font value of the cells, in points at 96 dpi.
double CellFontPoints(int guiMode, long screenHTwips);
// Height in pixels of a text of these points at 96 dpi.
double FontPixelsOf(double points);
