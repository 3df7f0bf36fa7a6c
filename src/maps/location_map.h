// SPDX-License-Identifier: GPL-3.0-or-later
// Builds what frmMapLoc draws for one station, as plain values: the station's marks, the own position, and the line or
// arrow between them. frmMapLoc calls it whenever it redraws.
#pragma once

#include "core/program.h"
#include "maps/map_overlay.h"

// The station that the map was opened for. Drawing it on the World map changes lon as LatLonToPixel does: a longitude
// below -170 counts on past 180.
struct MapTarget {
  QString call;
  double lat = 0;  // degrees
  double lon = 0;
};

// Builds the drawing of the target on the map of surface. Limits config.MyLat to 89 degrees north or south, in the
// configuration too; config.MyLon stays as it is stored. For a map without a formula nothing is drawn; the information
// line holds call, distance and direction all the same.
MapDrawing BuildLocationMap(Program& program, MapTarget& target, const MapSurface& surface);
