// SPDX-License-Identifier: GPL-3.0-or-later
#include "maps/map_line.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr int kFraction = 32;  // bits behind the binary point
constexpr double kOne = 4294967296.0;
constexpr quint32 kWhole = 256;  // a pixel that is covered altogether

// A line as seen along its longer direction: at each step it covers a short run of pixels across.
struct Run {
  qint64 middle;  // across, fixed point, at the first step
  qint64 slope;
  qint64 half;  // of the thickness across
  qsizetype alongStride;
  qsizetype acrossStride;
  qint64 lowest;  // first and last pixel across that the clip allows
  qint64 highest;
};

// A colour and how much of it covers what lies below.
struct Ink {
  QRgb colour;
  quint32 strength;  // 0 to 256
};

QRgb Mixed(QRgb under, QRgb over, quint32 part) {
  constexpr quint32 kRedBlue = 0x00ff00ff;
  constexpr quint32 kGreen = 0x0000ff00;
  const quint32 rest = kWhole - part;
  const quint32 redBlue = ((under & kRedBlue) * rest + (over & kRedBlue) * part) >> 8;
  const quint32 green = ((under & kGreen) * rest + (over & kGreen) * part) >> 8;
  return 0xff000000 | (redBlue & kRedBlue) | (green & kGreen);
}

quint32 FractionOf(qint64 value) {
  return static_cast<quint32>((value >> (kFraction - 8)) & 0xff);
}

// checked: every pixel is tested against the clip, which is left out for a line that cannot leave the clip at its
// sides.
template <bool checked>
void DrawSmooth(QRgb* start, int steps, const Run& run, const Ink& ink) {
  const auto put = [&run, &ink](QRgb* base, qint64 across, quint32 coverage) {
    if (checked && (across < run.lowest || across > run.highest)) return;
    QRgb& pixel = base[across * run.acrossStride];
    pixel = Mixed(pixel, ink.colour, (coverage * ink.strength) >> 8);
  };
  qint64 middle = run.middle;
  for (int i = 0; i < steps; ++i, start += run.alongStride, middle += run.slope) {
    const qint64 top = middle - run.half;
    const qint64 bottom = middle + run.half;
    const qint64 first = top >> kFraction;
    const qint64 last = bottom >> kFraction;
    if (first == last) {
      put(start, first, FractionOf(bottom - top));
      continue;
    }
    put(start, first, kWhole - FractionOf(top));
    for (qint64 across = first + 1; across < last; ++across) put(start, across, kWhole);
    put(start, last, FractionOf(bottom));
  }
}

template <bool checked>
void DrawPlain(QRgb* start, int steps, const Run& run, QRgb colour) {
  constexpr qint64 kRound = qint64(1) << (kFraction - 1);
  const qint64 thickness = std::max<qint64>(1, (2 * run.half + kRound) >> kFraction);
  qint64 top = run.middle - run.half + kRound;
  for (int i = 0; i < steps; ++i, start += run.alongStride, top += run.slope) {
    const qint64 first = top >> kFraction;
    if (checked) {
      const qint64 end = std::min(first + thickness - 1, run.highest);
      for (qint64 across = std::max(first, run.lowest); across <= end; ++across) {
        start[across * run.acrossStride] = colour;
      }
      continue;
    }
    QRgb* pixel = start + first * run.acrossStride;
    for (qint64 across = 0; across < thickness; ++across, pixel += run.acrossStride) *pixel = colour;
  }
}

void DrawRun(QRgb* start, int steps, const Run& run, const MapLineStyle& style) {
  const qint64 end = run.middle + run.slope * (steps - 1);
  // With a margin of two pixels, more than rounding can add.
  const qint64 reach = run.half + (qint64(2) << kFraction);
  const bool inside = std::min(run.middle, end) - reach >= (run.lowest << kFraction) &&
                      std::max(run.middle, end) + reach <= (run.highest << kFraction);
  if (style.smooth || qAlpha(style.colour) < 255) {
    const Ink ink{style.colour, static_cast<quint32>(qAlpha(style.colour)) + 1};
    inside ? DrawSmooth<false>(start, steps, run, ink) : DrawSmooth<true>(start, steps, run, ink);
  } else {
    const QRgb colour = style.colour | 0xff000000;
    inside ? DrawPlain<false>(start, steps, run, colour) : DrawPlain<true>(start, steps, run, colour);
  }
}

}  // namespace

MapLineCanvas::MapLineCanvas(QImage& picture, const QRect& clip)
    : bits_(reinterpret_cast<QRgb*>(picture.bits())),
      stride_(picture.bytesPerLine() / static_cast<qsizetype>(sizeof(QRgb))),
      clip_(clip & picture.rect()) {}

void MapLineCanvas::Draw(const QPointF& from, const QPointF& to, const MapLineStyle& style) {
  const double reach = style.width + 1;
  if (clip_.isEmpty() || std::max(from.x(), to.x()) < clip_.left() - reach ||
      std::min(from.x(), to.x()) > clip_.right() + reach || std::max(from.y(), to.y()) < clip_.top() - reach ||
      std::min(from.y(), to.y()) > clip_.bottom() + reach) {
    return;
  }
  const bool steep = std::abs(to.y() - from.y()) > std::abs(to.x() - from.x());
  QPointF a = steep ? from.transposed() : from;
  QPointF b = steep ? to.transposed() : to;
  if (a.x() > b.x()) std::swap(a, b);
  if (!(b.x() > a.x()) || !std::isfinite(b.x() - a.x())) return;
  const QRect clip = steep ? QRect(clip_.y(), clip_.x(), clip_.height(), clip_.width()) : clip_;
  const double slope = (b.y() - a.y()) / (b.x() - a.x());
  const double half = style.width * std::sqrt(1 + slope * slope) / 2;

  // The steps (pixels along the line) whose middle lies between the line's ends, and of these the ones that touch the
  // clip.
  double first = std::max<double>(clip.left(), std::ceil(a.x() - 0.5));
  double last = std::min<double>(clip.right(), std::ceil(b.x() - 0.5) - 1);
  const auto stepAt = [&a, slope](double across) { return (across - a.y()) / slope + a.x() - 0.5; };
  const double above = clip.top() - half;
  const double below = clip.bottom() + 1 + half;
  if (slope == 0) {
    if (a.y() < above || a.y() > below) return;
  } else {
    const auto [enter, leave] = std::minmax({stepAt(above), stepAt(below)});
    first = std::max(first, std::floor(enter));
    last = std::min(last, std::ceil(leave));
  }
  if (!(first <= last)) return;

  Run run;
  run.middle = std::llround((a.y() + (first + 0.5 - a.x()) * slope) * kOne);
  run.slope = std::llround(slope * kOne);
  run.half = std::llround(half * kOne);
  run.alongStride = steep ? stride_ : 1;
  run.acrossStride = steep ? 1 : stride_;
  run.lowest = clip.top();
  run.highest = clip.bottom();
  QRgb* start = bits_ + static_cast<qsizetype>(first) * run.alongStride;
  const int steps = static_cast<int>(last - first) + 1;
  DrawRun(start, steps, run, style);
}
