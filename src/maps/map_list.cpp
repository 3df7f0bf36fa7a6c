// SPDX-License-Identifier: GPL-3.0-or-later
#include "maps/map_list.h"

#include "maps/map_projection.h"

using namespace Qt::StringLiterals;

QString MapTitle(const QStringList& lstMap, int index) {
  const QString file = lstMap.value(index);
  return file.chopped(std::min<qsizetype>(4, file.size()));
}

QString MapListName(QString file) {
  return file.remove(" Map.jpg"_L1, Qt::CaseInsensitive).remove(" Map.gif"_L1, Qt::CaseInsensitive);
}

int BestMapIndex(const QStringList& lstMap, double lat, double lon) {
  const QLatin1String name = FindMapName(lat, lon);
  int index = 0;
  while (index < lstMap.size() && !lstMap.at(index).contains(name, Qt::CaseInsensitive)) ++index;
  return index;
}
