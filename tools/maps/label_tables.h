// SPDX-License-Identifier: GPL-3.0-or-later
// Names that the geographic data lacks or shortens: seas, the towns of the Netherlands, countries' names in full.
#pragma once

#include "geodata.h"
#include "maps/map_projection.h"

// The name of a sea, and on which maps it is written.
struct SeaName {
  QString text;  // may have line ends
  GeoPoint at;   // middle of the text
  int size = 0;  // 0 small to 2 ocean
  QList<MapName> maps;
};

const QList<SeaName>& SeaNames();
const QList<Town>& DutchTowns();
// What is written for a country of the atlas; empty for specks that need no name.
QString CountryLabel(const QString& name);
