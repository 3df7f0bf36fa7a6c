// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/history_view.h"

#include <QStyle>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "page/thumb_layout.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kColumns = 5;
constexpr int kRowsInSight = 3;
constexpr double kWidth = 670;  // of the page's layouts with five columns
constexpr double kNotch = 120;  // of a wheel, which moves by a row
constexpr double kMargin = 2;   // above the first and below the last row

// Size of so many rows in page units.
QSizeF RowsSize(int rows) {
  return {kWidth, GridCellRect(kColumns, (rows - 1) * kColumns).bottom() + kMargin};
}

}  // namespace

HistoryCells::HistoryCells(History& history, const LanguageTexts& texts, QWidget* parent)
    : CellGridView(texts, parent), history_(history) {
  setObjectName(u"pic15"_s);
  connect(&history_, &History::Opened, this, &HistoryCells::MakeCells);
  connect(&history_, &History::CellChanged, this, &HistoryCells::UpdateCell);
}

int HistoryCells::Columns() const {
  return kColumns;
}

QSizeF HistoryCells::Units() const {
  return RowsSize(std::max(1, history_.Count() / kColumns));
}

void HistoryCells::SetScale(double scale, double fontPixels) {
  GridMeasures measures;
  measures.units = Units();
  measures.fontPixels = fontPixels;
  measures.nominalScale = scale;
  SetMeasures(measures);
}

// The call first, then the number by which the thirty cells differ.
CellWords HistoryCells::WordsOf(int slot) const {
  const History::Fields& fields = history_.FieldsOf(slot);
  return {history_.Site() + u' ' + Values().at(slot).lblCall, fields.ModeText, fields.SentTime};
}

HistoryView::HistoryView(History& history, const LanguageTexts& texts, QWidget* parent)
    : QWidget(parent), ScrollBar1(Qt::Vertical, this), history_(history), clip_(this), cells_(history, texts, &clip_) {
  ScrollBar1.setObjectName(u"ScrollBar1"_s);
  connect(&ScrollBar1, &QScrollBar::valueChanged, this, &HistoryView::Scroll);
  connect(&history_, &History::Opened, this, [this]() {
    ScrollBar1.setVisible(!history_.TxMode());
    ScrollBar1.setValue(0);
    Place();
  });
  connect(&cells_, &HistoryCells::FocusChanged, this, [this](int slot, bool in) {
    if (in) EnsureVisible(slot);
  });
}

QSizeF HistoryView::InSight() const {
  return history_.TxMode() ? RowsSize(1) : RowsSize(kRowsInSight);
}

int HistoryView::BarWidth() const {
  return history_.TxMode() ? 0 : style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
}

QSize HistoryView::SizeFor(int width, double fontPixels) {
  nominalScale_ = (width - BarWidth()) / kWidth;
  fontPixels_ = fontPixels;
  return {width, static_cast<int>(std::lround(InSight().height() * nominalScale_))};
}

void HistoryView::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  Place();
}

void HistoryView::Place() {
  const int bar = BarWidth();
  const QSize room(std::max(1, width() - bar), std::max(1, height()));
  clip_.setGeometry(QRect(QPoint(0, 0), room));
  ScrollBar1.setGeometry(room.width(), 0, bar, room.height());
  const QSizeF sight = InSight();
  const double scale = std::min(room.width() / sight.width(), room.height() / sight.height());
  const int tall = static_cast<int>(std::lround(cells_.Units().height() * scale));
  rowHeight_ = (RowsSize(2).height() - RowsSize(1).height()) * scale;
  ScrollBar1.setRange(0, std::max(0, tall - room.height()));
  ScrollBar1.setPageStep(room.height());
  ScrollBar1.setSingleStep(static_cast<int>(std::lround(rowHeight_)));
  cells_.setGeometry(0, -ScrollBar1.value(), room.width(), tall);
  cells_.SetScale(nominalScale_, fontPixels_);
}

void HistoryView::Scroll() {
  cells_.move(0, -ScrollBar1.value());
}

// Not handed to ScrollBar1, which would hand it back where it cannot move any further.
void HistoryView::wheelEvent(QWheelEvent* event) {
  event->accept();
  if (!ScrollBar1.isVisible()) return;
  wheel_ += event->pixelDelta().isNull() ? event->angleDelta().y() * rowHeight_ / kNotch : event->pixelDelta().y();
  const int pixels = static_cast<int>(wheel_);
  wheel_ -= pixels;
  ScrollBar1.setValue(ScrollBar1.value() - pixels);
}

// By whole rows.
void HistoryView::EnsureVisible(int slot) {
  const int row = slot / kColumns;
  const int first = static_cast<int>(std::lround(ScrollBar1.value() / rowHeight_));
  const int wanted = std::clamp(first, row - kRowsInSight + 1, row);
  ScrollBar1.setValue(static_cast<int>(std::lround(wanted * rowHeight_)));
}

int HistoryView::FocusedSlot() const {
  for (int slot = 0; slot < history_.Count(); ++slot) {
    const ThumbCell* cell = cells_.CellAt(slot);
    if (cell != nullptr && cell->hasFocus()) return slot;
  }
  return -1;
}

void HistoryView::StepScreen(int direction) {
  const int step = direction * kRowsInSight * kColumns;
  const int target = std::clamp(FocusedSlot() + step, 0, std::max(0, history_.Count() - 1));
  ScrollBar1.setValue(ScrollBar1.value() + direction * static_cast<int>(std::lround(kRowsInSight * rowHeight_)));
  if (ThumbCell* cell = cells_.CellAt(target)) cell->setFocus(Qt::TabFocusReason);
}

void HistoryView::FocusFirst() {
  if (ThumbCell* cell = cells_.CellAt(0)) cell->setFocus(Qt::OtherFocusReason);
}
