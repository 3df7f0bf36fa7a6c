// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/window_place.h"

#include <QGuiApplication>
#include <QScreen>
#include <QStyle>
#include <algorithm>

namespace {
constexpr int kGap = 4;
constexpr int kSides = 8;  // pixels of a frame, left and right together
}  // namespace

QRect MonitorAt(const QPoint& at) {
  const QScreen* monitor = QGuiApplication::screenAt(at);
  if (monitor != nullptr) return monitor->availableGeometry();
  const auto distance = [&at](const QScreen* screen) {
    const QRect area = screen->geometry();
    const QPoint nearest(std::clamp(at.x(), area.left(), area.right()), std::clamp(at.y(), area.top(), area.bottom()));
    return (at - nearest).manhattanLength();
  };
  const QList<QScreen*> screens = QGuiApplication::screens();
  return (*std::min_element(
              screens.begin(), screens.end(),
              [&distance](const QScreen* one, const QScreen* other) { return distance(one) < distance(other); }))
      ->availableGeometry();
}

QSize FrameOf(const QWidget* window) {
  const QSize known = window->frameSize() - window->size();
  if (!known.isEmpty()) return known;
  return {kSides, window->style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, window) + kSides};
}

QRect KeptOnMonitor(const QRect& place, const QPoint& at) {
  const QRect monitor = MonitorAt(at);
  QRect kept = place;
  kept.moveRight(std::min(kept.right(), monitor.right()));
  kept.moveBottom(std::min(kept.bottom(), monitor.bottom()));
  kept.moveLeft(std::max(kept.left(), monitor.left()));
  kept.moveTop(std::max(kept.top(), monitor.top()));
  return kept;
}

QPoint PlaceBeside(const QSize& frame, const QRect& clicked) {
  QRect place(clicked.bottomLeft() + QPoint(0, kGap), frame);
  if (place.bottom() > MonitorAt(clicked.center()).bottom()) place.moveBottom(clicked.top() - kGap);
  return KeptOnMonitor(place, clicked.center()).topLeft();
}
