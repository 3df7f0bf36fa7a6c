// SPDX-License-Identifier: GPL-3.0-or-later
#include "maps/map_layer.h"

#include <cstring>
#include <utility>

namespace {

// Device pixels that are painted on the event loop whatever lies on them: some 8 ms.
constexpr qint64 kAtOnce = 1'000'000;

void MovePixels(QImage& image, const QRect& from, const QRect& to) {
  const qsizetype line = image.bytesPerLine();
  uchar* bits = image.bits();
  const auto bytes = static_cast<std::size_t>(to.width()) * sizeof(QRgb);
  for (int i = 0; i < to.height(); ++i) {
    // Begins at the side towards which the pixels move, so that no row is overwritten before it has been moved.
    const int row = to.y() > from.y() ? to.height() - 1 - i : i;
    std::memmove(bits + (to.top() + row) * line + to.left() * 4, bits + (from.top() + row) * line + from.left() * 4,
                 bytes);
  }
}

}  // namespace

void MapLayer::Job::Paint() {
  const QRect whole(QPoint(0, 0), frame);
  image = NewFrame(frame);
  if (scene.IsScaled() && ground.isNull()) {
    ground = NewFrame(frame);
    scene.PaintPicture(ground, whole, offset);
  }
  if (ground.isNull()) {
    scene.PaintPicture(image, whole, offset);
  } else {
    CopyPixels(ground, whole, image, whole.topLeft());
  }
  scene.PaintOverlay(image, whole, offset);
}

void MapLayer::SetPicture(const QImage& picture, const QSize& size) {
  scene_.SetPicture(picture, size);
  ground_ = QImage();
  stale_ = true;
  ++version_;
}

void MapLayer::SetOverlay(const MapOverlay& overlay) {
  scene_.SetOverlay(overlay);
  ++version_;
  // The frame goes on showing the former overlay until another thread has painted the new one.
  if (scene_.HasMuchOnIt() && IsLarge(frame_)) {
    behind_ = true;
  } else {
    stale_ = true;
  }
}

void MapLayer::SetStyle(const MapStyle& style) {
  if (style == scene_.Style()) return;
  if (style.ratio != scene_.Style().ratio || style.back != scene_.Style().back) ground_ = QImage();
  scene_.SetStyle(style);
  stale_ = true;
  ++version_;
}

bool MapLayer::IsLarge(const QRegion& region) const {
  qint64 pixels = 0;
  for (const QRect& part : region) pixels += static_cast<qint64>(part.width()) * part.height();
  return pixels > kAtOnce;
}

const QImage& MapLayer::Frame(const QSize& frame, const QPoint& place) {
  const double ratio = scene_.Style().ratio;
  const QSize size = (QSizeF(frame) * ratio).toSize();
  const QPoint offset = (QPointF(place) * ratio).toPoint();
  if (frame_.size() != size) {
    GrowImage(size);
    frame_ = QRect(QPoint(0, 0), size);
    ground_ = QImage();
    stale_ = true;
    ++version_;
  }
  QRegion missing;
  if (offset != offset_) missing = Shift(offset - offset_);
  offset_ = offset;
  UpdateGround(missing);
  if (stale_) {
    shown_ = scene_;
    behind_ = false;
    missing = frame_;
  }
  stale_ = false;
  if (!missing.isEmpty()) Compose(missing);
  return image_;
}

MapLayer::Job MapLayer::MakeJob() const {
  Job job;
  job.scene = scene_;
  job.frame = frame_.size();
  job.offset = offset_;
  job.ground = ground_;
  job.version = version_;
  return job;
}

void MapLayer::Take(Job&& done) {
  if (done.version != version_) return;
  image_ = std::move(done.image);
  ground_ = std::move(done.ground);
  // The next frame moves it to where the picture is by then.
  offset_ = done.offset;
  shown_ = scene_;
  stale_ = false;
  behind_ = false;
}

void MapLayer::GrowImage(const QSize& size) {
  const QSize room = image_.size().expandedTo(size);
  if (room != image_.size()) image_ = NewFrame(room);
}

void MapLayer::Prepare(const QSize& frame) {
  GrowImage((QSizeF(frame) * scene_.Style().ratio).toSize());
  image_.fill(scene_.Style().back);
  stale_ = true;
  scene_.PaintAnything(image_);
}

QRegion MapLayer::Shift(const QPoint& by) {
  const QRect kept = frame_ & frame_.translated(by);
  if (kept.isEmpty()) {
    ground_ = QImage();
    return frame_;
  }
  if (!stale_) MovePixels(image_, kept.translated(-by), kept);
  if (!ground_.isNull()) MovePixels(ground_, kept.translated(-by), kept);
  return QRegion(frame_) - kept;
}

void MapLayer::UpdateGround(const QRegion& missing) {
  if (!scene_.IsScaled()) return;
  if (!ground_.isNull() && !IsLarge(missing)) {
    for (const QRect& part : missing) scene_.PaintPicture(ground_, part, offset_);
    return;
  }
  ground_ = QImage();
  if (IsLarge(frame_)) return;
  ground_ = NewFrame(frame_.size());
  scene_.PaintPicture(ground_, frame_, offset_);
}

void MapLayer::Compose(const QRegion& missing) {
  const bool large = IsLarge(missing);
  const bool smooth = !large || !shown_.IsScaled() || !ground_.isNull();
  const bool whole = !large || !shown_.HasMuchOnIt();
  for (const QRect& part : missing) {
    if (ground_.isNull()) {
      shown_.PaintPicture(image_, part, offset_, smooth);
    } else {
      CopyPixels(ground_, part, image_, part.topLeft());
    }
    if (whole) shown_.PaintOverlay(image_, part, offset_);
  }
  if (!smooth || !whole) behind_ = true;
}
