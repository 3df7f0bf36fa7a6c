// SPDX-License-Identifier: GPL-3.0-or-later
// The cells of the two windows of cams as values: the index of all sites, and the status of all cams. The windows show
// them.
#pragma once

#include <QList>
#include <QString>

#include "core/program.h"
#include "page/cell.h"

// Columns of the grids, which are filled row by row.
inline constexpr int kCamColumns = 5;

// The lights of the grids; imgGray is for a site without a cam, or whose cam is not tested.
inline constexpr CamLight imgY = CamLight::Yellow;
inline constexpr CamLight imgG = CamLight::Green;
inline constexpr CamLight imgR = CamLight::Red;
inline constexpr CamLight imgGray = CamLight::Gray;

// One cell of a grid.
struct CamCell {
  int site = -1;    // index in Sites, or in WxSites on the weather page; -1: not known
  QString call;     // with plain zeros; of a WX site its title
  QString lblGrid;  // the call as it is shown
  QString lblPage;  // "p" and the pages on which the site has a slot; empty: none
  CamLight imgGrid = imgGray;
  bool isOnPage = false;  // the site has a slot on the page on the screen

  bool operator==(const CamCell&) const = default;
};

// All sites of the page's table, for Form19.
QList<CamCell> SiteIndexCells(const Program& program);
// The cams of lstCams, for Form20; none on the weather page.
QList<CamCell> CamStatusCells(const Program& program);
// Rows that so many cells fill.
int CamRows(qsizetype cells);
