// SPDX-License-Identifier: GPL-3.0-or-later
// Remembers what part of a picture the labels have taken, so that none is written over another.
#pragma once

#include <QList>
#include <QRectF>
#include <QSize>

// The boxes that are taken on one picture.
class LabelBoard {
 public:
  explicit LabelBoard(const QSize& picture) : picture_(QRectF(QPointF(0, 0), picture).adjusted(4, 4, -4, -4)) {}

  // Whether the box lies inside the picture and touches nothing taken.
  bool IsFree(const QRectF& box) const {
    if (!picture_.contains(box)) return false;
    for (const QRectF& taken : taken_) {
      if (taken.intersects(box)) return false;
    }
    return true;
  }
  void Take(const QRectF& box) { taken_.append(box); }

 private:
  QRectF picture_;
  QList<QRectF> taken_;
};
