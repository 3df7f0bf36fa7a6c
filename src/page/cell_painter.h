// SPDX-License-Identifier: GPL-3.0-or-later
// Paints one cell of the page from its values. The cell's widget calls it; a test can render a cell without a window.
#pragma once

#include <QFont>
#include <QImage>
#include <QPainter>
#include <QPalette>

#include "page/cell.h"

// Measures, fonts and colours that a cell is painted with, whatever it shows.
struct CellTheme {
  double scale = 1;        // pixels a page unit
  double fontPixels = 11;  // of caption and from line, in pixels
  QFont font;              // face
  QPalette palette;
  QString connectingText;
  QString camTip;  // of the cam light
  bool focused = false;
  bool hovered = false;
};

// The background for a cell's state: the given colour, on a dark palette a dark one of the same hue.
QColor CellBackground(CellColour colour, const QPalette& palette);
// Size of the picture's frame in the screen's pixels; scale: pixels a page unit, ratio: the screen's pixels a pixel.
QSize PicturePixels(const Cell& cell, double scale, double ratio);
// Paints a cell at the painter's origin. picture: the frame of the cell's picture to show now; one of
// just PicturePixels is copied, any other scaled; it may be null.
void PaintCell(QPainter& painter, const Cell& cell, const CellTheme& theme, const QPixmap& picture);
