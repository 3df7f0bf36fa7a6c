// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/busy_sign.h"

#include <QPainter>

using namespace std::chrono_literals;

namespace {
constexpr int kSteps = 12;
}

BusySign::BusySign(QWidget* parent) : QWidget(parent) {
  timer_.setInterval(90ms);
  connect(&timer_, &QTimer::timeout, this, &BusySign::Turn);
}

void BusySign::Turn() {
  step_ = (step_ + 1) % kSteps;
  update();
}

void BusySign::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  timer_.start();
}

void BusySign::hideEvent(QHideEvent* event) {
  QWidget::hideEvent(event);
  timer_.stop();
}

void BusySign::paintEvent(QPaintEvent* event) {
  Q_UNUSED(event)
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const double side = std::min(width(), height()) - 4.0;
  const QRectF ring((width() - side) / 2, (height() - side) / 2, side, side);
  QColor track = palette().color(QPalette::WindowText);
  track.setAlpha(50);
  painter.setPen(QPen(track, 2.2));
  painter.drawEllipse(ring);
  painter.setPen(QPen(palette().color(QPalette::Highlight), 2.4, Qt::SolidLine, Qt::RoundCap));
  painter.drawArc(ring, -step_ * 360 * 16 / kSteps, 110 * 16);
}
