// SPDX-License-Identifier: GPL-3.0-or-later
// The grid of a site's history: five columns of the page's cells, three rows of six in sight, moved by ScrollBar1; for
// the pictures that a site has sent one row and no scroll bar. Form15 holds the only one.
#pragma once

#include <QScrollBar>

#include "display/history.h"
#include "page/cell_grid_view.h"

// The cells, all rows of them.
class HistoryCells : public CellGridView {
  Q_OBJECT

 public:
  HistoryCells(History& history, const LanguageTexts& texts, QWidget* parent);

  // Size of all rows in page units.
  QSizeF Units() const;
  // fontPixels: of the text at this scale.
  void SetScale(double scale, double fontPixels);

 protected:
  const QList<Cell>& Values() const override { return history_.Cells(); }
  int Columns() const override;
  CellWords WordsOf(int slot) const override;
  void TakePictureBox(QSize pixels) override { history_.SetPictureBox(pixels); }

 private:
  History& history_;
};

// The cells behind their window of three rows, and ScrollBar1 beside them.
class HistoryView : public QWidget {
  Q_OBJECT

 public:
  HistoryView(History& history, const LanguageTexts& texts, QWidget* parent);

  HistoryCells& Cells() { return cells_; }
  // The size at which the view's width is that of a page; fontPixels belongs to it.
  QSize SizeFor(int width, double fontPixels);
  // Moves the focus by a screenful of rows, up or down.
  void StepScreen(int direction);
  void FocusFirst();

  QScrollBar ScrollBar1;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  QSizeF InSight() const;
  int BarWidth() const;
  void Place();
  void Scroll();
  void EnsureVisible(int slot);
  int FocusedSlot() const;

  History& history_;
  QWidget clip_;
  HistoryCells cells_;
  double rowHeight_ = 119;  // pixels
  double wheel_ = 0;        // pixels of wheel that have not moved the rows yet
  double nominalScale_ = 1;
  double fontPixels_ = 12;
};
