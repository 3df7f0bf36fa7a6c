// SPDX-License-Identifier: GPL-3.0-or-later
#include "onair/on_air_grid.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>
#include <cmath>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr QColor kBack(220, 220, 220);
constexpr double kTwips = 15;
// Widths in twips, with letters of which one line is this many pixels high.
constexpr std::array kColumnTwips{1000, 600, 850, 550, 550, 550};
constexpr int kLetterHeight = 13;
constexpr QSize kThumb(32, 24);

}  // namespace

OnAirGrid::OnAirGrid(PictureTool& tool, QWidget* parent) : QTableView(parent), tool_(tool) {
  setObjectName(u"gridOnAir"_s);
  setModel(&model_);
  setSelectionBehavior(SelectRows);
  setSelectionMode(ExtendedSelection);
  setEditTriggers(NoEditTriggers);
  setTabKeyNavigation(false);
  setWordWrap(false);
  setMouseTracking(true);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setIconSize(kThumb);
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  horizontalHeader()->setSectionsClickable(true);
  horizontalHeader()->setHighlightSections(false);
  horizontalHeader()->setStretchLastSection(true);
  horizontalHeader()->setMinimumSectionSize(1);
  // The given background is light, so the letters are dark on a dark desktop too.
  QPalette look = palette();
  look.setColor(QPalette::Base, kBack);
  look.setColor(QPalette::Text, Qt::black);
  setPalette(look);
  SizeColumns();

  thumbs_.setSingleShot(true);
  thumbs_.setInterval(50ms);
  connect(&thumbs_, &QTimer::timeout, this, &OnAirGrid::LoadThumbs);
  connect(horizontalHeader(), &QHeaderView::sectionClicked, this,
          [this](int section) { Q_EMIT HeadClicked(static_cast<OnAirColumn>(section)); });
  connect(this, &QTableView::clicked, this,
          [this](const QModelIndex& index) { Q_EMIT RowPressed(index.row(), false); });
}

int OnAirGrid::ColumnPixels(int column) const {
  const double scale = std::max(1.0, static_cast<double>(fontMetrics().height()) / kLetterHeight);
  return static_cast<int>(std::lround(kColumnTwips[static_cast<std::size_t>(column)] / kTwips * scale));
}

void OnAirGrid::SizeColumns() {
  for (int i = 0; i < kOnAirColumns; ++i) setColumnWidth(i, ColumnPixels(i));
  const int height = std::max(kThumb.height(), fontMetrics().height()) + 2;
  verticalHeader()->setMinimumSectionSize(height);
  verticalHeader()->setDefaultSectionSize(height);
}

int OnAirGrid::WantedWidth() const {
  int columns = 0;
  for (int i = 0; i < kOnAirColumns; ++i) {
    if (!isColumnHidden(i)) columns += ColumnPixels(i);
  }
  return columns + verticalScrollBar()->sizeHint().width() + 2 * frameWidth();
}

void OnAirGrid::ShowOrder(const OnAirOrder& order) {
  QHeaderView& head = *horizontalHeader();
  head.setSortIndicatorShown(order.column.has_value());
  if (order.column) {
    head.setSortIndicator(static_cast<int>(*order.column), order.descending ? Qt::DescendingOrder : Qt::AscendingOrder);
  }
}

QRect OnAirGrid::RowPlace(int row) const {
  const QRect cell(0, rowViewportPosition(row), viewport()->width(), rowHeight(row));
  return {viewport()->mapToGlobal(cell.topLeft()), cell.size()};
}

MenuRequest OnAirGrid::MenuOf(int row, const QPoint& at, bool byKeyboard) {
  const OnAirEntry& entry = model_.Entries().at(row);
  MenuRequest request;
  request.menu = MenuId::ListCall;
  request.subject.caller = entry.call;
  request.subject.placed = entry.lat != 0 || entry.lon != 0;
  request.owner = window();
  request.name = entry.shownCall;
  request.at = at;
  request.byKeyboard = byKeyboard;
  return request;
}

void OnAirGrid::Take(const QList<OnAirEntry>& entries) {
  restoring_ = true;
  if (model_.Take(entries)) {
    Q_EMIT Moved();
    Restore();
    thumbs_.start();
    hovered_ = -1;  // another station may now be under the resting pointer
  }
  restoring_ = false;
}

// The same call may stand in several rows: its first one counts.
void OnAirGrid::Restore() {
  const QList<OnAirEntry>& entries = model_.Entries();
  int top = -1;
  QModelIndex current;
  QItemSelection selection;
  int run = 0;  // of selected rows that ends before this one: thousands of single ranges would take seconds
  const auto endRun = [&](int row) {
    if (run > 0) selection.select(model_.index(row - run, 0), model_.index(row - 1, kOnAirColumns - 1));
    run = 0;
  };
  for (int row = 0; row < entries.size(); ++row) {
    const QString& call = entries.at(row).call;
    if (top < 0 && call == topCall_) top = row;
    if (!current.isValid() && call == currentCall_) current = model_.index(row, 0);
    if (selectedCalls_.contains(call)) {
      ++run;
    } else {
      endRun(row);
    }
  }
  endRun(static_cast<int>(entries.size()));
  doItemsLayout();
  // Where a station has gone off the air, the place is kept by its number.
  if (current.isValid()) currentRow_ = current.row();
  if (top >= 0) topRow_ = top;
  const int last = static_cast<int>(entries.size()) - 1;
  if (!current.isValid() && !currentCall_.isEmpty()) current = model_.index(std::min(currentRow_, last), 0);
  if (top < 0 && !topCall_.isEmpty()) top = std::min(topRow_, last);
  if (current.isValid()) selectionModel()->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
  selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
  if (topCall_.isEmpty()) scrollToTop();
  if (top >= 0) scrollTo(model_.index(top, 0), PositionAtTop);
}

void OnAirGrid::RememberTop() {
  const int row = rowAt(0);
  // Who looks at the beginning goes on to do so, whoever stands there next.
  topCall_ = row > 0 && row < model_.Entries().size() ? model_.Entries().at(row).call : QString();
  topRow_ = row;
}

void OnAirGrid::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
  QTableView::selectionChanged(selected, deselected);
  if (restoring_) return;
  selectedCalls_.clear();
  for (const QModelIndex& index : selectionModel()->selectedRows()) {
    selectedCalls_.insert(model_.Entries().at(index.row()).call);
  }
}

void OnAirGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTableView::currentChanged(current, previous);
  if (restoring_ || !current.isValid()) return;
  currentCall_ = model_.Entries().at(current.row()).call;
  currentRow_ = current.row();
  Q_EMIT Moved();
}

void OnAirGrid::scrollContentsBy(int dx, int dy) {
  QTableView::scrollContentsBy(dx, dy);
  thumbs_.start();
  if (restoring_) return;
  RememberTop();
  Q_EMIT Moved();
}

void OnAirGrid::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  thumbs_.start();
}

// A tip that the keyboard has opened would stay above whatever other program the user turns to.
void OnAirGrid::focusOutEvent(QFocusEvent* event) {
  QTableView::focusOutEvent(event);
  Q_EMIT Moved();
}

void OnAirGrid::changeEvent(QEvent* event) {
  QTableView::changeEvent(event);
  if (event->type() == QEvent::FontChange) SizeColumns();
}

int OnAirGrid::LastVisibleRow() const {
  const int last = rowAt(viewport()->height() - 1);
  return last < 0 ? model_.rowCount() - 1 : last;
}

// Only what can be seen, and a row beyond it at either end.
void OnAirGrid::LoadThumbs() {
  const int first = std::max(0, rowAt(0));
  const int last = LastVisibleRow();
  for (int row = first; row <= last && row < model_.rowCount(); ++row) {
    const QString path = model_.Entries().at(row).picture;
    if (path.isEmpty() || model_.HasThumb(path) || loading_.contains(path)) continue;
    loading_.insert(path);
    PictureOptions options;
    options.wanted = [this, path]() {
      const auto shows = [&path](const OnAirEntry& entry) { return entry.picture == path; };
      const QList<OnAirEntry> seen = model_.Entries().mid(std::max(0, rowAt(0)), LastVisibleRow() - rowAt(0) + 1);
      return std::any_of(seen.begin(), seen.end(), shows);
    };
    tool_.View(
        path, kThumb * devicePixelRatioF(), this,
        [this, path](const PictureAnswer& answer) {
          loading_.remove(path);
          if (answer.dropped) return;  // asked for again when its row is seen again
          QImage thumb = answer.ok && !answer.frames.isEmpty() ? answer.frames.first().image : QImage();
          thumb.setDevicePixelRatio(devicePixelRatioF());
          model_.SetThumb(path, thumb, rowAt(0), LastVisibleRow());
        },
        options);
  }
}

void OnAirGrid::CopyRows() const {
  QList<int> rows;
  for (const QModelIndex& index : selectionModel()->selectedRows()) rows.append(index.row());
  if (rows.isEmpty()) return;
  std::sort(rows.begin(), rows.end());
  QGuiApplication::clipboard()->setText(model_.TextOf(rows));
}

void OnAirGrid::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  if (event->matches(QKeySequence::Copy)) return CopyRows();
  if (event->modifiers() == Qt::ControlModifier && key >= Qt::Key_1 && key < Qt::Key_1 + kOnAirColumns) {
    Q_EMIT HeadClicked(static_cast<OnAirColumn>(key - Qt::Key_1));
    return;
  }
  if ((key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space) && currentIndex().isValid()) {
    Q_EMIT RowPressed(currentIndex().row(), true);
    return;
  }
  // Escape and F1 are the window's; letters would begin a search that no column is made for.
  if (key == Qt::Key_Escape || key == Qt::Key_F1) return event->ignore();
  QTableView::keyPressEvent(event);
}

void OnAirGrid::contextMenuEvent(QContextMenuEvent* event) {
  const bool byKeyboard = event->reason() == QContextMenuEvent::Keyboard;
  const QModelIndex index = byKeyboard ? currentIndex() : indexAt(viewport()->mapFromGlobal(event->globalPos()));
  if (!index.isValid()) return;
  if (byKeyboard) scrollTo(index);
  const QRect place = RowPlace(index.row());
  Q_EMIT MenuWanted(index.row(), byKeyboard ? place.bottomLeft() : event->globalPos(), byKeyboard);
}

void OnAirGrid::mouseMoveEvent(QMouseEvent* event) {
  QTableView::mouseMoveEvent(event);
  const int row = rowAt(event->position().toPoint().y());
  if (row == hovered_) return;
  hovered_ = row;
  Q_EMIT RowHovered(row);
}

void OnAirGrid::leaveEvent(QEvent* event) {
  QTableView::leaveEvent(event);
  hovered_ = -1;
  Q_EMIT RowHovered(-1);
}
