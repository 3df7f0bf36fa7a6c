// SPDX-License-Identifier: GPL-3.0-or-later
// The public geographic data that the maps are drawn from: countries from a TopoJSON atlas, lakes, rivers, towns and
// state lines from packed GeoJSON. Read once by main, drawn by the painter.
#pragma once

#include <QList>
#include <QString>

// A place in degrees. Longitudes of a line may jump by 360 where it crosses the date line.
struct GeoPoint {
  double lat = 0;
  double lon = 0;
};
using GeoLine = QList<GeoPoint>;

// A country or a lake: rings without order, filled by the odd-even rule.
struct Area {
  QString name;
  int rank = 0;  // small is important
  QList<GeoLine> rings;
};

// A river, or a line between states.
struct Course {
  int rank = 0;
  GeoLine line;
};

// A town, drawn as a dot with its name.
struct Town {
  QString name;
  GeoPoint at;
  int rank = 0;
  int people = 0;
  bool capital = false;  // of a country
};

// The countries at one scale, and their outlines.
struct Atlas {
  QList<Area> countries;
  QList<GeoLine> coasts;   // lines that one country has to itself
  QList<GeoLine> borders;  // lines that two countries share
};

// All that the maps are drawn from.
struct Geodata {
  Atlas fine;    // 1:10m
  Atlas coarse;  // 1:50m
  QList<Area> lakes;
  QList<Area> smallLakes;  // of Europe
  QList<Course> rivers;
  QList<Course> smallRivers;  // of Europe
  QList<Course> stateLines;
  QList<Town> towns;
};

// Reads countries-10m.json and countries-50m.json from one folder and the packed layers from the other. Returns the
// names of those that cannot be read; empty when all is well.
QString ReadGeodata(const QString& atlasFolder, const QString& layerFolder, Geodata& data);
