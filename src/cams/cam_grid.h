// SPDX-License-Identifier: GPL-3.0-or-later
// The grid of the two windows of cams: five columns of a light and a call each, filled row by row, with a scroll bar
// above twenty rows. The windows fill it and turn its lights.
#pragma once

#include <QAbstractTableModel>
#include <QList>
#include <QStyledItemDelegate>
#include <QTableView>

#include "cams/cam_list.h"

// The cells as a table.
class CamModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  using QAbstractTableModel::QAbstractTableModel;

  void Take(const QList<CamCell>& cells);
  const QList<CamCell>& Cells() const { return cells_; }
  // The cell of a place; nullptr behind the last one.
  const CamCell* CellAt(const QModelIndex& index) const;
  // Turns the light of the first cell of a call.
  void SetLight(const QString& call, CamLight light);
  void SetAllLights(CamLight light);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

 private:
  QList<CamCell> cells_;
};

// Paints a cell.
class CamPainter : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

// The grid itself: pic1 is what it shows, ScrollBar1 moves it.
class CamGrid : public QTableView {
  Q_OBJECT

 public:
  explicit CamGrid(QWidget* parent);

  CamModel& Model() { return model_; }
  // Size in pixels at which all cells are seen, or twenty rows and the scroll bar.
  QSize WantedSize() const;

 Q_SIGNALS:
  // A cell was pressed by mouse or key.
  void CellPressed(const CamCell& cell);

 protected:
  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  void SizeCells();

  CamModel model_;
  CamPainter painter_;
  int turned_ = 0;  // by the wheel, in eighths of a degree, since its last step
};
