// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/viewer_zoom.h"

#include <algorithm>
#include <cmath>
#include <utility>

using namespace std::chrono_literals;

namespace {

constexpr double kOfMonitor = 0.9;
constexpr double kShrink = 0.998;
constexpr double kEnlarge = 1.002;
constexpr auto kBetweenSteps = 4ms;  // the event loop turns, and paints, in between
constexpr double kStays = 32;        // pixels of a picture that cannot be moved out of the window

// Keeps a piece of the picture within the client area.
double Kept(double at, double size, double client) {
  const double piece = std::min({kStays, size, client});
  return std::clamp(at, piece - size, client - piece);
}

}  // namespace

QRect FitWindow(QSize picture, const QRect& monitor, QSize frame, QSize least) {
  QSizeF window = QSizeF(monitor.size()) * kOfMonitor;
  if (!picture.isEmpty()) {
    const double Aspect = static_cast<double>(picture.width()) / picture.height();
    const double monitorAspect = static_cast<double>(monitor.width()) / monitor.height();
    // A picture of just the monitor's proportions takes the width branch.
    if (Aspect < monitorAspect) {
      window.setWidth((window.height() - frame.height()) * Aspect + frame.width());
    } else {
      window.setHeight((window.width() - frame.width()) / Aspect + frame.height());
    }
  }
  const QSize size = window.toSize().expandedTo(least + frame).boundedTo(monitor.size());
  QRect place(QPoint(0, 0), size);
  place.moveCenter(monitor.center());
  return place;
}

ViewerZoom::ViewerZoom(QObject* parent) : QObject(parent) {
  stepTimer_.setInterval(kBetweenSteps);
  stepTimer_.setTimerType(Qt::PreciseTimer);
  connect(&stepTimer_, &QTimer::timeout, this, &ViewerZoom::Tick);
}

void ViewerZoom::SetPicture(QSizeF natural) {
  natural_ = natural.expandedTo(QSizeF(1e-3, 1e-3));
  rotation_ = 0;
  Fit();
}

void ViewerZoom::SetNatural(QSizeF natural) {
  natural_ = natural.expandedTo(QSizeF(1e-3, 1e-3));
  if (fitted_ && !IsMoving()) Fit();
}

void ViewerZoom::SetClient(QSizeF client) {
  if (client == client_) return;
  const QPointF middle(client_.width() / 2, client_.height() / 2);
  client_ = client.expandedTo(QSizeF(1, 1));
  if (fitted_) return Fit();
  place_.translate(QPointF(client_.width() / 2, client_.height() / 2) - middle);
  MoveBy({});
}

void ViewerZoom::Fit() {
  steps_ = 0;
  fitted_ = true;
  place_.setSize(natural_.scaled(client_, Qt::KeepAspectRatio));
  place_.moveCenter(QRectF(QPointF(0, 0), client_).center());
  TakeRatios();
  Q_EMIT Changed();
}

void ViewerZoom::ShowNatural() {
  steps_ = 0;
  fitted_ = false;
  const QPointF middle = QRectF(QPointF(0, 0), client_).center();
  const QPointF ratio((middle.x() - place_.left()) / place_.width(), (middle.y() - place_.top()) / place_.height());
  place_ = QRectF(middle - QPointF(ratio.x() * natural_.width(), ratio.y() * natural_.height()), natural_);
  if (natural_.width() <= client_.width()) place_.moveLeft(middle.x() - natural_.width() / 2);
  if (natural_.height() <= client_.height()) place_.moveTop(middle.y() - natural_.height() / 2);
  MoveBy({});
}

void ViewerZoom::TakeRatios() {
  // Beside a small picture the nearest point of its edge stands for the pointer: about a point outside it would grow
  // out of the window.
  anchor_ = {std::clamp(GrabX, place_.left(), place_.right()), std::clamp(GrabY, place_.top(), place_.bottom())};
  ratio_ = {(anchor_.x() - place_.left()) / place_.width(), (anchor_.y() - place_.top()) / place_.height()};
}

void ViewerZoom::PointerMoved(QPointF pointer) {
  GrabX = pointer.x();
  GrabY = pointer.y();
  TakeRatios();
}

void ViewerZoom::Turn(int rotation) {
  rotation_ += rotation;
  steps_ += rotation_ / kTick * kSteps;
  rotation_ %= kTick;
  if (steps_ != 0 && !stepTimer_.isActive()) stepTimer_.start();
}

bool ViewerZoom::Step() {
  if (steps_ == 0) return false;
  const double factor = steps_ < 0 ? kShrink : kEnlarge;
  const QSizeF next = place_.size() * factor;
  // Shrinking stops where the picture would be smaller than the client area in both directions, so that at its natural
  // size a small picture can only be enlarged.
  const bool tooSmall = steps_ < 0 && next.width() < client_.width() && next.height() < client_.height();
  const bool tooLarge = steps_ > 0 && next.width() > natural_.width() * kLargest;
  if (tooSmall || tooLarge) {
    steps_ = 0;
    return false;
  }
  steps_ += steps_ < 0 ? 1 : -1;
  fitted_ = false;
  place_ = QRectF(anchor_ - QPointF(ratio_.x() * next.width(), ratio_.y() * next.height()), next);
  Q_EMIT Changed();
  return true;
}

void ViewerZoom::Tick() {
  Step();
  if (steps_ != 0) return;
  stepTimer_.stop();
  Q_EMIT Settled();
}

void ViewerZoom::MoveBy(QPointF by) {
  if (!by.isNull()) fitted_ = false;
  place_.moveLeft(Kept(place_.left() + by.x(), place_.width(), client_.width()));
  place_.moveTop(Kept(place_.top() + by.y(), place_.height(), client_.height()));
  TakeRatios();
  Q_EMIT Changed();
}
