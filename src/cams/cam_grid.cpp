// SPDX-License-Identifier: GPL-3.0-or-later
#include "cams/cam_grid.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "page/cam_light.h"

using namespace Qt::StringLiterals;

namespace {

// In pixels, with letters of which one line is this many pixels high.
constexpr int kLetterHeight = 17;
constexpr int kColumn = 154;
constexpr int kLight = 19;
constexpr int kGap = 2;
constexpr int kLabel = 133;
constexpr int kLabelBesidePages = 103;
constexpr int kMostRows = 20;
constexpr int kWheelStep = 120;

// Calls of the page on the screen stand on this colour; on a dark desktop on a dark one of the same hue.
constexpr QColor kOnPage(175, 225, 255);
constexpr QColor kDarkOnPage(24, 72, 106);

double ScaleOf(const QFontMetrics& metrics) {
  return std::max(1.0, static_cast<double>(metrics.height()) / kLetterHeight);
}

int Scaled(const QFontMetrics& metrics, int pixels) {
  return static_cast<int>(std::lround(pixels * ScaleOf(metrics)));
}

// Cuts a text one character at a time until it fits.
QString Fitting(QString text, const QFontMetrics& lblInv, int width) {
  while (!text.isEmpty() && lblInv.horizontalAdvance(text) > width) text.chop(1);
  return text;
}

}  // namespace

void CamModel::Take(const QList<CamCell>& cells) {
  beginResetModel();
  cells_ = cells;
  endResetModel();
}

const CamCell* CamModel::CellAt(const QModelIndex& index) const {
  const qsizetype at = qsizetype{index.row()} * kCamColumns + index.column();
  return index.isValid() && at < cells_.size() ? &cells_.at(at) : nullptr;
}

void CamModel::SetLight(const QString& call, CamLight light) {
  const auto found =
      std::find_if(cells_.cbegin(), cells_.cend(), [&](const CamCell& cell) { return cell.call == call; });
  if (found == cells_.cend() || found->imgGrid == light) return;
  const auto at = static_cast<int>(found - cells_.cbegin());
  cells_[at].imgGrid = light;
  const QModelIndex place = index(at / kCamColumns, at % kCamColumns);
  Q_EMIT dataChanged(place, place);
}

void CamModel::SetAllLights(CamLight light) {
  for (CamCell& cell : cells_) cell.imgGrid = light;
  if (!cells_.isEmpty()) Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, kCamColumns - 1));
}

int CamModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : CamRows(cells_.size());
}

int CamModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kCamColumns;
}

QVariant CamModel::data(const QModelIndex& index, int role) const {
  const CamCell* cell = CellAt(index);
  if (cell == nullptr) return {};
  switch (role) {
    case Qt::DisplayRole:
      return cell->lblGrid;
    case Qt::ToolTipRole:
      // The label may be cut, and the pages beside it.
      return cell->lblPage.isEmpty() ? cell->lblGrid : cell->lblGrid + u"  "_s + cell->lblPage;
    case Qt::AccessibleTextRole: {
      QStringList said{cell->call, CamLightName(cell->imgGrid), cell->lblPage};
      if (cell->isOnPage) said.append(tr("on this page"));
      said.removeAll(QString());
      return said.join(u", "_s);
    }
    default:
      return {};
  }
}

Qt::ItemFlags CamModel::flags(const QModelIndex& index) const {
  return CellAt(index) != nullptr ? Qt::ItemIsEnabled | Qt::ItemIsSelectable : Qt::NoItemFlags;
}

void CamPainter::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
  const CamCell* cell = static_cast<const CamModel*>(index.model())->CellAt(index);
  if (cell == nullptr) return;
  const QPalette& palette = option.palette;
  const bool isDark = qGray(palette.color(QPalette::Base).rgb()) < 128;
  const QFontMetrics lblInv(option.font);
  const int side = Scaled(lblInv, kLight);
  const QRect light(option.rect.left(), option.rect.top(), side, side);
  painter->save();
  painter->setFont(option.font);
  PaintCamLight(*painter, QRectF(light).adjusted(2, 2, -2, -2), cell->imgGrid,
                isDark ? QColor(200, 200, 200) : QColor(60, 60, 60));
  const QRect label(light.right() + 1 + kGap, option.rect.top(), Scaled(lblInv, kLabel), side);
  if (cell->isOnPage) painter->fillRect(label, isDark ? kDarkOnPage : kOnPage);
  if ((option.state & QStyle::State_HasFocus) != 0) {
    painter->setPen(QPen(palette.color(QPalette::Highlight), 2));
    painter->drawRect(label.adjusted(1, 1, -1, -1));
  }
  painter->setPen(palette.color(QPalette::Text));
  const QRect text = label.adjusted(3, 0, -5, 0);
  const int room = Scaled(lblInv, cell->lblPage.isEmpty() ? kLabel : kLabelBesidePages) - 5;
  const QString shown = Fitting(cell->lblGrid, lblInv, room);
  painter->drawText(text, static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter) | Qt::TextSingleLine, shown);
  const QRect pages = text.adjusted(lblInv.horizontalAdvance(shown) + Scaled(lblInv, 6), 0, 0, 0);
  painter->drawText(pages, static_cast<int>(Qt::AlignRight | Qt::AlignVCenter) | Qt::TextSingleLine,
                    lblInv.elidedText(cell->lblPage, Qt::ElideRight, pages.width()));
  painter->restore();
}

CamGrid::CamGrid(QWidget* parent) : QTableView(parent) {
  setObjectName(u"CamGrid"_s);
  viewport()->setObjectName(u"pic1"_s);
  verticalScrollBar()->setObjectName(u"ScrollBar1"_s);
  setModel(&model_);
  setItemDelegate(&painter_);
  setEditTriggers(NoEditTriggers);
  setSelectionMode(NoSelection);
  setTabKeyNavigation(false);
  setShowGrid(false);
  setFrameShape(QFrame::NoFrame);
  setVerticalScrollMode(ScrollPerPixel);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  for (QHeaderView* header : {verticalHeader(), horizontalHeader()}) {
    header->hide();
    header->setSectionResizeMode(QHeaderView::Fixed);
    header->setMinimumSectionSize(1);
  }
  SizeCells();
  connect(this, &QTableView::clicked, this, [this](const QModelIndex& index) {
    if (const CamCell* cell = model_.CellAt(index)) Q_EMIT CellPressed(CamCell(*cell));
  });
}

void CamGrid::SizeCells() {
  const QFontMetrics metrics = fontMetrics();
  const int pitch = Scaled(metrics, kLight) + kGap;
  horizontalHeader()->setDefaultSectionSize(Scaled(metrics, kColumn));
  verticalHeader()->setDefaultSectionSize(pitch);
  verticalScrollBar()->setSingleStep(pitch);
}

QSize CamGrid::WantedSize() const {
  const int rows = model_.rowCount();
  const int width = kCamColumns * horizontalHeader()->defaultSectionSize();
  const int bar = rows > kMostRows ? verticalScrollBar()->sizeHint().width() : 0;
  return {width + bar, std::clamp(rows, 1, kMostRows) * verticalHeader()->defaultSectionSize()};
}

void CamGrid::changeEvent(QEvent* event) {
  QTableView::changeEvent(event);
  if (event->type() == QEvent::FontChange) SizeCells();
}

void CamGrid::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space) {
    if (const CamCell* cell = model_.CellAt(currentIndex())) Q_EMIT CellPressed(CamCell(*cell));
    return;
  }
  // The window's own keys.
  if (key == Qt::Key_Escape || key == Qt::Key_F1 || key == Qt::Key_F5) return event->ignore();
  QTableView::keyPressEvent(event);
}

// One row a notch of the wheel, as a click on the scroll bar's arrow.
void CamGrid::wheelEvent(QWheelEvent* event) {
  turned_ += event->angleDelta().y();
  const int steps = turned_ / kWheelStep;
  turned_ -= steps * kWheelStep;
  QScrollBar* bar = verticalScrollBar();
  bar->setValue(bar->value() - steps * bar->singleStep());
  event->accept();
}
