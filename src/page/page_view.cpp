// SPDX-License-Identifier: GPL-3.0-or-later
#include "page/page_view.h"

#include <QApplication>
#include <cmath>

#include "page/thumb_layout.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {
// Between two repaints of the page for changed cells. Thirty-six quick answers then cost one of them, not a dozen.
constexpr auto kFrame = 16ms;
}  // namespace

PageView::PageView(Program& program, ThumbGrid& grid, QWidget* parent)
    : QWidget(parent), program_(program), grid_(grid) {
  setObjectName(u"picAll"_s);
  nextFrame_.setSingleShot(true);
  nextFrame_.setTimerType(Qt::PreciseTimer);
  connect(&nextFrame_, &QTimer::timeout, this, &PageView::RefreshCells);
  connect(&grid_, &ThumbGrid::GridMade, this, &PageView::MakeCells);
  connect(&grid_, &ThumbGrid::CellChanged, this, &PageView::UpdateCell);
}

void PageView::Arrange(int menuBarHeight, QSize nominal, double fontPoints) {
  units_ = PageUnits(program_.config.ThumbLayout, menuBarHeight);
  fontPoints_ = fontPoints;
  setAccessibleName(program_.language[TextLine::kPageGridName]);
  nominalScale_ = units_.isEmpty() ? 1 : std::min(nominal.width() / units_.width(), nominal.height() / units_.height());
  Place();
}

void PageView::TakeLanguage() {
  setAccessibleName(program_.language[TextLine::kPageGridName]);
  for (int slot = 0; slot < cells_.size(); ++slot) UpdateCell(slot);
  Place();
}

ThumbCell* PageView::CellAt(int slot) const {
  return slot >= 0 && slot < cells_.size() ? cells_.at(slot) : nullptr;
}

QRect PageView::SenderPlace(int slot) const {
  const ThumbCell* cell = CellAt(slot);
  if (cell == nullptr) return {};
  const QRect place = cell->SenderPlace();
  return {cell->mapToGlobal(place.topLeft()), place.size()};
}

void PageView::MakeCells() {
  const qsizetype count = grid_.Cells().size();
  while (cells_.size() > count) delete cells_.takeLast();
  while (cells_.size() < count) {
    auto* cell = new ThumbCell(static_cast<int>(cells_.size()), this);
    connect(cell, &ThumbCell::Pressed, this, &PageView::CellPressed);
    connect(cell, &ThumbCell::SenderPressed, this, &PageView::SenderPressed);
    connect(cell, &ThumbCell::MenuWanted, this, &PageView::MenuWanted);
    connect(cell, &ThumbCell::Hovered, this, &PageView::Hovered);
    connect(cell, &ThumbCell::HoverLeft, this, &PageView::HoverLeft);
    connect(cell, &ThumbCell::FocusChanged, this, &PageView::FocusChanged);
    connect(cell, &ThumbCell::Moved, this, &PageView::MoveFocus);
    cells_.append(cell);
    cell->show();
  }
  for (int slot = 0; slot < cells_.size(); ++slot) UpdateCell(slot);
  Place();
}

void PageView::UpdateCell(int slot) {
  ThumbCell* cell = CellAt(slot);
  if (cell == nullptr) return;
  const PageState& page = program_.page;
  const QString time = page.Field(slot, SentTime);
  Cell shown = grid_.Cells().at(slot);
  const LanguageTexts& texts = program_.language;
  shown.lblError = shown.box.caption.Text(texts);
  shown.lblInfo = shown.box.first.Text(texts);
  shown.lblInfo2 = shown.box.second.Text(texts);
  if (shown.errorBox && shown.box.noSandbox) {
    shown.boxReason = tr("Pictures are not decoded: this system has no sandbox for the decoder (no seccomp filters)");
  }
  if (!shown.fromSender) shown.lblFrom.clear();  // otherwise the bare word "From" would be painted
  cell->SetCell(shown);
  if (!nextFrame_.isActive()) nextFrame_.start(UntilNextFrame());
  cell->SetDetails(page.Field(slot, ModeText), time.isEmpty() ? time : time + u" UTC"_s,
                   program_.language[TextLine::kEmptyCellName]);
}

// None when the last one is long past: the first picture of a page is not to wait for others.
std::chrono::milliseconds PageView::UntilNextFrame() const {
  if (!lastFrame_.isValid()) return 0ms;
  return std::max(0ms, kFrame - std::chrono::milliseconds(lastFrame_.elapsed()));
}

// A cell whose value has come back to what the screen shows meanwhile costs nothing.
void PageView::RefreshCells() {
  lastFrame_.start();
  for (ThumbCell* cell : std::as_const(cells_)) cell->Refresh();
}

void PageView::Place() {
  if (units_.isEmpty() || cells_.isEmpty()) return;
  const double scale = std::min(width() / units_.width(), height() / units_.height());
  if (scale <= 0) return;
  const QPointF origin((width() - units_.width() * scale) / 2, (height() - units_.height() * scale) / 2);
  CellTheme theme;
  theme.scale = scale;
  theme.font = font();
  // fontPoints_ belongs to the layout's own window size; in a larger or smaller window the font scales with the cells.
  theme.fontPixels = fontPoints_ * 96 / 72 * (nominalScale_ > 0 ? scale / nominalScale_ : 1);
  fontPixels_ = theme.fontPixels;
  theme.connectingText = program_.language[TextLine::kConnectingText];
  for (ThumbCell* cell : std::as_const(cells_)) {
    const QRectF units = CellRect(program_.config.ThumbLayout, cell->Slot());
    const QRectF place(origin + units.topLeft() * scale, units.size() * scale);
    cell->setGeometry(
        QRect(QPoint(static_cast<int>(std::floor(place.left())), static_cast<int>(std::floor(place.top()))),
              QPoint(static_cast<int>(std::ceil(place.right())) - 1, static_cast<int>(std::ceil(place.bottom())) - 1)));
    cell->SetTheme(theme);
  }
  const double pixels = scale * devicePixelRatioF();
  grid_.SetPictureBox(QSize(static_cast<int>(120 * pixels), static_cast<int>(90 * pixels)));
}

void PageView::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  Place();
}

void PageView::MoveFocus(int slot, Qt::Key key) {
  const int columns = LayoutOf(program_.config.ThumbLayout).columns;
  const int last = static_cast<int>(cells_.size()) - 1;
  const int target = key == Qt::Key_Left    ? slot - 1
                     : key == Qt::Key_Right ? slot + 1
                     : key == Qt::Key_Up    ? slot - columns
                     : key == Qt::Key_Down  ? slot + columns
                     : key == Qt::Key_Home  ? 0
                                            : last;
  if (ThumbCell* cell = CellAt(target)) cell->setFocus(Qt::TabFocusReason);
}
