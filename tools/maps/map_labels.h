// SPDX-License-Identifier: GPL-3.0-or-later
// Writes the names on a map: large towns, countries, seas, then as many other towns as there are free places for. For
// the painter.
#pragma once

#include <QPainter>

#include "geodata.h"
#include "map_frame.h"

void DrawLabels(const MapFrame& frame, const Geodata& data, QPainter& painter);
