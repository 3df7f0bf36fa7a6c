// SPDX-License-Identifier: GPL-3.0-or-later
// The tips of one window with cells: tells HoverTip where pointer and focus are in the grid, and shows in picToolTip
// what it says. The main window and the history make one each.
#pragma once

#include <QObject>

#include "page/cell_grid_view.h"
#include "page/hover_tip.h"
#include "page/tip_window.h"
#include "platform/picture/picture_tool.h"
#include "platform/wanted.h"

// The link between a grid of cells, the logic of its tips, and their frame.
class CellTips : public QObject {
  Q_OBJECT

 public:
  // All outlive this object, which window owns; the tips open inside window.
  CellTips(CellGridView& view, HoverTip& hover, PictureTool& tool, QWidget* window);

 private:
  void ShowTip(int slot, const QString& text, const QString& picturePath);

  CellGridView& view_;
  PictureTool& tool_;
  QWidget* window_;
  TipWindow* picToolTip_;
  Wanted tipPicture_;  // the operator's picture of the open tip
};
