// SPDX-License-Identifier: GPL-3.0-or-later
// picAll: the page of cells, in the main window. Takes its values from ThumbGrid, and its measures from the layout.
#pragma once

#include "core/program.h"
#include "page/cell_grid_view.h"
#include "page/thumb_grid.h"

// The widget picAll: one ThumbCell for each slot of the layout.
class PageView : public CellGridView {
  Q_OBJECT

 public:
  PageView(Program& program, ThumbGrid& grid, QWidget* parent);

  // Takes the units and fonts of the present layout. nominal: the view's size in pixels by the layout's arithmetic,
  // which fontPoints belongs to.
  void Arrange(int menuBarHeight, QSize nominal, double fontPoints);
  void TakeLanguage() override;

 protected:
  const QList<Cell>& Values() const override { return grid_.Cells(); }
  int Columns() const override;
  CellWords WordsOf(int slot) const override;
  void TakePictureBox(QSize pixels) override { grid_.SetPictureBox(pixels); }

 private:
  Program& program_;
  ThumbGrid& grid_;
};
