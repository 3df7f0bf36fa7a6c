// SPDX-License-Identifier: GPL-3.0-or-later
#include "page/cell_grid_view.h"

#include <cmath>

#include "page/thumb_layout.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {
// Between two repaints of the grid for changed cells. Thirty-six quick answers then cost one of them, not a dozen.
constexpr auto kFrame = 16ms;
}  // namespace

CellGridView::CellGridView(const LanguageTexts& texts, QWidget* parent) : QWidget(parent), texts_(texts) {
  nextFrame_.setSingleShot(true);
  nextFrame_.setTimerType(Qt::PreciseTimer);
  connect(&nextFrame_, &QTimer::timeout, this, &CellGridView::RefreshCells);
}

void CellGridView::SetMeasures(const GridMeasures& measures) {
  measures_ = measures;
  Place();
}

void CellGridView::TakeLanguage() {
  for (int slot = 0; slot < cells_.size(); ++slot) UpdateCell(slot);
  Place();
}

ThumbCell* CellGridView::CellAt(int slot) const {
  return slot >= 0 && slot < cells_.size() ? cells_.at(slot) : nullptr;
}

QRect CellGridView::SenderPlace(int slot) const {
  const ThumbCell* cell = CellAt(slot);
  if (cell == nullptr) return {};
  const QRect place = cell->SenderPlace();
  return {cell->mapToGlobal(place.topLeft()), place.size()};
}

void CellGridView::MakeCells() {
  const qsizetype count = Values().size();
  while (cells_.size() > count) delete cells_.takeLast();
  while (cells_.size() < count) {
    auto* cell = new ThumbCell(static_cast<int>(cells_.size()), this);
    connect(cell, &ThumbCell::Pressed, this, &CellGridView::CellPressed);
    connect(cell, &ThumbCell::MarkPressed, this, &CellGridView::MarkPressed);
    connect(cell, &ThumbCell::SenderPressed, this, &CellGridView::SenderPressed);
    connect(cell, &ThumbCell::CamPressed, this, &CellGridView::CamPressed);
    connect(cell, &ThumbCell::DragWanted, this, &CellGridView::DragWanted);
    connect(cell, &ThumbCell::MenuWanted, this, &CellGridView::MenuWanted);
    connect(cell, &ThumbCell::Hovered, this, &CellGridView::Hovered);
    connect(cell, &ThumbCell::HoverLeft, this, &CellGridView::HoverLeft);
    connect(cell, &ThumbCell::FocusChanged, this, &CellGridView::FocusChanged);
    connect(cell, &ThumbCell::Moved, this, &CellGridView::MoveFocus);
    cells_.append(cell);
    cell->show();
  }
  for (int slot = 0; slot < cells_.size(); ++slot) UpdateCell(slot);
  Place();
}

void CellGridView::UpdateCell(int slot) {
  ThumbCell* cell = CellAt(slot);
  if (cell == nullptr) return;
  Cell shown = Values().at(slot);
  shown.lblError = shown.box.caption.Text(texts_);
  shown.lblInfo = shown.box.first.Text(texts_);
  shown.lblInfo2 = shown.box.second.Text(texts_);
  if (shown.errorBox && shown.box.noSandbox) {
    shown.boxReason = tr("Pictures are not decoded: this system has no sandbox for the decoder (no seccomp filters)");
  }
  if (!shown.fromSender) shown.lblFrom.clear();  // otherwise the bare word "From" would be painted
  cell->SetCell(shown);
  if (!nextFrame_.isActive()) nextFrame_.start(UntilNextFrame());
  const CellWords words = WordsOf(slot);
  cell->SetName(words.name);
  cell->SetDetails(words.modeText, words.sentTime.isEmpty() ? QString() : words.sentTime + u" UTC"_s,
                   texts_[TextLine::kEmptyCellName]);
}

// None when the last one is long past: the first picture of a grid is not to wait for others.
std::chrono::milliseconds CellGridView::UntilNextFrame() const {
  if (!lastFrame_.isValid()) return 0ms;
  return std::max(0ms, kFrame - std::chrono::milliseconds(lastFrame_.elapsed()));
}

// A cell whose value has come back to what the screen shows meanwhile costs nothing.
void CellGridView::RefreshCells() {
  lastFrame_.start();
  for (ThumbCell* cell : std::as_const(cells_)) cell->Refresh();
}

void CellGridView::Place() {
  const QSizeF& units = measures_.units;
  if (units.isEmpty() || cells_.isEmpty()) return;
  const double scale = std::min(width() / units.width(), height() / units.height());
  if (scale <= 0) return;
  const QPointF origin((width() - units.width() * scale) / 2, (height() - units.height() * scale) / 2);
  CellTheme theme;
  theme.scale = scale;
  theme.font = font();
  theme.fontPixels = measures_.fontPixels * (measures_.nominalScale > 0 ? scale / measures_.nominalScale : 1);
  fontPixels_ = theme.fontPixels;
  theme.camTip = texts_[TextLine::kCamTip];
  theme.connectingText = texts_[TextLine::kConnectingText];
  for (ThumbCell* cell : std::as_const(cells_)) {
    const QRectF inUnits = GridCellRect(Columns(), cell->Slot());
    const QRectF place(origin + inUnits.topLeft() * scale, inUnits.size() * scale);
    cell->setGeometry(
        QRect(QPoint(static_cast<int>(std::floor(place.left())), static_cast<int>(std::floor(place.top()))),
              QPoint(static_cast<int>(std::ceil(place.right())) - 1, static_cast<int>(std::ceil(place.bottom())) - 1)));
    cell->SetTheme(theme);
  }
  const double pixels = scale * devicePixelRatioF();
  TakePictureBox(QSize(static_cast<int>(120 * pixels), static_cast<int>(90 * pixels)));
}

void CellGridView::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  Place();
}

void CellGridView::MoveFocus(int slot, Qt::Key key) {
  const int columns = Columns();
  const int last = static_cast<int>(cells_.size()) - 1;
  const int target = key == Qt::Key_Left    ? slot - 1
                     : key == Qt::Key_Right ? slot + 1
                     : key == Qt::Key_Up    ? slot - columns
                     : key == Qt::Key_Down  ? slot + columns
                     : key == Qt::Key_Home  ? 0
                                            : last;
  if (ThumbCell* cell = CellAt(target)) cell->setFocus(Qt::TabFocusReason);
}
