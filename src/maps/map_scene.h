// SPDX-License-Identifier: GPL-3.0-or-later
// A map with all that lies on it, and how it is painted into an image: the picture, then lines, circles and labels.
// MapLayer paints small parts of it on the event loop and hands a copy to another thread for whole frames.
#pragma once

#include <QFont>
#include <QImage>

#include "maps/map_overlay.h"

class QPainter;

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

// A value: a copy shares the picture and the lists. In all painting, offset is the picture's place in the image, in
// device pixels.
class MapScene {
 public:
  // size: the map's size as its file tells it; all places count in its pixels. picture may have fewer pixels.
  void SetPicture(const QImage& picture, const QSize& size);
  void SetOverlay(const MapOverlay& overlay);
  void SetStyle(const MapStyle& style) { style_ = style; }

  const QImage& Picture() const { return picture_; }
  const MapOverlay& Overlay() const { return overlay_; }
  const MapStyle& Style() const { return style_; }
  // More lines or labels than can be painted over a whole screen at once.
  bool HasMuchOnIt() const;
  // The picture's pixels are not those of the screen, so that each of them is computed.
  bool IsScaled() const;

  // smooth: whether a scaled picture is scaled well, or four times as fast.
  void PaintPicture(QImage& image, const QRect& part, const QPoint& offset, bool smooth = true) const;
  void PaintOverlay(QImage& image, const QRect& part, const QPoint& offset) const;
  // Paints something of each kind, so that fonts and painters are loaded.
  void PaintAnything(QImage& image) const;

 private:
  void PaintLines(QImage& image, const QRect& part, const QPoint& offset) const;
  void PaintMarks(QImage& image, const QRect& part, const QPoint& offset) const;
  void PaintGround(QPainter& painter, const MapOverlay::Label& label) const;
  void PaintText(QPainter& painter, const MapOverlay::Label& label) const;
  QRect PictureRect(const QPoint& offset) const;

  QImage picture_;
  QSize size_;
  MapOverlay overlay_;
  MapStyle style_;
  bool smoothLines_ = true;
};

// An image of that size for a frame, in memory that comes quickly.
QImage NewFrame(const QSize& size);
// Copies pixels between images of 32 bits a pixel.
void CopyPixels(const QImage& from, const QRect& part, QImage& to, const QPoint& at);
