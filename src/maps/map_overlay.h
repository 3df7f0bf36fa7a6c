// SPDX-License-Identifier: GPL-3.0-or-later
// What is drawn on a map, as plain values in pixels of its picture; all of it follows the picture when it is panned.
// A map window's logic fills one, MapView paints it: up to 5,000 lines and 500 labels, in the order given.
#pragma once

#include <QColor>
#include <QList>
#include <QPointF>
#include <QRectF>
#include <QString>
#include <functional>

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
    double width = 2;  // of the rim; a filled one has none
    bool filled = false;
  };
  struct Label {
    QString name;  // of the control, such as "lblCall(0)"; handed out with a click
    QString text;  // lines parted by CR LF
    QRectF place;  // as large as a LabelMeasure says for the text
    QRectF box;    // frame around it; empty: none
    QColor boxColour;
    double boxWidth = 2;
    QColor back;  // invalid: the desktop's tip colours
    bool clickable = false;
  };
  QList<Line> lines;
  QList<Circle> circles;
  QList<Label> labels;
};

// Width and height of a label with this text, in pixels of the picture.
using LabelMeasure = std::function<QSizeF(const QString& text)>;
