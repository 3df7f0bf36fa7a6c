// SPDX-License-Identifier: GPL-3.0-or-later
// Where the picture of a map lies in its frame: fitted to a window, panned by hand, moved so that a point is in view.
// MapView holds one; all figures are pixels.
#pragma once

#include <QPoint>
#include <QPointF>
#include <QSize>

// The frame of a map window begins below its bar and is as high as the whole window, so that its lowest rows lie below
// the window's edge. Maps that keep a point in view leave this much room below the picture for it.
inline constexpr int kMapBottomRoom = 25;

// The picture's place in its frame, and the steps that change it.
struct MapFit {
  QSize picture;      // empty: no picture
  QSize frame;        // inside of the frame
  QPoint place;       // left and top of the picture in the frame
  bool PanX = false;  // the picture is wider than the window, so that it can be dragged sideways
  bool PanY = false;

  // The frame takes the window's inner size; border is what the frame itself takes of it. The picture is centred,
  // whether it is smaller or larger.
  void FitMapToWindow(const QSize& window, const QSize& border = QSize(0, 0));
  // The picture moves so that the point (of the picture) comes as near to the middle of the frame as its edges allow.
  void KeepInView(const QPointF& point, int bottomRoom = 0);
  // The point of the picture in the middle of what is seen. hiddenRows: of the frame below the window's edge.
  QPointF Middle(int hiddenRows) const;
  // That point moves back into the middle of a frame whose size has changed, as far as the edges allow.
  void KeepMiddle(const QPointF& middle, int hiddenRows);
  // A step of dragging: the place that the pointer asks for. Each direction takes it or stays; true where one took it.
  bool DragTo(const QPoint& wanted);
  // A step by keys or wheel, stopping at the edges of the picture.
  bool PanBy(const QPoint& step, int hiddenRows);
};

// Outer size of a window that shows the whole picture, as far as the screen allows. allowance: what the window's
// decoration adds to its inside.
QSize MapWindowSize(const QSize& picture, const QSize& allowance, const QSize& screen);
