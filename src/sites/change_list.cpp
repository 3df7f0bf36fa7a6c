// SPDX-License-Identifier: GPL-3.0-or-later
#include "sites/change_list.h"

#include <QEvent>
#include <QStyle>
#include <algorithm>
#include <numeric>
#include <vector>

namespace {

constexpr int kBehindLongest = 10;  // pixels
constexpr qsizetype kMeasured = 16;

}  // namespace

void ChangeListModel::Take(int count, const std::function<QString(int)>& textOf) {
  beginResetModel();
  count_ = count;
  textOf_ = textOf;
  unmarked_.clear();
  endResetModel();
}

void ChangeListModel::MarkAll(bool marked) {
  unmarked_.clear();
  for (int row = 0; !marked && row < count_; ++row) unmarked_.insert(row);
  if (count_ > 0) Q_EMIT dataChanged(index(0), index(count_ - 1), {Qt::CheckStateRole});
}

void ChangeListModel::Unmark(const QSet<int>& rows) {
  unmarked_.unite(rows);
  if (count_ > 0) Q_EMIT dataChanged(index(0), index(count_ - 1), {Qt::CheckStateRole});
}

void ChangeListModel::SetRowSize(QSize size) {
  rowSize_ = size;
  Q_EMIT layoutChanged();
}

int ChangeListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : count_;
}

QVariant ChangeListModel::data(const QModelIndex& index, int role) const {
  if (role == Qt::DisplayRole || role == Qt::AccessibleTextRole) return textOf_(index.row());
  if (role == Qt::SizeHintRole && rowSize_.isValid()) return rowSize_;
  if (role == Qt::CheckStateRole && marks_ != Marks::None)
    return static_cast<int>(unmarked_.contains(index.row()) ? Qt::Unchecked : Qt::Checked);
  return {};
}

bool ChangeListModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (role != Qt::CheckStateRole || marks_ != Marks::Free) return false;
  if (value.toInt() == static_cast<int>(Qt::Checked)) {
    unmarked_.remove(index.row());
  } else {
    unmarked_.insert(index.row());
  }
  Q_EMIT dataChanged(index, index, {Qt::CheckStateRole});
  return true;
}

Qt::ItemFlags ChangeListModel::flags(const QModelIndex& index) const {
  const Qt::ItemFlags all = QAbstractListModel::flags(index);
  return marks_ == Marks::Free ? all | Qt::ItemIsUserCheckable : all;
}

ChangeList::ChangeList(const QString& name, ChangeListModel::Marks marks, QWidget* parent)
    : QListView(parent), model_(marks, this) {
  setObjectName(name);
  setUniformItemSizes(true);
  setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setTextElideMode(Qt::ElideNone);
  setTabKeyNavigation(false);
  setModel(&model_);
}

void ChangeList::Take(int count, const std::function<QString(int)>& textOf) {
  model_.Take(count, textOf);
  Measure();
  setCurrentIndex(model_.index(0));
  // The first row is where the keys begin; no row is chosen yet.
  selectionModel()->clearSelection();
}

void ChangeList::changeEvent(QEvent* event) {
  QListView::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) Measure();
}

// Measuring thousands of texts would take longer than a frame; the longest one is among those with the most characters.
void ChangeList::Measure() {
  const int count = model_.rowCount();
  if (count == 0) return;
  std::vector<qsizetype> lengths(static_cast<std::size_t>(count));
  for (int row = 0; row < count; ++row) lengths[static_cast<std::size_t>(row)] = model_.TextOf(row).size();
  std::vector<int> rows(lengths.size());
  std::iota(rows.begin(), rows.end(), 0);
  const auto measured = rows.begin() + std::min(kMeasured, static_cast<qsizetype>(rows.size()));
  std::partial_sort(rows.begin(), measured, rows.end(), [&lengths](int a, int b) {
    return lengths[static_cast<std::size_t>(a)] > lengths[static_cast<std::size_t>(b)];
  });
  int widest = 0;
  for (auto row = rows.begin(); row != measured; ++row)
    widest = std::max(widest, fontMetrics().horizontalAdvance(model_.TextOf(*row)));
  const int mark =
      style()->pixelMetric(QStyle::PM_IndicatorWidth) + 2 * style()->pixelMetric(QStyle::PM_FocusFrameHMargin);
  const int height = std::max(fontMetrics().height(), style()->pixelMetric(QStyle::PM_IndicatorHeight)) + 4;
  model_.SetRowSize(QSize(widest + mark + kBehindLongest, height));
}
