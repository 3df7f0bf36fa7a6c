// SPDX-License-Identifier: GPL-3.0-or-later
// What frmMapRxOk draws on one map, as values: own position, a line or a stub for each station that received the user's
// picture, labels to be laid out, and the information line.
#pragma once

#include "core/program.h"
#include "maps/map_overlay.h"
#include "onair/rx_ok_list.h"
#include "onair/rx_ok_lookups.h"

// Label colours: dark letters are read on both, on a dark desktop too.
inline constexpr QColor kRxLastImage(140, 255, 140);
inline constexpr QColor kRxPreviousImage(255, 150, 150);
// Line colours.
inline constexpr QColor kRxNoSite(0, 119, 0);
inline constexpr QColor kRxHasSite(0, 0, 255);

// A row of the list with all that its drawing depends on.
struct RxOkStation {
  RxOkRow row;
  RxOkPlace place;         // as far as it is known
  bool lastImage = false;  // its label is green
  bool hasSite = false;    // its line is blue
};

// The stations of the list, in its order.
QList<RxOkStation> RxOkStations(const RxOkList& list, const SiteTable& sites, RxOkLookups& places);
// Draws nothing without an own position. The label of a station has its call as its id.
MapDrawing BuildRxOkMap(const Program& program, const QList<RxOkStation>& stations, const MapSurface& surface);
