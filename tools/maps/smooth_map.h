// SPDX-License-Identifier: GPL-3.0-or-later
// The program's map formulas with their steps smoothed out, so that a coast has no cliffs where the program's points
// jump. The painter draws by it; points that the program places lie within a few pixels of what is drawn.
#pragma once

#include <QPointF>
#include <QSize>

#include "geo_window.h"
#include "maps/map_projection.h"

// Pixel of the picture for degrees; lon counts on past 180 where the window does.
QPointF SmoothMapPoint(MapName map, double lat, double lon);
// The same for lines that only guide the eye: it bends wider where a coast follows a sudden step of the formulas.
QPointF GraticuleMapPoint(MapName map, double lat, double lon);
// What a picture of this size shows, with a margin; the whole globe for the World map.
GeoWindow WindowOf(MapName map, const QSize& size);
