// SPDX-License-Identifier: GPL-3.0-or-later
// The inside of a map's frame as one finished image: the picture with lines, circles and labels. Panning moves the
// pixels that stay in view and draws only those that come in, so that a step costs little however much lies on the map.
// MapView owns one.
#pragma once

#include <QFont>
#include <QImage>
#include <QPainter>
#include <QRegion>

#include "maps/map_overlay.h"

// How a map is painted: letters, colours, sharpness.
struct MapStyle {
  QFont font;        // of the labels
  QColor back;       // around a picture smaller than its frame
  QColor labelBack;  // background of labels without a colour of their own
  QColor labelText;
  double ratio = 1;  // device pixels to one pixel of the map

  bool operator==(const MapStyle& other) const = default;
};

// Pixels between a label's edge and its text.
inline constexpr double kMapLabelMargin = 2;

// The frame's image, brought up to date when picture, overlay, style or place change.
class MapLayer {
 public:
  // size: the map's size as its file tells it; all places count in its pixels. picture may have fewer pixels.
  void SetPicture(const QImage& picture, const QSize& size);
  void SetOverlay(const MapOverlay& overlay);
  void SetStyle(const MapStyle& style);

  const QImage& Picture() const { return picture_; }
  const MapOverlay& Overlay() const { return overlay_; }

  // Returns an image whose upper left part, frame * ratio device pixels, shows the frame with the picture at place
  // (pixels of the map). The image may be larger than that.
  const QImage& Frame(const QSize& frame, const QPoint& place);
  // Allocates the memory for frames up to that size and loads the fonts, so that the first frame does not wait for
  // them.
  void Prepare(const QSize& frame);

 private:
  void GrowImage(const QSize& size);
  QRegion Shift(const QPoint& by);
  void Compose(const QRect& part);
  void ComposePicture(const QRect& part);
  void ComposeLines(const QRect& part);
  void ComposeMarks(const QRect& part);
  void PaintGround(QPainter& painter, const MapOverlay::Label& label) const;
  void PaintCircle(QPainter& painter, const MapOverlay::Circle& circle) const;
  void PaintText(QPainter& painter, const MapOverlay::Label& label) const;
  // The picture's place in image_.
  QRect PictureRect() const;
  QPointF ToImage(const QPointF& point) const { return point * style_.ratio + QPointF(offset_); }

  QImage picture_;
  QSize size_;
  MapOverlay overlay_;
  MapStyle style_;
  bool smoothLines_ = true;
  QImage image_;   // as large as the largest frame so far: fresh memory takes longer than painting
  QRect frame_;    // the part of it that is used
  QPoint offset_;  // of the picture in image_, device pixels
  bool stale_ = true;
};
