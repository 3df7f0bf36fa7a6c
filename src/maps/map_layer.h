// SPDX-License-Identifier: GPL-3.0-or-later
// The inside of a map's frame as one finished image: the picture with lines, circles and labels. Panning moves the
// pixels that stay in view and draws only those that come in, so that a step costs little however much lies on the map.
// What would hold the event loop, whole frames of thousands of lines or of scaled pixels, is painted on another thread.
// MapView owns one.
#pragma once

#include <QRegion>

#include "maps/map_scene.h"

// The frame's image, brought up to date when picture, overlay, style or place change.
class MapLayer {
 public:
  // A whole frame to be painted beside the event loop. It is a value of its own and changes with nothing else.
  struct Job {
    MapScene scene;
    QSize frame;
    QPoint offset;
    QImage ground;  // the scaled picture where the layer has it, else what Paint() has made of it
    QImage image;   // made by Paint()
    quint64 version = 0;

    void Paint();
  };

  void SetPicture(const QImage& picture, const QSize& size);
  void SetOverlay(const MapOverlay& overlay);
  void SetStyle(const MapStyle& style);

  const QImage& Picture() const { return scene_.Picture(); }
  const MapOverlay& Overlay() const { return scene_.Overlay(); }

  // Returns an image whose upper left part, frame * ratio device pixels, shows the frame with the picture at place
  // (pixels of the map). The image may be larger than that.
  const QImage& Frame(const QSize& frame, const QPoint& place);
  // Something is missing in the last frame, or looks worse than it should, until Take() gets a job that is done.
  bool IsBehind() const { return behind_; }
  Job MakeJob() const;
  // A job that something has overtaken changes nothing, and the layer stays behind.
  void Take(Job&& done);
  // Allocates the memory for frames up to that size and loads the fonts, so that the first frame does not wait for
  // them.
  void Prepare(const QSize& frame);

 private:
  void GrowImage(const QSize& size);
  QRegion Shift(const QPoint& by);
  void UpdateGround(const QRegion& missing);
  void Compose(const QRegion& missing);
  bool IsLarge(const QRegion& region) const;

  MapScene scene_;
  MapScene shown_;  // what the image shows, strips at its edges included
  QImage image_;    // as large as the largest frame so far: fresh memory takes longer than painting
  QImage ground_;   // the scaled picture alone, so that a new overlay is no new picture; null: not scaled
  QRect frame_;     // the part of them that is used
  QPoint offset_;   // of the picture in them, device pixels
  bool stale_ = true;
  bool behind_ = false;
  quint64 version_ = 0;  // of everything but the offset
};
