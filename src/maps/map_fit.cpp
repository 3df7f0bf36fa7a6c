// SPDX-License-Identifier: GPL-3.0-or-later
#include "maps/map_fit.h"

#include <algorithm>
#include <cmath>

namespace {

// Left (or top) of the picture in its frame, for a point of the picture that is to be as near to the frame's middle as
// the picture's edges allow. The point may lie far off the picture, so the result is limited before it becomes an int.
int PlaceFor(double point, int frame, int picture, int room) {
  const double wanted = std::min(frame / 2 - point, 0.0);
  return static_cast<int>(std::max(wanted, static_cast<double>(frame - picture - room)));
}

// lowest is below 0 for a picture larger than its frame: it can be moved up to its edges. A smaller picture stays.
int Stepped(int place, int step, int lowest) {
  return lowest < 0 ? std::clamp(place + step, lowest, 0) : place;
}

}  // namespace

void MapFit::FitMapToWindow(const QSize& window, const QSize& border) {
  const QSize whole = picture + border;
  PanX = whole.width() > window.width();
  PanY = whole.height() > window.height();
  frame = window - border;
  // A larger picture is centred in the frame's inside, a smaller one in the window. A picture of exactly the window's
  // size begins at the corner: where the map before it lay has no meaning for it.
  place.setX(PanX ? -(picture.width() - frame.width()) / 2 : (window.width() - whole.width()) / 2);
  place.setY(PanY ? -(picture.height() - frame.height()) / 2 : (window.height() - whole.height()) / 2);
}

void MapFit::KeepInView(const QPointF& point, int bottomRoom) {
  place = QPoint(PlaceFor(point.x(), frame.width(), picture.width(), 0),
                 PlaceFor(point.y(), frame.height(), picture.height(), bottomRoom));
  // The width alone decides for both directions: a map that is narrower than its frame is centred wherever the point
  // lies, even if the map is higher than the frame.
  if (picture.width() < frame.width()) {
    place = QPoint((frame.width() - picture.width()) / 2, (frame.height() - picture.height()) / 2);
  }
}

QPointF MapFit::Middle(int hiddenRows) const {
  return QPointF(frame.width() / 2.0, (frame.height() - hiddenRows) / 2.0) - QPointF(place);
}

void MapFit::KeepMiddle(const QPointF& middle, int hiddenRows) {
  const QPointF wanted = Middle(hiddenRows) + QPointF(place) - middle;
  PanBy(QPoint(static_cast<int>(std::lround(wanted.x())), static_cast<int>(std::lround(wanted.y()))) - place,
        hiddenRows);
}

bool MapFit::DragTo(const QPoint& wanted) {
  // A place beyond the bounds is refused, not limited: the picture then stays where it is in that direction.
  const auto mayGo = [](int to, int frameSize, int pictureSize) { return to < 1 && to > frameSize - pictureSize; };
  const bool takeY = PanY && mayGo(wanted.y(), frame.height(), picture.height());
  const bool takeX = PanX && mayGo(wanted.x(), frame.width(), picture.width());
  if (takeY) place.setY(wanted.y());
  if (takeX) place.setX(wanted.x());
  return takeX || takeY;
}

bool MapFit::PanBy(const QPoint& step, int hiddenRows) {
  const QPoint before = place;
  place.setX(Stepped(place.x(), step.x(), frame.width() - picture.width()));
  place.setY(Stepped(place.y(), step.y(), frame.height() - hiddenRows - picture.height()));
  return place != before;
}

QSize MapWindowSize(const QSize& picture, const QSize& allowance, const QSize& screen) {
  return (picture + allowance).boundedTo(screen);
}
