// SPDX-License-Identifier: GPL-3.0-or-later
#include "maps/map_scene.h"

#include <sys/mman.h>

#include <QFontMetricsF>
#include <QPainter>
#include <QSemaphore>
#include <QThreadPool>
#include <QtEndian>
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <span>
#include <vector>

#include "maps/map_file.h"
#include "maps/map_line.h"

using namespace Qt::StringLiterals;

namespace {

// Lines that together are longer than this many pixels are drawn without smooth edges: smoothing takes four times as
// long, and among thousands of lines nobody sees it.
constexpr double kSmoothPixels = 800'000;
// Lines are drawn tile by tile: a steep line across the whole frame would miss the processor's caches at each row.
constexpr int kTile = 512;
constexpr std::size_t kLinesForTwo = 1000;  // from this many lines on a second core helps
// From here on an overlay takes longer to paint over a whole screen than the event loop may be held.
constexpr qsizetype kManyLines = 300;
constexpr qsizetype kManyLabels = 100;

// Black or white, whichever can be read on that background.
QColor TextOn(const QColor& back) {
  return qGray(back.rgb()) < 128 ? QColor(Qt::white) : QColor(Qt::black);
}

// From the picture's three bytes a pixel to a frame's four.
void UnpackPixels(const QImage& from, const QRect& part, QImage& to, const QPoint& at) {
  for (int y = 0; y < part.height(); ++y) {
    const uchar* bytes = from.constScanLine(part.top() + y) + part.left() * qsizetype{3};
    auto* pixels = reinterpret_cast<QRgb*>(to.scanLine(at.y() + y)) + at.x();
    const int last = part.width() - 1;
    // Reads four bytes at once, of which the last belongs to the next pixel; behind the last pixel there may be none.
    for (int x = 0; x < last; ++x, bytes += 3) pixels[x] = 0xff000000U | (qFromBigEndian<quint32>(bytes) >> 8U);
    pixels[last] = qRgb(bytes[0], bytes[1], bytes[2]);
  }
}

void PaintCircle(QPainter& painter, const MapOverlay::Circle& circle) {
  painter.setPen(circle.filled ? QPen(Qt::NoPen) : QPen(circle.colour, circle.width));
  painter.setBrush(circle.filled ? QBrush(circle.colour) : QBrush(Qt::NoBrush));
  painter.drawEllipse(circle.centre, circle.radius, circle.radius);
}

}  // namespace

void MapScene::SetPicture(const QImage& picture, const QSize& size) {
  picture_ = picture.format() == kMapFormat ? picture : picture.convertToFormat(kMapFormat);
  size_ = picture_.isNull() ? QSize() : size;
}

void MapScene::SetOverlay(const MapOverlay& overlay) {
  overlay_ = overlay;
  double pixels = 0;
  for (const MapOverlay::Line& line : std::as_const(overlay_.lines)) {
    const QPointF way = line.to - line.from;
    pixels += std::min(std::max(std::abs(way.x()), std::abs(way.y())), 4000.0);
  }
  smoothLines_ = pixels <= kSmoothPixels;
}

bool MapScene::HasMuchOnIt() const {
  return overlay_.lines.size() >= kManyLines || overlay_.labels.size() >= kManyLabels;
}

QRect MapScene::PictureRect(const QPoint& offset) const {
  // A rectangle of no valid size would intersect with others.
  if (picture_.isNull()) return {};
  return {offset, (QSizeF(size_) * style_.ratio).toSize()};
}

bool MapScene::IsScaled() const {
  return !picture_.isNull() && PictureRect({}).size() != picture_.size();
}

void MapScene::PaintPicture(QImage& image, const QRect& part, const QPoint& offset, bool smooth) const {
  const QRect inside = part & PictureRect(offset);
  if (inside != part) QPainter(&image).fillRect(part, style_.back);
  if (inside.isEmpty()) return;
  if (!IsScaled()) {
    UnpackPixels(picture_, inside.translated(-offset), image, inside.topLeft());
    return;
  }
  const QRectF whole = PictureRect(offset);
  QPainter painter(&image);
  painter.setClipRect(inside);
  painter.setRenderHint(QPainter::SmoothPixmapTransform, smooth);
  // Draws only the part of the picture that is needed, because QPainter fails where a target reaches beyond 16 bits.
  // The rim of such a part is scaled differently from the same pixels inside a larger part, so a few more pixels are
  // drawn around it, outside of the clip.
  const double acrossX = picture_.width() / whole.width();
  const double acrossY = picture_.height() / whole.height();
  const double rimX = 2 + 2 / acrossX;
  const double rimY = 2 + 2 / acrossY;
  const QRectF target = QRectF(inside).adjusted(-rimX, -rimY, rimX, rimY) & whole;
  const QPointF from = target.topLeft() - whole.topLeft();
  const QRectF source(from.x() * acrossX, from.y() * acrossY, target.width() * acrossX, target.height() * acrossY);
  // QPainter scales images of four bytes a pixel several times as fast as those of three.
  const QRect needed = source.toAlignedRect().adjusted(-1, -1, 1, 1) & picture_.rect();
  QImage unpacked(needed.size(), QImage::Format_RGB32);
  UnpackPixels(picture_, needed, unpacked, QPoint(0, 0));
  painter.drawImage(target, unpacked, source.translated(-needed.topLeft()));
}

void MapScene::PaintOverlay(QImage& image, const QRect& part, const QPoint& offset) const {
  // Lines, circles and labels end at the picture's edge.
  const QRect inside = part & PictureRect(offset);
  if (inside.isEmpty()) return;
  PaintLines(image, inside, offset);
  PaintMarks(image, inside, offset);
}

void MapScene::PaintAnything(QImage& image) const {
  QPainter painter(&image);
  MapOverlay::Label label;
  label.text = u"0°"_s;
  label.place = QRectF(0, 0, 40, 20);
  painter.setFont(style_.font);
  PaintGround(painter, label);
  PaintText(painter, label);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.drawEllipse(label.place);
}

QImage NewFrame(const QSize& size) {
  // Memory comes in pages of 4 KiB, each zeroed when it is first written: for a screen that takes longer than painting
  // it. Pages of 2 MiB take a third of that.
  constexpr std::size_t kLargePage = 2UL << 20;
  const std::size_t line = sizeof(QRgb) * static_cast<std::size_t>(std::max(0, size.width()));
  const std::size_t bytes = line * static_cast<std::size_t>(std::max(0, size.height()));
  if (bytes < kLargePage) return QImage(size, QImage::Format_RGB32);
  const std::size_t whole = (bytes + kLargePage - 1) / kLargePage * kLargePage;
  void* memory = std::aligned_alloc(kLargePage, whole);
  if (memory == nullptr) return QImage(size, QImage::Format_RGB32);
  // Where the system has none to give, the pages are ordinary ones.
  madvise(memory, whole, MADV_HUGEPAGE);
  return QImage(static_cast<uchar*>(memory), size.width(), size.height(), static_cast<qsizetype>(line),
                QImage::Format_RGB32, std::free, memory);
}

void CopyPixels(const QImage& from, const QRect& part, QImage& to, const QPoint& at) {
  const auto bytes = static_cast<std::size_t>(part.width()) * sizeof(QRgb);
  for (int y = 0; y < part.height(); ++y) {
    std::memcpy(to.scanLine(at.y() + y) + at.x() * 4, from.constScanLine(part.top() + y) + part.left() * 4, bytes);
  }
}

void MapScene::PaintLines(QImage& image, const QRect& part, const QPoint& offset) const {
  if (overlay_.lines.isEmpty()) return;
  struct Stroke {
    QPointF from;
    QPointF to;
    MapLineStyle style;
  };
  const auto toImage = [this, &offset](const QPointF& point) { return point * style_.ratio + QPointF(offset); };
  std::vector<Stroke> strokes;
  strokes.reserve(static_cast<std::size_t>(overlay_.lines.size()));
  for (const MapOverlay::Line& line : std::as_const(overlay_.lines)) {
    strokes.push_back(
        {toImage(line.from), toImage(line.to), {line.colour.rgba(), line.width * style_.ratio, smoothLines_}});
  }
  std::vector<MapLineCanvas> tiles;
  for (int top = part.top(); top <= part.bottom(); top += kTile) {
    for (int left = part.left(); left <= part.right(); left += kTile) {
      tiles.emplace_back(image, part & QRect(left, top, kTile, kTile));
    }
  }
  const auto draw = [&strokes](std::span<MapLineCanvas> some) {
    for (MapLineCanvas& tile : some) {
      for (const Stroke& stroke : strokes) tile.Draw(stroke.from, stroke.to, stroke.style);
    }
  };
  // Thousands of lines: half of the tiles on another core. The halves touch different pixels.
  const std::size_t half = strokes.size() >= kLinesForTwo ? tiles.size() / 2 : 0;
  QSemaphore done;
  const bool helped = half > 0 && QThreadPool::globalInstance()->tryStart([&]() {
    draw(std::span(tiles).first(half));
    done.release();
  });
  draw(std::span(tiles).subspan(helped ? half : 0));
  if (helped) done.acquire();
}

void MapScene::PaintMarks(QImage& image, const QRect& part, const QPoint& offset) const {
  if (overlay_.circles.isEmpty() && overlay_.labels.isEmpty()) return;
  QPainter painter(&image);
  painter.setClipRect(part);
  painter.translate(offset);
  painter.scale(style_.ratio, style_.ratio);
  const QRectF shown((QPointF(part.topLeft()) - QPointF(offset)) / style_.ratio, QSizeF(part.size()) / style_.ratio);
  std::vector<const MapOverlay::Label*> labels;
  for (const MapOverlay::Label& label : std::as_const(overlay_.labels)) {
    if (label.dot) continue;
    const double rim = label.boxWidth;
    if (shown.intersects(label.place.united(label.box).adjusted(-rim, -rim, rim, rim))) labels.push_back(&label);
  }
  for (const MapOverlay::Label* label : labels) PaintGround(painter, *label);
  painter.setRenderHint(QPainter::Antialiasing);
  for (const MapOverlay::Circle& circle : std::as_const(overlay_.circles)) {
    const double reach = circle.radius + circle.width;
    const QRectF around(circle.centre - QPointF(reach, reach), QSizeF(2 * reach, 2 * reach));
    if (shown.intersects(around)) PaintCircle(painter, circle);
  }
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.setFont(style_.font);
  for (const MapOverlay::Label* label : labels) PaintText(painter, *label);
}

void MapScene::PaintGround(QPainter& painter, const MapOverlay::Label& label) const {
  painter.fillRect(label.place.united(label.box), label.back.isValid() ? label.back : style_.labelBack);
  if (label.box.isEmpty()) return;
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(label.boxColour, label.boxWidth, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
  painter.drawRect(label.box);
}

void MapScene::PaintText(QPainter& painter, const MapOverlay::Label& label) const {
  painter.setPen(label.back.isValid() ? TextOn(label.back) : style_.labelText);
  const QFontMetricsF metrics(style_.font);
  double base = label.place.top() + kMapLabelMargin + metrics.ascent();
  const double sign = label.closable ? label.place.height() * kMapCloseSign : 0;
  const double middle = label.place.center().x() - sign / 2;
  if (label.closable) {
    const QPointF centre(label.place.right() - sign / 2, label.place.center().y());
    const double arm = sign / 4;
    painter.drawLine(centre - QPointF(arm, arm), centre + QPointF(arm, arm));
    painter.drawLine(centre - QPointF(arm, -arm), centre + QPointF(arm, -arm));
  }
  for (const QStringView line : QStringView(label.text).split(u'\n')) {
    const QString text = (line.endsWith(u'\r') ? line.chopped(1) : line).toString();
    // Each line is centred with its blanks, so that a text of one line fills its label as it is written.
    painter.drawText(QPointF(middle - metrics.horizontalAdvance(text) / 2, base), text);
    base += metrics.lineSpacing();
  }
}
