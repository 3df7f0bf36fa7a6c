// SPDX-License-Identifier: GPL-3.0-or-later
// The labels of a map view as assistive technology needs them. MapView has them, map_accessible tells of them; neither
// has to know the other.
#pragma once

#include <QRect>

#include "maps/map_overlay.h"

// To be asked of a widget that shows a map.
class MapLabels {
 public:
  virtual ~MapLabels() = default;

  virtual const QList<MapOverlay::Label>& Labels() const = 0;
  // Place of a label inside the widget, its box included; empty for an index beyond the list.
  virtual QRect LabelRect(qsizetype index) const = 0;
  // Index of the clickable label that has the focus within the widget, -1: the map itself.
  virtual qsizetype FocusedLabel() const = 0;
  // What a click on the label does; nothing for one that is not clickable.
  virtual void PressLabel(qsizetype index, bool byKeyboard) = 0;
};
