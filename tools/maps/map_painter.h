// SPDX-License-Identifier: GPL-3.0-or-later
// Draws the picture of one map from the bottom up: sea, land, waters, lines, names. For main.
#pragma once

#include <QImage>

#include "geodata.h"
#include "map_sheet.h"

QImage DrawMap(const MapSheet& sheet, const Geodata& data);
