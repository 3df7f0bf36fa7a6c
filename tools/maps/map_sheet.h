// SPDX-License-Identifier: GPL-3.0-or-later
// How each of the nine maps is drawn: its size, what it shows and how large its names are. One row a map; main draws
// the rows, the painter and the labels follow them.
#pragma once

#include <QColor>
#include <QList>
#include <QSize>
#include <QString>

#include "maps/map_projection.h"

// How one map is drawn.
struct MapSheet {
  MapName map = MapName::None;
  QLatin1String name;  // of the picture, without its extension
  QSize size;          // pixels
  bool fine = true;    // coasts at 1:10m
  int graticule = 10;  // degrees
  // The least important rank that is drawn; -1 for none of the kind.
  int lakeRank = 0;
  int riverRank = 0;
  int smallWaterRank = -1;  // the finer lakes and rivers of Europe
  int townRank = 0;
  int firstTownRank = 0;  // to this rank towns are placed before the countries' names
  int largeTownRank = 0;  // to this rank towns are written larger
  double coastWidth = 1.1;
  bool stateLines = false;
  int townPixels = 11;       // height of a town's name
  double townGap = 14;       // pixels between dots
  QList<int> countryPixels;  // heights of countries' names, largest first
};

const QList<MapSheet>& MapSheets();

// The colours of all maps.
namespace MapColours {
constexpr QRgb kPaper = 0xffe9eff2;  // around the oval of the World map
constexpr QRgb kSea = 0xffcfe1ec;
constexpr QRgb kLand = 0xfff5f1e6;
constexpr QRgb kCoast = 0xff7c93a3;
constexpr QRgb kBorder = 0xffa8968c;
constexpr QRgb kStateLine = 0xffd2c7bb;
constexpr QRgb kRiver = 0xffa9c6d8;
constexpr QRgb kSeaGraticule = 0xffb9d0de;
constexpr QRgb kLandGraticule = 0xffe6e0d2;
constexpr QRgb kCountryName = 0xff9a8f84;
constexpr QRgb kSeaName = 0xff86a5b9;
constexpr QRgb kTown = 0xff6b6259;
constexpr QRgb kHalo = 0xfffaf8f2;
}  // namespace MapColours
