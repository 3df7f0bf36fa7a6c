// SPDX-License-Identifier: GPL-3.0-or-later
// picOuter and picInner of every map window: the picture of a map in its frame, panned by mouse and keys, with lines,
// circles and labels upon it. The window says what is drawn, in pixels of the picture; the view paints it.
#pragma once

#include <QColor>
#include <QImage>
#include <QList>
#include <QPoint>
#include <QRect>
#include <QString>
#include <QWidget>

// What is drawn on a map, in pixels of its picture; all of it follows the picture when it is panned.
struct MapOverlay {
  struct Line {
    QPointF from;
    QPointF to;
    QColor colour;
    double width = 2;
  };
  struct Circle {
    QPointF centre;
    double radius = 4;
    QColor colour;
    double width = 2;
    bool filled = false;
  };
  struct Label {
    QString name;  // of the control, such as "lblCall(0)"; handed out with a click
    QString text;  // lines parted by CR LF
    QPointF anchor;  // the label is placed by the window through LabelSize
    QRectF place;
    QRectF box;      // frame around it; empty: none
    QColor back;     // invalid: the desktop's tip colour
    bool clickable = false;
  };
  QList<Line> lines;
  QList<Circle> circles;
  QList<Label> labels;
};
