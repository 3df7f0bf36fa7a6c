// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/picture_canvas.h"

#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QStyleHints>
#include <QWheelEvent>
#include <cmath>
#include <utility>

namespace {

constexpr double kKeyStep = 40;  // pixels
constexpr int kNoteMargin = 12;

}  // namespace

PictureCanvas::PictureCanvas(ViewerZoom& zoom, Background& drawing, QWidget* parent)
    : QWidget(parent), zoom_(zoom), drawing_(drawing) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  frameTimer_.setSingleShot(true);
  connect(&frameTimer_, &QTimer::timeout, this, &PictureCanvas::NextFrame);
  connect(&zoom_, &ViewerZoom::Changed, this, &PictureCanvas::ZoomChanged);
  connect(&zoom_, &ViewerZoom::Settled, this, &PictureCanvas::Refine);
}

void PictureCanvas::SetPicture(const QList<PictureFrame>& frames, const PictureScales& scales, bool samePicture) {
  frames_ = frames;
  scales_ = scales;
  frame_ = 0;
  wanted_.Ask();
  if (!samePicture) drawn_ = Drawn();
  frameTimer_.stop();
  if (frames_.size() > 1) frameTimer_.start(frames_.first().delay);
  Refine();
  update();
}

void PictureCanvas::Clear() {
  SetPicture({}, {}, false);
}

void PictureCanvas::SetNote(const QString& note) {
  if (std::exchange(note_, note) != note) update();
}

QRectF PictureCanvas::Place() const {
  const double ratio = devicePixelRatioF();
  const QRectF place = zoom_.Place();
  QRectF shown(place.topLeft() * ratio, place.size() * ratio);
  if (scales_.IsEmpty()) return shown;
  // Of two pictures that share a zoom each keeps its own proportions.
  const QSizeF own = QSizeF(scales_.Picture().size()).scaled(shown.size(), Qt::KeepAspectRatio);
  if (std::abs(own.width() - shown.width()) < 1 && std::abs(own.height() - shown.height()) < 1) return shown;
  QRectF kept(QPointF(0, 0), own);
  kept.moveCenter(shown.center());
  return kept;
}

QSize PictureCanvas::Frame() const {
  return (QSizeF(size()) * devicePixelRatioF()).toSize();
}

bool PictureCanvas::IsRefined() const {
  if (scales_.IsEmpty() || scales_.IsExact(Place())) return true;
  return drawn_.Fits(Place(), Frame()) && drawn_.pixels == scales_.Picture().cacheKey();
}

void PictureCanvas::ZoomChanged() {
  update();
  if (!zoom_.IsMoving()) Refine();
}

// One drawing at a time; what has changed meanwhile is drawn next. While a zoom moves nothing is smoothed.
void PictureCanvas::Refine() {
  if (busy_ || !isVisible() || zoom_.IsMoving() || IsRefined()) return;
  busy_ = true;
  const QRectF place = Place();
  const QSize frame = Frame();
  drawing_.Run<Drawn>(
      this,
      [scales = scales_, place, frame]() {
        return Drawn{scales.Render(place, frame), place, scales.Picture().cacheKey()};
      },
      [this, token = wanted_.Present()](Drawn drawn) {
        busy_ = false;
        if (token.StillWanted()) drawn_ = std::move(drawn);
        update();
        Refine();
      });
}

void PictureCanvas::NextFrame() {
  if (frames_.size() < 2) return;
  frame_ = (frame_ + 1) % frames_.size();
  scales_ = PictureScales(frames_.at(frame_).image);
  frameTimer_.start(frames_.at(frame_).delay);
  // The frame before stays until this one is drawn smoothly, unless it is painted without being drawn ahead.
  if (zoom_.IsMoving() || scales_.IsExact(Place())) update();
  Refine();
}

void PictureCanvas::paintEvent(QPaintEvent* event) {
  Q_UNUSED(event)
  const double ratio = devicePixelRatioF();
  const QRectF place = Place();
  const QRect frame(QPoint(0, 0), Frame());
  QPainter painter(this);
  painter.scale(1 / ratio, 1 / ratio);
  // A picture that was only moved shows what is drawn already, shifted.
  const bool exact = !scales_.IsEmpty() && scales_.IsExact(place);
  const bool drawn = !exact && drawn_.image.size() == frame.size() && drawn_.place.size() == place.size();
  if (!drawn || !drawn_.Fits(place, frame.size())) {
    // Only what the picture leaves free: painting a whole large window takes a quarter of the time of a zoom's step.
    const QRect covered = scales_.IsEmpty() ? QRect() : place.toAlignedRect().adjusted(1, 1, -1, -1);
    for (const QRect& bar : QRegion(frame) - QRegion(covered)) painter.fillRect(bar, Qt::black);
    scales_.Paint(painter, place, frame, false);
  }
  if (drawn) {
    const QPointF shift = place.topLeft() - drawn_.place.topLeft();
    const QRect kept = (drawn_.place & QRectF(frame)).toAlignedRect().intersected(frame);
    if (shift.isNull()) {
      painter.drawImage(QPoint(0, 0), drawn_.image);
    } else {
      painter.drawImage(kept.topLeft() + shift.toPoint(), drawn_.image, kept);
    }
  }
  painter.resetTransform();
  if (note_.isEmpty()) return;
  QRect box = painter.boundingRect(rect().adjusted(kNoteMargin, 0, -kNoteMargin, 0),
                                   static_cast<int>(Qt::AlignCenter) | Qt::TextWordWrap, note_);
  painter.fillRect(box.adjusted(-kNoteMargin, -kNoteMargin, kNoteMargin, kNoteMargin), QColor(0, 0, 0, 190));
  painter.setPen(Qt::white);
  painter.drawText(box, static_cast<int>(Qt::AlignCenter) | Qt::TextWordWrap, note_);
}

void PictureCanvas::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  zoom_.SetClient(QSizeF(size()));
  Refine();
}

// A hidden canvas draws nothing ahead.
void PictureCanvas::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  Refine();
}

void PictureCanvas::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  dragging_ = true;
  moved_ = false;
  pressedAt_ = draggedTo_ = event->position().toPoint();
}

void PictureCanvas::mouseMoveEvent(QMouseEvent* event) {
  const QPoint at = event->position().toPoint();
  zoom_.PointerMoved(event->position());
  if (!dragging_ || !event->buttons().testFlag(Qt::LeftButton)) return;
  if ((at - pressedAt_).manhattanLength() >= QGuiApplication::styleHints()->startDragDistance()) moved_ = true;
  zoom_.MoveBy(at - std::exchange(draggedTo_, at));
}

void PictureCanvas::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || !std::exchange(dragging_, false)) return;
  Refine();
  if (!moved_) Q_EMIT Clicked();
}

void PictureCanvas::wheelEvent(QWheelEvent* event) {
  zoom_.PointerMoved(event->position());
  zoom_.Turn(event->angleDelta().y());
  event->accept();
}

bool PictureCanvas::ZoomByKey(QKeyEvent* event) {
  const auto turn = [this](int rotation) {
    const QPointF pointer = mapFromGlobal(QPointF(QCursor::pos()));
    zoom_.PointerMoved(rect().contains(pointer.toPoint()) ? pointer : QRectF(rect()).center());
    zoom_.Turn(rotation);
  };
  switch (event->key()) {
    case Qt::Key_Plus:
    case Qt::Key_Equal:
      turn(ViewerZoom::kTick);
      return true;
    case Qt::Key_Minus:
      turn(-ViewerZoom::kTick);
      return true;
    case Qt::Key_Left:
      zoom_.MoveBy({kKeyStep, 0});
      return true;
    case Qt::Key_Right:
      zoom_.MoveBy({-kKeyStep, 0});
      return true;
    case Qt::Key_Up:
      zoom_.MoveBy({0, kKeyStep});
      return true;
    case Qt::Key_Down:
      zoom_.MoveBy({0, -kKeyStep});
      return true;
    case Qt::Key_0:
      zoom_.Fit();
      return true;
    case Qt::Key_1:
      zoom_.ShowNatural();
      return true;
    default:
      return false;
  }
}

void PictureCanvas::contextMenuEvent(QContextMenuEvent* event) {
  const bool byKeyboard = event->reason() == QContextMenuEvent::Keyboard;
  Q_EMIT MenuWanted(byKeyboard ? mapToGlobal(rect().center()) : event->globalPos(), byKeyboard);
}
