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
  QSize frame;        // inner size of the frame
  QPoint place;       // left and top of the picture in the frame
  bool PanX = false;  // the picture is wider than the window, so that it can be dragged sideways
  bool PanY = false;

  // Gives the frame the window's inner size, less border, which the frame itself takes of it. Centres the picture,
  // whether it is smaller or larger.
  void FitMapToWindow(const QSize& window, const QSize& border = QSize(0, 0));
  // Moves the picture so that the point (in pixels of the picture) comes as near to the middle of the frame as the
  // picture's edges allow.
  void KeepInView(const QPointF& point, int bottomRoom = 0);
  // The point of the picture that lies in the middle of the visible part. hiddenRows: rows of the frame that lie below
  // the window's edge.
  QPointF Middle(int hiddenRows) const;
  // Moves that point back into the middle after the frame's size has changed, as far as the picture's edges allow.
  void KeepMiddle(const QPointF& middle, int hiddenRows);
  // One step of dragging. wanted: where the pointer would put the picture. Each direction takes its part of it or
  // stays; true where one of them moved.
  bool DragTo(const QPoint& wanted);
  // One step by keys or wheel, which stops at the edges of the picture. True where the picture moved.
  bool PanBy(const QPoint& step, int hiddenRows);
};

// Outer size of a window that shows the whole picture, as far as the screen allows. allowance: what the window's
// decoration adds to its inside.
QSize MapWindowSize(const QSize& picture, const QSize& allowance, const QSize& screen);
