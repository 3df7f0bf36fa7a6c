// SPDX-License-Identifier: GPL-3.0-or-later
// The panel with gridRx: what a station received in the last twelve hours, beside its label on the propagation map.
#pragma once

#include <QAbstractTableModel>
#include <QFrame>
#include <QLabel>
#include <QTableView>
#include <QTimer>

#include "onair/propagation_paths.h"

// The rows of gridRx.
class ReceivedModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  void SetRows(const QList<ReceivedRow>& rows);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;

 private:
  QList<ReceivedRow> rows_;
};

class ReceivedGrid : public QFrame {
  Q_OBJECT

 public:
  explicit ReceivedGrid(QWidget* window);

  // Near a label, inside of the map's frame; both in pixels of the window.
  void ShowBeside(const QRect& label, const QRect& frame, const QString& title, const QList<ReceivedRow>& rows);
  // The same grid beside a label that has moved.
  void Place(const QRect& label, const QRect& frame);
  // A little later, so that the pointer can move from the label into the grid; not while it is there.
  void HideSoon();
  // Keys of the map's label: Escape closes the grid, Page Up and Page Down turn it. False: another key.
  bool TakeKey(int key);

 protected:
  void leaveEvent(QEvent* event) override;

 private:
  QLabel lblGrid_;
  QTableView gridRx_;
  ReceivedModel model_;
  QTimer hide_;
  QSize wanted_;  // where the frame has room for it
};
