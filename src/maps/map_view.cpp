// SPDX-License-Identifier: GPL-3.0-or-later
#include "maps/map_view.h"

#include <QContextMenuEvent>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QStyleHints>
#include <QStyleOptionFocusRect>
#include <QToolTip>
#include <QWheelEvent>
#include <algorithm>
#include <utility>

#include "maps/map_accessible.h"
#include "ui/plain_tip.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kKeyStep = 40;
constexpr int kFastStep = 200;
// Larger than any picture. Label rectangles are cut to it, because the place of a position far off the picture would
// not fit into an int.
constexpr QRectF kNearby(-100'000, -100'000, 200'000, 200'000);

const QString& IdOf(const MapOverlay::Label& label) {
  return label.id.isEmpty() ? label.name : label.id;
}

}  // namespace

MapView::MapView(QWidget* parent) : QWidget(parent) {
  setObjectName(u"picOuter"_s);
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setMouseTracking(true);
  AccessibleMapView::Install();
  UpdateStyle();
}

void MapView::SetPicture(const QImage& picture, const QSize& size) {
  layer_.SetPicture(picture, size);
  fit_.picture = picture.isNull() ? QSize() : size;
  update();
}

void MapView::SetOverlay(const MapOverlay& overlay) {
  // What pointer and keyboard are at stays theirs, wherever it stands in the new list.
  const auto found = [this, &overlay](qsizetype index) {
    if (index < 0) return index;
    const QString id = IdOf(Overlay().labels.at(index));
    const auto same = [&id](const MapOverlay::Label& label) { return IdOf(label) == id; };
    const auto label = std::find_if(overlay.labels.cbegin(), overlay.labels.cend(), same);
    return label == overlay.labels.cend() ? -1 : std::distance(overlay.labels.cbegin(), label);
  };
  pressedLabel_ = found(pressedLabel_);
  focused_ = found(focused_);
  if (focused_ >= 0 && !overlay.labels.at(focused_).clickable) focused_ = -1;
  const qsizetype pointed = found(pointed_);
  const bool wasPointed = std::exchange(pointed_, pointed) >= 0;
  layer_.SetOverlay(overlay);
  if (wasPointed) Q_EMIT LabelPointed(pointed_);
  AccessibleMapView::LabelsChanged(this);
  update();
}

void MapView::Prepare(const QSize& frame) {
  UpdateStyle();
  layer_.Prepare(frame);
}

void MapView::FitMapToWindow(const QSize& window, int menuBarHeight) {
  fit_.FitMapToWindow(window);
  setGeometry(QRect(QPoint(0, menuBarHeight), window));
  if (middle_) {
    fit_.KeepMiddle(*middle_, HiddenRows());
  } else if (home_) {
    fit_.KeepInView(*home_, homeRoom_);
  }
  UpdateCursor(mapFromGlobal(QCursor::pos()));
  update();
}

void MapView::SetHome(const std::optional<QPointF>& point, int bottomRoom) {
  home_ = point;
  homeRoom_ = bottomRoom;
  middle_.reset();
}

int MapView::HiddenRows() const {
  return parentWidget() == nullptr ? 0 : std::max(0, geometry().bottom() - parentWidget()->rect().bottom());
}

QSizeF MapView::LabelSize(const QString& text) const {
  const QFontMetricsF metrics(font());
  double width = 0;
  double height = metrics.height() + 2 * kMapLabelMargin - metrics.lineSpacing();
  for (const QStringView line : QStringView(text).split(u'\n')) {
    width = std::max(width, metrics.horizontalAdvance(line.toString().remove(u'\r')));
    height += metrics.lineSpacing();
  }
  return {std::ceil(width + 2 * kMapLabelMargin), std::ceil(height)};
}

QRect MapView::LabelRect(qsizetype index) const {
  if (index < 0 || index >= Overlay().labels.size()) return {};
  const MapOverlay::Label& label = Overlay().labels.at(index);
  return (label.place.united(label.box) & kNearby).toAlignedRect().translated(fit_.place);
}

qsizetype MapView::LabelAt(const QPoint& place) const {
  if (!picInner().contains(place)) return -1;
  // From the last to the first: a label painted later lies on top.
  for (qsizetype i = Overlay().labels.size() - 1; i >= 0; --i) {
    if (LabelRect(i).contains(place)) return i;
  }
  return -1;
}

void MapView::PressLabel(qsizetype index, bool byKeyboard) {
  if (index < 0 || index >= Overlay().labels.size() || !Overlay().labels.at(index).clickable) return;
  const QString name = Overlay().labels.at(index).name;
  const QRect seen = LabelRect(index).intersected(rect().adjusted(0, 0, 0, -HiddenRows()));
  Q_EMIT LabelClicked(name, byKeyboard ? mapToGlobal(seen.bottomLeft()) : QCursor::pos(), byKeyboard);
}

void MapView::paintEvent(QPaintEvent* event) {
  UpdateStyle();
  const QImage& image = layer_.Frame(size(), fit_.place);
  if (layer_.IsBehind()) PaintBeside();
  const double ratio = devicePixelRatioF();
  QPainter painter(this);
  painter.setClipRegion(event->region());
  // The image has one pixel for each device pixel already, so undo the painter's scale.
  painter.scale(1 / ratio, 1 / ratio);
  painter.drawImage(QPoint(0, 0), image, QRect(QPoint(0, 0), (QSizeF(size()) * ratio).toSize()));
  painter.resetTransform();
  if (!hasFocus()) return;
  painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
  if (focused_ >= 0) painter.drawRect(LabelRect(focused_).adjusted(-3, -3, 3, 3));
}

// One frame at a time. What has changed in the meantime makes the layer ask again when that is painted.
void MapView::PaintBeside() {
  if (std::exchange(painting_, true)) return;
  const auto paint = [job = layer_.MakeJob()]() mutable {
    job.Paint();
    return std::move(job);
  };
  painter_.Run<MapLayer::Job>(this, paint, [this](MapLayer::Job done) {
    painting_ = false;
    layer_.Take(std::move(done));
    update();
  });
}

void MapView::UpdateStyle() {
  const QPalette tips = QToolTip::palette();
  layer_.SetStyle({font(), palette().color(QPalette::Window), tips.color(QPalette::Inactive, QPalette::ToolTipBase),
                   tips.color(QPalette::Inactive, QPalette::ToolTipText), devicePixelRatioF()});
}

void MapView::UpdateCursor(const QPoint& pointer) {
  const qsizetype label = LabelAt(pointer);
  const bool clickable = label >= 0 && Overlay().labels.at(label).clickable;
  Qt::CursorShape shape = fit_.PanX || fit_.PanY ? Qt::OpenHandCursor : Qt::ArrowCursor;
  if (clickable) shape = Qt::PointingHandCursor;
  if (dragPoint_) shape = Qt::ClosedHandCursor;
  if (cursor().shape() != shape) setCursor(shape);
}

void MapView::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  const QPoint place = event->position().toPoint();
  pressedLabel_ = LabelAt(place);
  pressedAt_ = place;
  // On a label the press is a click until the pointer has gone some way: a crowded map has few places without one.
  if (pressedLabel_ < 0 && picInner().contains(place) && (fit_.PanX || fit_.PanY)) dragPoint_ = place - fit_.place;
  UpdateCursor(place);
}

void MapView::mouseMoveEvent(QMouseEvent* event) {
  const QPoint place = event->position().toPoint();
  const bool dragged = (place - pressedAt_).manhattanLength() >= QGuiApplication::styleHints()->startDragDistance();
  if (pressedLabel_ >= 0 && event->buttons().testFlag(Qt::LeftButton) && dragged && (fit_.PanX || fit_.PanY)) {
    pressedLabel_ = -1;
    dragPoint_ = pressedAt_ - fit_.place;
  }
  if (dragPoint_ && event->buttons().testFlag(Qt::LeftButton) && fit_.DragTo(place - *dragPoint_)) {
    StorePan();
  }
  FollowPointer(place);
}

void MapView::FollowPointer(const QPoint& pointer) {
  UpdateCursor(pointer);
  // While the map is dragged the pointer stays at its point of the picture.
  if (dragPoint_) return;
  const bool inside = rect().contains(pointer) && picInner().contains(pointer);
  Q_EMIT PointerMoved(inside ? std::optional(QPointF(pointer - fit_.place)) : std::nullopt);
  const qsizetype label = inside ? LabelAt(pointer) : -1;
  if (label != pointed_) Point(label);
}

void MapView::Point(qsizetype index) {
  pointed_ = index;
  if (index < 0) QToolTip::hideText();
  Q_EMIT LabelPointed(index);
}

void MapView::leaveEvent(QEvent* event) {
  QWidget::leaveEvent(event);
  FollowPointer(QPoint(-1, -1));
}

void MapView::ShowTip(qsizetype index, const QPoint& globalPoint) {
  const MapOverlay::Label label = Overlay().labels.value(index);
  // A label without room for its text tells it here.
  QString text = label.tip;
  if (label.dot) text = (label.text.trimmed() + u'\n' + text).trimmed();
  QToolTip::showText(globalPoint, PlainTip(text), this, LabelRect(index));
}

bool MapView::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QWidget::event(event);
  const auto* help = static_cast<QHelpEvent*>(event);
  ShowTip(LabelAt(help->pos()), help->globalPos());
  return true;
}

void MapView::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  dragPoint_.reset();
  const QPoint place = event->position().toPoint();
  const qsizetype label = std::exchange(pressedLabel_, -1);
  UpdateCursor(place);
  if (label < 0 || label != LabelAt(place)) return;
  if (CloseSign(label).contains(place)) {
    Q_EMIT LabelClosed(Overlay().labels.at(label).name);
  } else {
    PressLabel(label, false);
  }
}

void MapView::wheelEvent(QWheelEvent* event) {
  // Pixels from a touch pad, else eighths of a degree: a notch of 15 degrees is one step.
  QPoint step = event->pixelDelta().isNull() ? event->angleDelta() * kKeyStep / 120 : event->pixelDelta();
  if (event->modifiers().testFlag(Qt::ShiftModifier)) step = step.transposed();
  PanBy(step);
  event->accept();
}

void MapView::PanBy(const QPoint& step) {
  if (fit_.PanBy(step, HiddenRows())) StorePan();
}

void MapView::StorePan() {
  middle_ = fit_.Middle(HiddenRows());
  update();
  if (underMouse()) FollowPointer(mapFromGlobal(QCursor::pos()));
  Q_EMIT Panned(fit_.place.x(), fit_.place.y());
}

bool MapView::PanByKey(int key, Qt::KeyboardModifiers modifiers) {
  QSize step(kKeyStep, kKeyStep);
  if (modifiers.testFlag(Qt::ShiftModifier)) step = QSize(kFastStep, kFastStep);
  // With Ctrl, as much as is in view but for one step.
  if (modifiers.testFlag(Qt::ControlModifier)) step = (size() - step).expandedTo(step);
  switch (key) {
    case Qt::Key_Left:
      PanBy(QPoint(step.width(), 0));
      return true;
    case Qt::Key_Right:
      PanBy(QPoint(-step.width(), 0));
      return true;
    case Qt::Key_Up:
      PanBy(QPoint(0, step.height()));
      return true;
    case Qt::Key_Down:
      PanBy(QPoint(0, -step.height()));
      return true;
    default:
      return false;
  }
}

QRect MapView::CloseSign(qsizetype index) const {
  const MapOverlay::Label label = Overlay().labels.value(index);
  if (!label.closable || label.dot) return {};
  QRectF sign = label.place;
  sign.setLeft(sign.right() - sign.height() * kMapCloseSign);
  return sign.toAlignedRect().translated(fit_.place);
}

bool MapView::LabelKey(int key) {
  if (focused_ < 0) return false;
  switch (key) {
    case Qt::Key_Delete:
      if (!Overlay().labels.at(focused_).closable) return false;
      Q_EMIT LabelClosed(Overlay().labels.at(focused_).name);
      return true;
    case Qt::Key_Period:
    case Qt::Key_Comma:
      Q_EMIT NextPartnerWanted(focused_, key == Qt::Key_Period ? 1 : -1);
      return true;
    default:
      return false;
  }
}

void MapView::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Home:
      if (!home_) return;
      fit_.KeepInView(*home_, homeRoom_);
      StorePan();
      middle_.reset();
      return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
      PressLabel(focused_, true);
      return;
    default:
      if (LabelKey(event->key()) || PanByKey(event->key(), event->modifiers())) return;
      QWidget::keyPressEvent(event);
  }
}

void MapView::contextMenuEvent(QContextMenuEvent* event) {
  const bool byKeyboard = event->reason() == QContextMenuEvent::Keyboard;
  PressLabel(byKeyboard ? focused_ : LabelAt(event->pos()), byKeyboard);
}

qsizetype MapView::NextClickable(qsizetype from, int step) const {
  for (qsizetype i = from + step; i >= 0 && i < Overlay().labels.size(); i += step) {
    if (Overlay().labels.at(i).clickable) return i;
  }
  return -1;
}

bool MapView::focusNextPrevChild(bool next) {
  // Tab goes from the map to its labels, one after the other, then on; Shift and Tab the same way back.
  if (!next && focused_ < 0) return QWidget::focusNextPrevChild(false);
  const qsizetype label = NextClickable(focused_, next ? 1 : -1);
  if (next && label < 0) return QWidget::focusNextPrevChild(true);
  FocusLabel(label);
  return true;
}

void MapView::FocusLabel(qsizetype index) {
  focused_ = index;
  ShowLabel(index);
  update();
  Point(index);
  if (index >= 0) ShowTip(index, mapToGlobal(LabelRect(index).bottomLeft()));
  AccessibleMapView::FocusMoved(this, focused_);
}

void MapView::ShowLabel(qsizetype index) {
  const QRect label = LabelRect(index);
  const QRect seen = rect().adjusted(0, 0, 0, -HiddenRows());
  if (label.isEmpty() || seen.contains(label)) return;
  // Moves the picture the shortest way that shows the label; of a label larger than the frame its beginning is shown.
  const QPoint step(std::max(0, -label.left()) - std::max(0, label.right() - seen.right()),
                    std::max(0, -label.top()) - std::max(0, label.bottom() - seen.bottom()));
  PanBy(step);
}

void MapView::focusInEvent(QFocusEvent* event) {
  // The inherited focus handlers are not called, here and below: they repaint the whole map.
  if (event->reason() == Qt::BacktabFocusReason) FocusLabel(NextClickable(Overlay().labels.size(), -1));
  if (focused_ >= 0) update();
}

void MapView::focusOutEvent(QFocusEvent* event) {
  // Only Tab and the mouse take the focus off a label: a menu or another window gives it back later.
  const bool leaves = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason ||
                      event->reason() == Qt::MouseFocusReason;
  if (focused_ >= 0) update();
  if (leaves) focused_ = -1;
}

void MapView::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  // Activation changes nothing that is painted, and repainting a whole map is expensive.
  if (event->type() != QEvent::ActivationChange) update();
}
