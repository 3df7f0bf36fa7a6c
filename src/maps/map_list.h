// SPDX-License-Identifier: GPL-3.0-or-later
// The files of the maps as the program lists them: their titles, the names in the lists of maps, and which file shows a
// position best. Every map window asks here.
#pragma once

#include <QStringList>

// An entry of lstMap without its extension, such as "Asia Map"; empty for an index beyond the list.
QString MapTitle(const QStringList& lstMap, int index);
// An entry of lstMap as the lists of maps show it, such as "Asia".
QString MapListName(QString file);
// Index in lstMap of the best map for a position in degrees; the count of the list where that map is missing.
int BestMapIndex(const QStringList& lstMap, double lat, double lon);
