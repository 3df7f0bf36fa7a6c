// SPDX-License-Identifier: GPL-3.0-or-later
// Finds where in a country's shape its name fits best. For the labels.
#pragma once

#include <QList>
#include <QPainterPath>
#include <optional>

#include "label_board.h"

// The part of one country's shape that a picture shows, as a grid of cells.
class NameFinder {
 public:
  // shape and waters in pixels; waters count as outside of the shape.
  NameFinder(const QPainterPath& shape, const QPainterPath& waters, const QSize& picture);

  // Square pixels of the shape that the picture shows.
  double VisibleArea() const;
  // Middle of the free box that lies deepest inside the shape; none when no box has this share of itself inside.
  std::optional<QPointF> Find(const QSizeF& box, double share, const LabelBoard& board) const;

 private:
  double Covered(const QRectF& box) const;
  qint64 SumTo(int column, int row) const;

  QRect bounds_;  // of the shape, in cells
  int columns_ = 0;
  int rows_ = 0;
  QList<qint64> sums_;  // covered cells above and to the left, one row and one column of zeros first
  QPointF centroid_;    // in cells
};
