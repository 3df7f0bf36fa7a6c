// SPDX-License-Identifier: GPL-3.0-or-later
// What frmMapOnAir draws: the stations of the feed as points with their calls, and own position, as values. Paths there
// are none.
#pragma once

#include "core/program.h"
#include "maps/map_overlay.h"
#include "onair/on_air_list.h"

// Of so many stations a label gets a place; the further ones are dots with a tip, as no map has room for more.
inline constexpr int kMostOnAirLabels = 1000;

// A call that stands in several entries is drawn once; one without a position, or off the picture, not at all.
MapDrawing BuildOnAirDrawing(const Program& program, const QList<OnAirEntry>& entries, const MapSurface& surface);
