// SPDX-License-Identifier: GPL-3.0-or-later
// picAll: the page of cells. Lays them out in page units, the same at every window size, and moves the focus by arrow
// keys.
#pragma once

#include <QElapsedTimer>
#include <QList>
#include <QTimer>
#include <QWidget>
#include <chrono>

#include "core/program.h"
#include "page/thumb_cell.h"
#include "page/thumb_grid.h"

// The widget picAll: one ThumbCell for each slot of the layout.
class PageView : public QWidget {
  Q_OBJECT

 public:
  PageView(Program& program, ThumbGrid& grid, QWidget* parent);

  // Takes the units and fonts of the present layout. nominal: the view's size in pixels by the layout's arithmetic,
  // which fontPoints belongs to.
  void Arrange(int menuBarHeight, QSize nominal, double fontPoints);
  // Texts and names again after another language has been read.
  void TakeLanguage();
  ThumbCell* CellAt(int slot) const;
  // Frame of the sender's caption of a cell, on the screen; empty without such a cell.
  QRect SenderPlace(int slot) const;
  // Height of the cells' text in pixels as it is painted now.
  double FontPixels() const { return fontPixels_; }

 Q_SIGNALS:
  void CellPressed(int slot);
  void SenderPressed(int slot);
  // The right button, or the menu key, on a cell; at: a point of the screen.
  void MenuWanted(int slot, QPoint at, bool byKeyboard);
  void Hovered(int slot, TipPart part);
  void HoverLeft();
  void FocusChanged(int slot, bool in);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void MakeCells();
  void UpdateCell(int slot);
  void RefreshCells();
  std::chrono::milliseconds UntilNextFrame() const;
  void Place();
  void MoveFocus(int slot, Qt::Key key);

  Program& program_;
  ThumbGrid& grid_;
  QList<ThumbCell*> cells_;
  QSizeF units_{670, 387};
  double nominalScale_ = 1;
  double fontPoints_ = 9;
  double fontPixels_ = 12;
  QTimer nextFrame_;
  QElapsedTimer lastFrame_;  // since the last repaint for changed cells; invalid before the first
};
