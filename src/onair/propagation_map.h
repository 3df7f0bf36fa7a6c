// SPDX-License-Identifier: GPL-3.0-or-later
// What frmMapPropagation draws of the shown paths on one map, as values: lines, dots, labels to be laid out, and the
// information line.
#pragma once

#include <QSet>

#include "core/program.h"
#include "maps/map_overlay.h"
#include "onair/propagation_paths.h"

// What the window adds to the paths.
struct PropagationLook {
  QSet<QString> imgX;  // calls whose label the user has closed
  // The two stations whose path is drawn thicker; the first has the focus.
  QString focused;
  QString partner;
  bool outdated = false;  // the newest report of the file is older than the period
  qsizetype leftOut = 0;  // reports beyond those that are kept
};

MapDrawing BuildPropagationMap(const Program& program, const PropagationPaths& paths, const PropagationLook& look,
                               const MapSurface& surface);
// The partner that follows (step 1) or precedes (-1) present among all that the station has a path with, in the order
// of their calls, around the end; empty for a station without any.
QString NextPartner(const PropagationPaths& paths, const QString& station, const QString& present, int step);
