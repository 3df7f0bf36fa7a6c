// SPDX-License-Identifier: GPL-3.0-or-later
// What assistive technology asks about the labels of a map. MapView implements it and map_accessible calls it, so that
// map_accessible need not know MapView.
#pragma once

#include <QRect>

#include "maps/map_overlay.h"

// Implemented by the widget that shows a map.
class MapLabels {
 public:
  virtual ~MapLabels() = default;

  virtual const QList<MapOverlay::Label>& Labels() const = 0;
  // Place of a label inside the widget, its box included; empty for an index beyond the list.
  virtual QRect LabelRect(qsizetype index) const = 0;
  // Index of the clickable label that has the focus within the widget, -1: the map itself.
  virtual qsizetype FocusedLabel() const = 0;
  // Does what a click on the label does: nothing where the label is not clickable.
  virtual void PressLabel(qsizetype index, bool byKeyboard) = 0;
};
