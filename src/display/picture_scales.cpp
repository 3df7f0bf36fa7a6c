// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/picture_scales.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int kSmallest = 256;  // pixels of the longer side below which nothing is halved

// Two of the four bytes of a pixel, each in a half of the number, so that they are added at once.
constexpr quint32 kEven = 0x00FF00FF;

// The mean of four pixels, byte by byte, rounded.
quint32 Mean(quint32 a, quint32 b, quint32 c, quint32 d) {
  const quint32 even = (a & kEven) + (b & kEven) + (c & kEven) + (d & kEven) + 0x00020002;
  const quint32 odd = ((a >> 8) & kEven) + ((b >> 8) & kEven) + ((c >> 8) & kEven) + ((d >> 8) & kEven) + 0x00020002;
  return ((even >> 2) & kEven) | (((odd >> 2) & kEven) << 8);
}

QImage Halved(const QImage& image) {
  const int width = image.width();
  QImage half((width + 1) / 2, (image.height() + 1) / 2, image.format());
  for (int y = 0; y < half.height(); ++y) {
    const auto* upper = reinterpret_cast<const quint32*>(image.constScanLine(2 * y));
    const auto* lower = reinterpret_cast<const quint32*>(image.constScanLine(std::min(2 * y + 1, image.height() - 1)));
    auto* line = reinterpret_cast<quint32*>(half.scanLine(y));
    for (int x = 0; x < width / 2; ++x) {
      line[x] = Mean(upper[2 * x], upper[2 * x + 1], lower[2 * x], lower[2 * x + 1]);
    }
    if (width % 2 != 0) line[width / 2] = Mean(upper[width - 1], upper[width - 1], lower[width - 1], lower[width - 1]);
  }
  return half;
}

// A part of an image that refers to its pixels.
QImage PartOf(const QImage& image, const QRect& part) {
  const uchar* first = image.constScanLine(part.top()) + qsizetype{4} * part.left();
  return {first, part.width(), part.height(), image.bytesPerLine(), image.format()};
}

}  // namespace

void PictureScales::MakeHalves() {
  if (IsEmpty()) return;
  scales_.resize(1);
  while (std::max(scales_.last().width(), scales_.last().height()) > kSmallest) {
    QImage half = Halved(scales_.last());
    if (half.isNull()) return;  // no memory: larger copies do, only slower
    scales_.append(std::move(half));
  }
}

const QImage& PictureScales::For(QSizeF pixels) const {
  const auto tooSmall = [&pixels](const QImage& scale) {
    return scale.width() < pixels.width() || scale.height() < pixels.height();
  };
  const auto found = std::find_if(scales_.cbegin() + 1, scales_.cend(), tooSmall);
  return *(found - 1);
}

bool PictureScales::IsExact(const QRectF& place) const {
  return QSizeF(For(place.size()).size()) == place.size() && place.topLeft() == QPointF(place.topLeft().toPoint());
}

void PictureScales::Paint(QPainter& painter, const QRectF& place, const QRect& frame, bool smooth) const {
  const QRectF seen = place & QRectF(frame);
  if (IsEmpty() || seen.isEmpty()) return;
  const QImage& image = For(place.size());
  const double across = image.width() / place.width();
  const double down = image.height() / place.height();
  // Only the pixels that are seen, and one more at each side for smoothing: the painter's arithmetic has no room for
  // the coordinates of a large picture that is enlarged.
  const QRect part = QRectF((seen.left() - place.left()) * across - 1, (seen.top() - place.top()) * down - 1,
                            seen.width() * across + 2, seen.height() * down + 2)
                         .toAlignedRect()
                         .intersected(image.rect());
  if (part.isEmpty()) return;
  const QRectF target(place.left() + part.left() / across, place.top() + part.top() / down, part.width() / across,
                      part.height() / down);
  if (image.hasAlphaChannel()) painter.fillRect(seen, Qt::white);
  painter.setRenderHint(QPainter::SmoothPixmapTransform, smooth);
  painter.drawImage(target, PartOf(image, part));
}

QImage PictureScales::Render(const QRectF& place, QSize frame) const {
  QImage image(frame, QImage::Format_RGB32);
  image.fill(Qt::black);
  QPainter painter(&image);
  Paint(painter, place, image.rect(), true);
  return image;
}
