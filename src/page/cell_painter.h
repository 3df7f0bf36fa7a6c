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
  bool focused = false;
  bool hovered = false;
};

// Colour behind a cell's state: the given colour, and on a dark palette one of the same hue that is as dark as the
// page.
QColor CellBackground(CellColour colour, const QPalette& palette);
// picture: the frame to show, scaled to the cell already or not; may be null.
void PaintCell(QPainter& painter, const Cell& cell, const CellTheme& theme, const QPixmap& picture);
