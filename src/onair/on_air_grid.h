// SPDX-License-Identifier: GPL-3.0-or-later
// gridOnAir: the table of On Air Now. Says which row is under the pointer, clicked or asked about by keyboard, keeps
// the rows that the user has chosen through a rebuild, and has the pictures of the visible rows loaded. frmOnAirNow
// owns one.
#pragma once

#include <QSet>
#include <QTableView>
#include <QTimer>

#include "onair/on_air_model.h"
#include "platform/picture/picture_tool.h"
#include "ui/menu_opener.h"

class OnAirGrid : public QTableView {
  Q_OBJECT

 public:
  OnAirGrid(PictureTool& tool, QWidget* parent);

  OnAirModel& Model() { return model_; }
  // The entries, with top row, selection and focus where the calls now stand.
  void Take(const QList<OnAirEntry>& entries);
  void ShowOrder(const OnAirOrder& order);
  // Pixels that all columns and the scroll bar take with the present letters.
  int WantedWidth() const;
  // Where a row is on the screen.
  QRect RowPlace(int row) const;
  // The menu of a row's call, for the answer to MenuWanted.
  MenuRequest MenuOf(int row, const QPoint& at, bool byKeyboard);

 Q_SIGNALS:
  void HeadClicked(OnAirColumn head);
  // A click, Return or Space.
  void RowPressed(int row, bool byKeyboard);
  // The pointer is over this row, or over none: -1.
  void RowHovered(int row);
  // at: on the screen.
  void MenuWanted(int row, const QPoint& at, bool byKeyboard);
  // Whatever stands beside a row no longer does.
  void Moved();

 protected:
  void changeEvent(QEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

 private:
  int ColumnPixels(int column) const;
  void SizeColumns();
  void CopyRows() const;
  void RememberTop();
  void Restore();
  void LoadThumbs();
  int LastVisibleRow() const;

  PictureTool& tool_;
  OnAirModel model_;
  QTimer thumbs_;  // the visible rows have changed
  QSet<QString> loading_;
  // What the user has chosen, by call: rows may be gone while only one of the sources has answered.
  QString topCall_;
  QString currentCall_;
  QSet<QString> selectedCalls_;
  int topRow_ = 0;
  int currentRow_ = 0;
  bool restoring_ = false;
  int hovered_ = -1;
};
