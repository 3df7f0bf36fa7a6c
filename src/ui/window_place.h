// SPDX-License-Identifier: GPL-3.0-or-later
// The place of small windows: beside the clicked rectangle or over the pointer, always whole on one monitor. The lookup
// window, the picture window and BaseWindow use it before they show.
#pragma once

#include <QRect>
#include <QSize>
#include <QWidget>

// The part of the monitor at a point of the screen that is free of panels; of the nearest monitor if the point is
// outside all.
QRect MonitorAt(const QPoint& at);
// Width and height that the desktop's frame adds to a window; an estimate until the window has been shown.
QSize FrameOf(const QWidget* window);
// A rectangle, frame included, moved so that it is whole on the monitor at a point.
QRect KeptOnMonitor(const QRect& place, const QPoint& at);
// Top left corner for a window of this size (frame included): below the clicked rectangle, or above it if there is no
// space below.
QPoint PlaceBeside(const QSize& frame, const QRect& clicked);
