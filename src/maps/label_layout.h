// SPDX-License-Identifier: GPL-3.0-or-later
// Places for the labels of a map so that none covers another, the same for all maps of many stations. MapWindow runs it
// beside the event loop whenever what is drawn has changed.
#pragma once

#include "maps/map_overlay.h"

// How the labels with an anchor came out.
struct LabelCounts {
  qsizetype beside = 0;  // next to their mark
  qsizetype led = 0;     // further off, with a line to it
  qsizetype dots = 0;    // no room anywhere near

  bool operator==(const LabelCounts& other) const = default;
};

// Moves every label with an anchor beside it, in the order of their ids: first all that find room around their marks,
// then, in the same order, the rest with a leader line, which runs under other labels only where nothing else is left.
// Labels without an anchor stay, and the others go around them and around all marks. None reaches beyond the picture.
// The same labels always get the same places, in whatever order they stand. Touches nothing but the overlay that it is
// given, so that any thread may run it.
LabelCounts LayOutLabels(MapOverlay& overlay, const QSize& picture);
