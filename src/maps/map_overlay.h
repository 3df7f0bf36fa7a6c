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
#include <optional>

#include "maps/map_name.h"

// Everything that is drawn on one map. Lines lie at the bottom, then the boxes of labels, then circles, so that no box
// covers the mark that it belongs to; the texts of labels lie on top.
struct MapOverlay {
  // A straight line with square ends.
  struct Line {
    QPointF from;
    QPointF to;
    QColor colour;
    double width = 2;
  };
  // A ring, or a disc where it is filled.
  struct Circle {
    QPointF centre;
    double radius = 4;
    QColor colour;
    double width = 2;  // of the rim; a filled one has none
    bool filled = false;
  };
  // A text on a background of its own, with or without a frame around it.
  struct Label {
    QString name;  // of the control, such as "lblCall(0)"; handed out with a click
    QString text;  // lines parted by CR LF
    QRectF place;  // as large as a LabelMeasure says for the text
    QRectF box;    // frame around it; empty: none
    QColor boxColour;
    double boxWidth = 2;
    QColor back;  // invalid: the desktop's tip colours
    bool clickable = false;
    QString id;   // what it stands for, such as a call: it keeps the keyboard's focus over a redraw; empty: the name
    QString tip;  // plain text, shown under the pointer and at the keyboard's focus
    // The mark that it belongs to. LayOutLabels then moves place and box beside it; none: they stay where they are.
    std::optional<QPointF> anchor;
    bool closable = false;  // with a sign at its right end that takes it away
    bool dot = false;       // no room for the text: place is the mark, and the text is heard and shown as a tip
  };
  QList<Line> lines;
  QList<Circle> circles;
  QList<Label> labels;
};

// Width of the sign at a label's right end that takes it away, in parts of the label's height.
inline constexpr double kMapCloseSign = 0.7;

// Width and height of a label with this text, in pixels of the picture.
using LabelMeasure = std::function<QSizeF(const QString& text)>;

// The map that is drawn upon: its formula, its size in pixels, and how large the texts of labels come out.
struct MapSurface {
  MapName map = MapName::None;
  QSize picture;
  LabelMeasure measure;
};

// What a map window's logic hands to the window that shows it.
struct MapDrawing {
  MapOverlay overlay;
  QString info;                 // the information line above the map
  QString spoken;               // what only a screen reader tells beside the information line
  std::optional<QPointF> keep;  // the point to be kept in view; none where the map has no formula
};
