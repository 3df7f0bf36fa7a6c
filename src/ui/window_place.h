// SPDX-License-Identifier: GPL-3.0-or-later
// Where small windows stand: beside what was clicked or over the pointer, always whole on one monitor. The lookup
// window and the picture window ask before they show themselves.
#pragma once

#include <QRect>
#include <QSize>
#include <QWidget>

// Free part of the monitor at a point of the screen; of the first monitor for a point outside all.
QRect MonitorAt(const QPoint& at);
// What the desktop puts around a window; a fair guess until it has been shown once.
QSize FrameOf(const QWidget* window);
// A place, frame included, moved as far as the monitor at a point asks for.
QRect KeptOnMonitor(const QRect& place, const QPoint& at);
// Top left corner for a frame of that size: below what was clicked, above it where there is no room below.
QPoint PlaceBeside(const QSize& frame, const QRect& clicked);
