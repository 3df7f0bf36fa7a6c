// SPDX-License-Identifier: GPL-3.0-or-later
#include "page/thumb_cell.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QToolTip>

#include "page/cam_light.h"
#include "page/thumb_layout.h"

using namespace Qt::StringLiterals;

ThumbCell::ThumbCell(int slot, QWidget* parent) : QWidget(parent), slot_(slot) {
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setMouseTracking(true);
  setObjectName(u"cell%1"_s.arg(slot));
  frameTimer_.setSingleShot(true);
  connect(&frameTimer_, &QTimer::timeout, this, &ThumbCell::NextFrame);
}

void ThumbCell::SetCell(const Cell& cell) {
  if (cell == cell_) return;
  const bool samePicture =
      cell.frames.size() == cell_.frames.size() && cell.img == cell_.img &&
      (cell.frames.isEmpty() || cell.frames.first().image.cacheKey() == cell_.frames.first().image.cacheKey());
  cell_ = cell;
  if (!samePicture) {
    frame_ = 0;
    stale_ = true;
    frameTimer_.stop();
    if (cell_.frames.size() > 1) frameTimer_.start(cell_.frames.first().delay);
  }
  Describe();
}

void ThumbCell::Refresh() {
  if (painted_ != cell_) update();
}

void ThumbCell::SetTheme(const CellTheme& theme) {
  theme_ = theme;
  stale_ = true;
  update();
}

void ThumbCell::SetDetails(const QString& modeText, const QString& sentTime, const QString& emptyName) {
  modeText_ = modeText;
  sentTime_ = sentTime;
  emptyName_ = emptyName;
  Describe();
}

void ThumbCell::SetName(const QString& name) {
  name_ = name;
}

void ThumbCell::SetTipText(const QString& text) {
  tipText_ = text;
  Describe();
}

// The age of the picture or of the error, as the caption gives it behind the site's call; empty without one.
QString ThumbCell::Age() const {
  if (cell_.lblDisk.isEmpty() || cell_.lblCall.size() <= cell_.lblDisk.size()) return {};
  // The caption may show the call's zeros as "Ø", so the call is skipped by its length.
  QStringView age = QStringView(cell_.lblCall).sliced(cell_.lblDisk.size());
  while (!age.isEmpty() && !age.front().isLetterOrNumber()) age = age.sliced(1);
  return age.toString();
}

// Writes the accessible name and description: all texts of the cell, and the meaning of its colour.
void ThumbCell::Describe() {
  const QString name = !name_.isEmpty()           ? name_
                       : !cell_.lblDisk.isEmpty() ? cell_.lblDisk
                       : !cell_.lblCall.isEmpty() ? cell_.lblCall
                                                  : emptyName_;
  QStringList details = {Age()};
  if (cell_.Shape1 == CellColour::Stale) details << tr("stale");
  if (cell_.compareMark != 0) details << tr("marked for comparison");
  if (cell_.errorBox) details << cell_.lblError << cell_.lblInfo << cell_.lblInfo2 << cell_.boxReason;
  if (!cell_.errorBox) details << cell_.lblFrom << modeText_;
  details << CamLightName(cell_.imgCam) << sentTime_ << cell_.onAirTip << tipText_;
  details.removeAll(QString());
  const QString description = details.join(u", "_s).simplified();
  if (accessibleName() != name) setAccessibleName(name);
  if (accessibleDescription() != description) setAccessibleDescription(description);
}

void ThumbCell::NextFrame() {
  if (cell_.frames.size() < 2) return;
  frame_ = (frame_ + 1) % cell_.frames.size();
  stale_ = true;
  frameTimer_.start(cell_.frames.at(frame_).delay);
  update();
}

void ThumbCell::MakePixmap() {
  stale_ = false;
  pixmap_ = QPixmap();
  if (cell_.frames.isEmpty() || cell_.errorBox) return;
  const QImage& image = cell_.frames.at(std::min(frame_, cell_.frames.size() - 1)).image;
  const double ratio = devicePixelRatioF();
  const QSize target = PicturePixels(cell_, theme_.scale, ratio);
  if (target.isEmpty()) return;
  // Scale once here instead of at every repaint.
  pixmap_ = QPixmap::fromImage(
      image.size() == target ? image : image.scaled(target, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
  pixmap_.setDevicePixelRatio(ratio);
}

void ThumbCell::paintEvent(QPaintEvent* event) {
  Q_UNUSED(event)
  if (stale_) MakePixmap();
  QPainter painter(this);
  painter.fillRect(rect(), palette().color(QPalette::Window));
  CellTheme theme = theme_;
  theme.palette = palette();
  theme.focused = hasFocus();
  theme.hovered = underMouse();
  PaintCell(painter, cell_, theme, pixmap_);
  painted_ = cell_;
}

void ThumbCell::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  if (event->modifiers().testFlag(Qt::ControlModifier)) {
    Q_EMIT MarkPressed(slot_);
    return;
  }
  if (IsOnCam(event->position())) {
    Q_EMIT CamPressed(slot_);
    return;
  }
  if (PartAt(event->position()) == TipPart::From && cell_.fromVisible && !cell_.lblFrom.isEmpty()) {
    Q_EMIT SenderPressed(slot_);
  } else if (PartAt(event->position()) == TipPart::Picture && !cell_.frames.isEmpty() && !cell_.errorBox) {
    pressedAt_ = event->position();
  } else {
    Q_EMIT Pressed(slot_);
  }
}

void ThumbCell::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && std::exchange(pressedAt_, std::nullopt)) Q_EMIT Pressed(slot_);
}

QRect ThumbCell::SenderPlace() const {
  const QRectF& units = cell_part::kFrom;
  return QRectF(units.topLeft() * theme_.scale, units.size() * theme_.scale).toAlignedRect();
}

void ThumbCell::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
      if (key == Qt::Key_Space && event->modifiers().testFlag(Qt::ControlModifier)) {
        Q_EMIT MarkPressed(slot_);
      } else {
        Q_EMIT Pressed(slot_);
      }
      return;
    case Qt::Key_C:
      if (cell_.imgCam == CamLight::Hidden || event->modifiers() != Qt::NoModifier) break;
      Q_EMIT CamPressed(slot_);
      return;
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Home:
    case Qt::Key_End:
      Q_EMIT Moved(slot_, static_cast<Qt::Key>(key));
      return;
    default:
      break;
  }
  QWidget::keyPressEvent(event);
}

void ThumbCell::contextMenuEvent(QContextMenuEvent* event) {
  const bool byKeyboard = event->reason() == QContextMenuEvent::Keyboard;
  Q_EMIT MenuWanted(slot_, byKeyboard ? mapToGlobal(rect().center()) : event->globalPos(), byKeyboard);
}

void ThumbCell::enterEvent(QEnterEvent* event) {
  QWidget::enterEvent(event);
  update();
}

void ThumbCell::leaveEvent(QEvent* event) {
  QWidget::leaveEvent(event);
  if (std::exchange(hovered_, std::nullopt)) Q_EMIT HoverLeft();
  update();
}

bool ThumbCell::IsOnCam(const QPointF& place) const {
  return cell_.imgCam != CamLight::Hidden && cell_part::kCam.contains(place / theme_.scale);
}

std::optional<TipPart> ThumbCell::PartAt(const QPointF& place) const {
  if (IsOnCam(place)) return std::nullopt;
  const QPointF units = place / theme_.scale;
  if (cell_.img.contains(units)) return TipPart::Picture;
  if (cell_part::kFrom.contains(units)) return TipPart::From;
  if (cell_part::kCall.contains(units)) return TipPart::Call;
  return std::nullopt;
}

void ThumbCell::mouseMoveEvent(QMouseEvent* event) {
  if (pressedAt_) {
    const bool held = event->buttons().testFlag(Qt::LeftButton);
    if (held && (event->position() - *pressedAt_).manhattanLength() < QApplication::startDragDistance()) return;
    pressedAt_.reset();
    if (held) Q_EMIT DragWanted(slot_);
  }
  const std::optional<TipPart> part = PartAt(event->position());
  if (part == hovered_) return;
  hovered_ = part;
  if (part) {
    Q_EMIT Hovered(slot_, *part);
  } else {
    Q_EMIT HoverLeft();
  }
}

void ThumbCell::focusInEvent(QFocusEvent* event) {
  QWidget::focusInEvent(event);
  if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::MouseFocusReason) {
    Q_EMIT FocusChanged(slot_, true);
  }
}

void ThumbCell::focusOutEvent(QFocusEvent* event) {
  QWidget::focusOutEvent(event);
  Q_EMIT FocusChanged(slot_, false);
}

void ThumbCell::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  stale_ = true;
}

// Qt repaints every widget of a window that becomes active or inactive if its two palettes differ in any colour; often
// they do in a single one that a cell without focus does not use.
bool ThumbCell::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip) {
    const auto* help = static_cast<QHelpEvent*>(event);
    if (IsOnCam(help->pos())) {
      QToolTip::showText(help->globalPos(), theme_.camTip, this);
    } else {
      QToolTip::hideText();
    }
    return true;
  }
  const bool activation = event->type() == QEvent::WindowActivate || event->type() == QEvent::WindowDeactivate;
  const auto same = [this](QPalette::ColorRole role) {
    return palette().color(QPalette::Active, role) == palette().color(QPalette::Inactive, role);
  };
  if (activation && !hasFocus() && !underMouse() && same(QPalette::Window) && same(QPalette::WindowText)) return true;
  return QWidget::event(event);
}

void ThumbCell::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  stale_ = true;
  update();
}

AccessibleCell::AccessibleCell(ThumbCell* cell) : QAccessibleWidget(cell, QAccessible::Button) {}

QStringList AccessibleCell::actionNames() const {
  return QStringList{pressAction()} + QAccessibleWidget::actionNames();
}

void AccessibleCell::doAction(const QString& actionName) {
  auto* cell = qobject_cast<ThumbCell*>(object());
  if (cell != nullptr && actionName == pressAction()) {
    Q_EMIT cell->Pressed(cell->Slot());
    return;
  }
  QAccessibleWidget::doAction(actionName);
}

void AccessibleCell::Install() {
  QAccessible::installFactory([](const QString& className, QObject* object) -> QAccessibleInterface* {
    Q_UNUSED(className)
    auto* cell = qobject_cast<ThumbCell*>(object);
    return cell != nullptr ? new AccessibleCell(cell) : nullptr;
  });
}
