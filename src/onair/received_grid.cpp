// SPDX-License-Identifier: GPL-3.0-or-later
#include "onair/received_grid.h"

#include <QHeaderView>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr int kColumns = 5;
constexpr int kFirstColumn = 80;  // pixels: 1200 twips
constexpr int kMostRows = 10;     // shown at a time
constexpr int kGap = 6;           // between label and panel
constexpr auto kHideDelay = 400ms;

}  // namespace

void ReceivedModel::SetRows(const QList<ReceivedRow>& rows) {
  // A refresh that brings the same rows leaves the grid where the user has turned it to.
  if (rows == rows_) return;
  beginResetModel();
  rows_ = rows;
  endResetModel();
}

int ReceivedModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int ReceivedModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kColumns;
}

QVariant ReceivedModel::data(const QModelIndex& index, int role) const {
  if (role != Qt::DisplayRole || index.row() >= rows_.size()) return {};
  const ReceivedRow& row = rows_.at(index.row());
  const std::array<QString, kColumns> cells = {row.call, row.mode, row.megahertz, row.text, row.date};
  return cells[static_cast<std::size_t>(index.column())];
}

ReceivedGrid::ReceivedGrid(QWidget* window) : QFrame(window), lblGrid_(this), gridRx_(this) {
  setObjectName(u"picRx"_s);
  setFrameShape(QFrame::StyledPanel);
  setAutoFillBackground(true);
  lblGrid_.setObjectName(u"lblGrid"_s);
  lblGrid_.setTextFormat(Qt::PlainText);
  gridRx_.setObjectName(u"gridRx"_s);
  gridRx_.setModel(&model_);
  gridRx_.setShowGrid(false);
  // The grid is read beside the map; the keyboard stays with the labels.
  gridRx_.setFocusPolicy(Qt::NoFocus);
  gridRx_.setSelectionMode(QAbstractItemView::NoSelection);
  gridRx_.setEditTriggers(QAbstractItemView::NoEditTriggers);
  gridRx_.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  gridRx_.horizontalHeader()->hide();
  gridRx_.verticalHeader()->hide();
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(4, 4, 4, 4);
  column->addWidget(&lblGrid_);
  column->addWidget(&gridRx_);
  hide_.setSingleShot(true);
  hide_.setInterval(kHideDelay);
  connect(&hide_, &QTimer::timeout, this, [this]() {
    if (!underMouse()) hide();
  });
  hide();
}

void ReceivedGrid::ShowBeside(const QRect& label, const QRect& frame, const QString& title,
                              const QList<ReceivedRow>& rows) {
  hide_.stop();
  lblGrid_.setText(title);
  gridRx_.setAccessibleName(title);
  model_.SetRows(rows);
  const int rowHeight = fontMetrics().height() + 4;
  gridRx_.verticalHeader()->setDefaultSectionSize(rowHeight);
  // A first screenful tells how wide the columns have to be.
  int width = 0;
  for (int i = 0; i < kColumns; ++i) {
    int widest = i == 0 ? kFirstColumn : 0;
    for (int row = 0; row < std::min(kMostRows, model_.rowCount()); ++row) {
      const QString text = model_.index(row, i).data().toString();
      widest = std::max(widest, fontMetrics().horizontalAdvance(text) + 12);
    }
    gridRx_.setColumnWidth(i, widest);
    width += widest;
  }
  width = std::max(width + gridRx_.verticalScrollBar()->sizeHint().width(), lblGrid_.sizeHint().width()) + 14;
  const int shown = std::min(kMostRows, std::max(1, model_.rowCount()));
  wanted_ = QSize(width, lblGrid_.sizeHint().height() + shown * rowHeight + 20);
  Place(label, frame);
  show();
  raise();
}

void ReceivedGrid::Place(const QRect& label, const QRect& frame) {
  const QSize size = wanted_.boundedTo(frame.size());
  QPoint place(label.left(), label.bottom() + kGap);
  if (place.y() + size.height() > frame.bottom()) place.setY(label.top() - kGap - size.height());
  place.setX(std::clamp(place.x(), frame.left(), frame.right() + 1 - size.width()));
  place.setY(std::clamp(place.y(), frame.top(), frame.bottom() + 1 - size.height()));
  setGeometry(QRect(place, size));
}

void ReceivedGrid::HideSoon() {
  if (isVisible()) hide_.start();
}

void ReceivedGrid::leaveEvent(QEvent* event) {
  QFrame::leaveEvent(event);
  HideSoon();
}

bool ReceivedGrid::TakeKey(int key) {
  QScrollBar* bar = gridRx_.verticalScrollBar();
  switch (key) {
    case Qt::Key_Escape:
      hide();
      return true;
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
      bar->triggerAction(key == Qt::Key_PageUp ? QAbstractSlider::SliderPageStepSub
                                               : QAbstractSlider::SliderPageStepAdd);
      return true;
    default:
      return false;
  }
}
