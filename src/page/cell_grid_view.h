// SPDX-License-Identifier: GPL-3.0-or-later
// A grid of cells, as the page and a site's history show it: makes one ThumbCell for each value, lays them out in page
// units, repaints them together, and moves the focus by arrow keys. Knows neither page nor history; the view that
// derives from it says where the values come from.
#pragma once

#include <QElapsedTimer>
#include <QList>
#include <QTimer>
#include <QWidget>
#include <chrono>

#include "core/language_file.h"
#include "page/thumb_cell.h"

// Measures of a grid.
struct GridMeasures {
  QSizeF units{670, 387};   // inner size of the grid
  double fontPixels = 12;   // height of the cells' text at nominalScale; at any other scale the text scales too
  double nominalScale = 1;  // pixels a unit
};

// The words about a cell that its value does not hold.
struct CellWords {
  QString name;      // accessible name; empty: the call or the caption of the value
  QString modeText;  // mode tag, a blank and the "snr ..." text
  QString sentTime;
};

// The base of picAll and of the history's grid.
class CellGridView : public QWidget {
  Q_OBJECT

 public:
  CellGridView(const LanguageTexts& texts, QWidget* parent);

  // Texts and names again after another language has been read.
  virtual void TakeLanguage();
  ThumbCell* CellAt(int slot) const;
  // Frame of the sender's caption of a cell, on the screen; empty without such a cell.
  QRect SenderPlace(int slot) const;
  // Height of the cells' text in pixels as it is painted now.
  double FontPixels() const { return fontPixels_; }

 Q_SIGNALS:
  void CellPressed(int slot);
  // Ctrl and a press, or Ctrl and Space: the cell's picture is to be compared with another one.
  void MarkPressed(int slot);
  void SenderPressed(int slot);
  // The light of the site's cam was pressed.
  void CamPressed(int slot);
  // The pointer has begun to drag the cell's picture.
  void DragWanted(int slot);
  // The right button, or the menu key, on a cell; at: a point of the screen.
  void MenuWanted(int slot, QPoint at, bool byKeyboard);
  void Hovered(int slot, TipPart part);
  void HoverLeft();
  void FocusChanged(int slot, bool in);

 protected:
  // The values of the cells, in their order.
  virtual const QList<Cell>& Values() const = 0;
  virtual int Columns() const = 0;
  virtual CellWords WordsOf(int slot) const = 0;
  // Size in device pixels of a cell's picture on the screen, whenever it may have changed.
  virtual void TakePictureBox(QSize pixels) = 0;

  void SetMeasures(const GridMeasures& measures);
  // Makes as many cells as there are values.
  void MakeCells();
  void UpdateCell(int slot);
  void Place();
  void resizeEvent(QResizeEvent* event) override;

 private:
  void RefreshCells();
  std::chrono::milliseconds UntilNextFrame() const;
  void MoveFocus(int slot, Qt::Key key);

  const LanguageTexts& texts_;
  QList<ThumbCell*> cells_;
  GridMeasures measures_;
  double fontPixels_ = 12;
  QTimer nextFrame_;
  QElapsedTimer lastFrame_;  // since the last repaint for changed cells; invalid before the first
};
