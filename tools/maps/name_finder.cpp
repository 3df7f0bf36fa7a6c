// SPDX-License-Identifier: GPL-3.0-or-later
#include "name_finder.h"

#include <QImage>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace {

constexpr int kCell = 4;  // pixels

QImage MaskOf(const QPainterPath& shape, const QPainterPath& waters, const QSize& picture) {
  QImage mask((picture.width() + kCell - 1) / kCell, (picture.height() + kCell - 1) / kCell, QImage::Format_Grayscale8);
  mask.fill(Qt::black);
  QPainter painter(&mask);
  painter.scale(1.0 / kCell, 1.0 / kCell);
  painter.fillPath(shape, Qt::white);
  painter.fillPath(waters, Qt::black);
  return mask;
}

}  // namespace

NameFinder::NameFinder(const QPainterPath& shape, const QPainterPath& waters, const QSize& picture) {
  const QImage mask = MaskOf(shape, waters, picture);
  columns_ = mask.width();
  rows_ = mask.height();
  sums_.fill(0, static_cast<qsizetype>(columns_ + 1) * (rows_ + 1));
  for (int row = 0; row < rows_; ++row) {
    const uchar* line = mask.constScanLine(row);
    qint64 sum = 0;
    for (int column = 0; column < columns_; ++column) {
      if (line[column] > 127) {
        ++sum;
        bounds_ |= QRect(column, row, 1, 1);
        centroid_ += QPointF(column, row);
      }
      sums_[(row + 1) * (columns_ + 1) + column + 1] = sums_[row * (columns_ + 1) + column + 1] + sum;
    }
  }
  centroid_ /= std::max(1.0, VisibleArea() / (kCell * kCell));
}

double NameFinder::VisibleArea() const {
  return static_cast<double>(SumTo(columns_, rows_)) * kCell * kCell;
}

qint64 NameFinder::SumTo(int column, int row) const {
  return sums_[std::clamp(row, 0, rows_) * (columns_ + 1) + std::clamp(column, 0, columns_)];
}

// Share of a box, in cells, that lies inside the shape.
double NameFinder::Covered(const QRectF& box) const {
  const QRect cells = box.toAlignedRect();
  const qint64 sum = SumTo(cells.right() + 1, cells.bottom() + 1) - SumTo(cells.left(), cells.bottom() + 1) -
                     SumTo(cells.right() + 1, cells.top()) + SumTo(cells.left(), cells.top());
  return static_cast<double>(sum) / (static_cast<double>(cells.width()) * cells.height());
}

std::optional<QPointF> NameFinder::Find(const QSizeF& box, double share, const LabelBoard& board) const {
  const QSizeF cells = box / kCell;
  const auto around = [](const QPointF& middle, const QSizeF& size) {
    return QRectF(middle.x() - size.width() / 2, middle.y() - size.height() / 2, size.width(), size.height());
  };
  const double span = std::hypot(bounds_.width(), bounds_.height()) + 1;
  std::optional<QPointF> best;
  double bestScore = -1e9;
  for (int row = bounds_.top(); row <= bounds_.bottom(); ++row) {
    for (int column = bounds_.left(); column <= bounds_.right(); ++column) {
      const QPointF middle(column + 0.5, row + 0.5);
      if (Covered(around(middle, cells)) < share) continue;
      const double air = Covered(around(middle, {cells.width() * 1.3, cells.height() * 2.6}));
      const QPointF away = middle - centroid_;
      const double score = air - 1.2 * std::hypot(away.x(), away.y()) / span;
      if (score <= bestScore || !board.IsFree(around(middle * kCell, box))) continue;
      bestScore = score;
      best = middle * kCell;
    }
  }
  return best;
}
