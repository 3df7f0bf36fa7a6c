// SPDX-License-Identifier: GPL-3.0-or-later
#include "film_slider.h"

#include <QMouseEvent>
#include <QSignalBlocker>
#include <QStyle>
#include <QStyleOptionSlider>

FilmSlider::FilmSlider(QWidget* parent) : QSlider(Qt::Horizontal, parent) {
  connect(this, &QAbstractSlider::actionTriggered, this, [this]() { Q_EMIT Wanted(sliderPosition()); });
}

void FilmSlider::Show(int value) {
  if (isSliderDown()) return;
  const QSignalBlocker quiet(this);
  setValue(value);
}

void FilmSlider::TakePointer(const QMouseEvent* event) {
  QStyleOptionSlider option;
  initStyleOption(&option);
  const QRect groove = style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderGroove, this);
  const int handle = style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, this).width();
  const int place = event->position().toPoint().x() - groove.left() - handle / 2;
  setSliderPosition(
      QStyle::sliderValueFromPosition(minimum(), maximum(), place, groove.width() - handle, option.upsideDown));
  Q_EMIT Wanted(sliderPosition());
}

void FilmSlider::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return event->ignore();
  setSliderDown(true);
  TakePointer(event);
}

void FilmSlider::mouseMoveEvent(QMouseEvent* event) {
  if (isSliderDown()) TakePointer(event);
}

void FilmSlider::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) setSliderDown(false);
}
