// SPDX-License-Identifier: GPL-3.0-or-later
#include "onair/on_air_model.h"

#include "ui/plain_tip.h"

using namespace Qt::StringLiterals;

bool OnAirModel::Take(const QList<OnAirEntry>& entries) {
  if (entries == entries_) return false;
  beginResetModel();
  entries_ = entries;
  endResetModel();
  return true;
}

void OnAirModel::ShowTexts() {
  heads_ = {tr("Call"), tr("Mode"), tr("MHz"), tr("Az"), tr("Pic"), tr("Info")};
  headTips_.clear();
  for (qsizetype i = 0; i < heads_.size(); ++i) headTips_.append(tr("Sort by this column (Ctrl+%1)").arg(i + 1));
  pictureName_ = tr("Picture of %1");
  Q_EMIT headerDataChanged(Qt::Horizontal, 0, kOnAirColumns - 1);
}

void OnAirModel::SetThumb(const QString& path, const QImage& thumb, int firstRow, int lastRow) {
  thumbs_.insert(path, thumb);
  const int column = static_cast<int>(OnAirColumn::Picture);
  for (int row = std::max(0, firstRow); row <= lastRow && row < entries_.size(); ++row) {
    if (entries_.at(row).picture == path) Q_EMIT dataChanged(index(row, column), index(row, column));
  }
}

QString OnAirModel::TextOf(const QList<int>& rows) const {
  QStringList lines;
  for (const int row : rows) {
    const OnAirEntry& entry = entries_.at(row);
    QStringList cells{entry.call, entry.mode, entry.frequency, entry.azimuth, entry.extra};
    // A stranger's tab would make a cell of its own.
    for (QString& cell : cells) cell.replace(u'\t', u' ').replace(u'\n', u' ').replace(u'\r', u' ');
    lines.append(cells.join(u'\t'));
  }
  return lines.join(u'\n');
}

int OnAirModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(entries_.size());
}

int OnAirModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kOnAirColumns;
}

QString OnAirModel::Text(const OnAirEntry& entry, OnAirColumn column) const {
  switch (column) {
    case OnAirColumn::Call:
      return entry.shownCall;
    case OnAirColumn::Mode:
      return entry.mode;
    case OnAirColumn::Frequency:
      return entry.frequency;
    case OnAirColumn::Azimuth:
      return entry.azimuth;
    case OnAirColumn::Picture:
      return {};
    case OnAirColumn::Extra:
      return entry.extra;
  }
  return {};
}

QVariant OnAirModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() >= entries_.size()) return {};
  const OnAirEntry& entry = entries_.at(index.row());
  const auto column = static_cast<OnAirColumn>(index.column());
  switch (role) {
    case Qt::DisplayRole:
      return Text(entry, column);
    case Qt::ToolTipRole:
      return column == OnAirColumn::Extra ? PlainTip(entry.extra) : QString();
    case Qt::DecorationRole: {
      if (column != OnAirColumn::Picture) return {};
      const QImage thumb = thumbs_.value(entry.picture);
      return thumb.isNull() ? QVariant() : thumb;
    }
    case Qt::AccessibleTextRole:
      if (column != OnAirColumn::Picture) return Text(entry, column);
      return entry.picture.isEmpty() ? QString() : pictureName_.arg(entry.shownCall);
    case Qt::TextAlignmentRole: {
      const bool right = column == OnAirColumn::Frequency || column == OnAirColumn::Azimuth;
      const Qt::Alignment side = right ? Qt::AlignRight : column == OnAirColumn::Mode ? ModeSide : Qt::AlignLeft;
      return QVariant::fromValue(side | Qt::AlignVCenter);
    }
    default:
      return {};
  }
}

QVariant OnAirModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) return {};
  if (role == Qt::DisplayRole || role == Qt::AccessibleTextRole) return heads_.value(section);
  if (role == Qt::ToolTipRole) return headTips_.value(section);
  return {};
}
