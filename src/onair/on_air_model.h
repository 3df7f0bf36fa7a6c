// SPDX-License-Identifier: GPL-3.0-or-later
// The entries of On Air Now as a table model: six columns, plain text, the operators' pictures as far as they have been
// loaded. gridOnAir shows it.
#pragma once

#include <QAbstractTableModel>
#include <QHash>
#include <QImage>

#include "onair/on_air_list.h"

class OnAirModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  using QAbstractTableModel::QAbstractTableModel;

  // False, and nothing is announced, where the entries are those that stand.
  bool Take(const QList<OnAirEntry>& entries);
  const QList<OnAirEntry>& Entries() const { return entries_; }
  // Sides of the cells of the mode, which the map's list has on the right.
  Qt::Alignment ModeSide = Qt::AlignHCenter;
  // Heads and tips in the present language.
  void ShowTexts();
  // The small picture that a file holds; a null one stays an empty cell.
  void SetThumb(const QString& path, const QImage& thumb, int firstRow, int lastRow);
  bool HasThumb(const QString& path) const { return thumbs_.contains(path); }
  // Rows as tab-separated lines, pictures left out, calls with plain zeros.
  QString TextOf(const QList<int>& rows) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  QString Text(const OnAirEntry& entry, OnAirColumn column) const;

  QList<OnAirEntry> entries_;
  QHash<QString, QImage> thumbs_;  // by path
  QStringList heads_;
  QStringList headTips_;
  QString pictureName_;  // what a screen reader hears of one; %1 is the call
};
