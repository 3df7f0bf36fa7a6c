// SPDX-License-Identifier: GPL-3.0-or-later
// The nine maps and their calibrated formulas: which map shows a position best, and where on its picture the position
// lies. Every map window places its stations by it, and tools/maps draws the pictures by the same formulas.
#pragma once

#include <QLatin1String>
#include <QString>

#include "maps/map_name.h"

// The map of a name without its extension, such as "Asia Map", in any letter case; None for a user's own map.
MapName MapOfName(QStringView name);
// Name of the best map for a position in degrees, such as "Asia Map".
QLatin1String FindMapName(double TargetLat, double TargetLon);
// Pixel of the map's picture for a position in degrees. The World map moves a longitude below -170 into the caller's
// variable too. None leaves x and y as they were; so does a coordinate that is no number. Points may lie off the
// picture.
void LatLonToPixel(MapName map, double& lat, double& lon, int& x, int& y);

// Whether a record's position can be drawn: a stored coordinate of 0 is an unknown one, and one beyond the poles or
// "nan" is no place either.
bool IsPlaced(double lat, double lon);
