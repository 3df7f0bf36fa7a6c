// SPDX-License-Identifier: GPL-3.0-or-later
// What frmMapLoc shows of one station: its marks, own position and the way between them as values. frmMapLoc asks and
// shows.
#pragma once

#include "core/program.h"
#include "maps/map_overlay.h"

// The station that is looked at. The World map moves its longitude as LatLonToPixel does.
struct MapTarget {
  QString call;
  double lat = 0;  // degrees
  double lon = 0;
};

// The target upon a map. Moves an own latitude beyond 89 degrees back to it, in the configuration too; own longitude
// stays as it is stored. Without a formula for the map nothing is drawn; the information line holds call, distance and
// direction all the same.
MapDrawing BuildLocationMap(Program& program, MapTarget& target, const MapSurface& surface);
