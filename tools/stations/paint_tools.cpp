// SPDX-License-Identifier: GPL-3.0-or-later
#include "paint_tools.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

quint32 Scramble(quint32 x) {
  x ^= x >> 16U;
  x *= 0x7feb352dU;
  x ^= x >> 15U;
  x *= 0x846ca68bU;
  return x ^ (x >> 16U);
}

double Lattice(int x, int y, quint32 seed) {
  return static_cast<double>(
             Scramble(static_cast<quint32>(x) * 73856093U ^ static_cast<quint32>(y) * 19349663U ^ seed)) /
         4294967295.0;
}

double Smooth(double t) {
  return t * t * (3 - 2 * t);
}

// Plain arithmetic: the library's lerp and floor take half the time of a picture.
double Between(double a, double b, double t) {
  return a + (b - a) * t;
}

int Below(double x) {
  const int i = static_cast<int>(x);
  return x < i ? i - 1 : i;
}

QRgb Blend(QRgb below, const QColor& above, double alpha) {
  const auto mix = [alpha](int one, int other) { return static_cast<int>(one + (other - one) * alpha); };
  return qRgb(mix(qRed(below), above.red()), mix(qGreen(below), above.green()), mix(qBlue(below), above.blue()));
}

QRgb* Row(Canvas& c, int y) {
  return reinterpret_cast<QRgb*>(c.image.scanLine(y));
}

}  // namespace

Canvas::Canvas(QSize size, quint32 pictureSeed)
    : image(size, QImage::Format_RGB32),
      rng(pictureSeed),
      seed(Scramble(pictureSeed)),
      w(size.width()),
      h(size.height()),
      u(std::min(size.width() * 0.75, size.height() * 1.0) / 480.0) {
  image.fill(Qt::black);
  p.begin(&image);
  p.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing | QPainter::SmoothPixmapTransform);
}

QColor Mix(const QColor& one, const QColor& other, double part) {
  const QRgb a = one.rgb();
  const QRgb b = other.rgb();
  const int weight = static_cast<int>(part * 1024);
  const auto mix = [weight](int from, int to) { return std::clamp(from + (to - from) * weight / 1024, 0, 255); };
  return {mix(qRed(a), qRed(b)), mix(qGreen(a), qGreen(b)), mix(qBlue(a), qBlue(b))};
}

QColor Alpha(const QColor& colour, double alpha) {
  QColor result = colour;
  result.setAlphaF(static_cast<float>(std::clamp(alpha, 0.0, 1.0)));
  return result;
}

int Steps(double length, double step) {
  return std::max(0, static_cast<int>(std::ceil(length / step)));
}

double Noise(double x, double y, quint32 seed) {
  const int i = Below(x);
  const int j = Below(y);
  const double s = Smooth(x - i);
  const double above = Between(Lattice(i, j, seed), Lattice(i + 1, j, seed), s);
  const double below = Between(Lattice(i, j + 1, seed), Lattice(i + 1, j + 1, seed), s);
  return Between(above, below, Smooth(y - j));
}

double Fbm(double x, double y, int octaves, quint32 seed) {
  double sum = 0;
  double weight = 0.5;
  double total = 0;
  for (int octave = 0; octave < octaves; ++octave) {
    sum += weight * Noise(x, y, seed + static_cast<quint32>(octave) * 101U);
    total += weight;
    weight *= 0.5;
    x *= 2.03;
    y *= 2.03;
  }
  return sum / total;
}

void FillSky(Canvas& c, const QGradientStops& stops, double bottom) {
  QLinearGradient gradient(0, 0, 0, c.Y(bottom));
  gradient.setStops(stops);
  c.p.fillRect(QRectF(0, 0, c.w, c.Y(bottom) + 1), gradient);
}

void Clouds(Canvas& c, const QColor& lit, const QColor& shade, double cover, double bottom) {
  const quint32 seed = c.seed + static_cast<quint32>(c.rng.Int(0, 9999));
  const int rows = std::min(c.image.height(), static_cast<int>(c.Y(bottom)));
  for (int y = 0; y < rows; ++y) {
    const double depth = 1.0 / (1.12 - 1.0 * y / c.Y(bottom));  // towards the horizon everything gets flatter
    QRgb* row = Row(c, y);
    for (int x = 0; x < c.image.width(); ++x) {
      const double nx = (x / c.h - 0.5) * 1.6 * std::sqrt(depth);
      const double ny = depth * 1.9;
      const double density = Fbm(nx * 2, ny * 2, 5, seed);
      const double alpha = std::clamp((density - 1 + cover) * 4.5, 0.0, 1.0) * std::min(1.0, (rows - y) / (0.12 * c.h));
      if (alpha <= 0) continue;
      const double light = std::clamp((density - Fbm(nx * 2 + 0.12, ny * 2 + 0.25, 3, seed)) * 3 + 0.55, 0.0, 1.0);
      row[x] = Blend(row[x], Mix(shade, lit, light), alpha * 0.92);
    }
  }
}

void Stars(Canvas& c, int count, double bottom) {
  for (int i = 0; i < count; ++i) {
    const double size = c.u * (c.rng.Chance(0.06) ? c.rng.Real(1.1, 1.7) : c.rng.Real(0.35, 0.9));
    const QColor colour = Mix(QColor(190, 210, 255), QColor(255, 240, 210), c.rng.Real(0, 1));
    c.p.setPen(Qt::NoPen);
    c.p.setBrush(Alpha(colour, c.rng.Real(0.3, 1)));
    c.p.drawEllipse(QPointF(c.rng.Real(0, c.w), c.rng.Real(0, c.Y(bottom))), size, size);
  }
}

void Glow(Canvas& c, QPointF centre, double radius, const QColor& colour) {
  QRadialGradient gradient(centre, radius);
  gradient.setColorAt(0, colour);
  gradient.setColorAt(0.35, Alpha(colour, colour.alphaF() * 0.45));
  gradient.setColorAt(1, Alpha(colour, 0));
  c.p.save();
  c.p.setCompositionMode(QPainter::CompositionMode_Plus);
  c.p.setPen(Qt::NoPen);
  c.p.setBrush(gradient);
  c.p.drawEllipse(centre, radius, radius);
  c.p.restore();
}

void SunDisc(Canvas& c, QPointF centre, double radius, const QColor& colour) {
  Glow(c, centre, radius * 9, Alpha(colour, 0.55));
  Glow(c, centre, radius * 3.2, Alpha(colour, 0.8));
  c.p.setPen(Qt::NoPen);
  c.p.setBrush(Mix(colour, Qt::white, 0.55));
  c.p.drawEllipse(centre, radius, radius);
}

QPainterPath Ridge(Canvas& c, double base, double height, double roughness) {
  const quint32 seed = c.seed + static_cast<quint32>(c.rng.Int(0, 99999));
  QPainterPath path(QPointF(-2, c.h + 2));
  const double step = std::max(1.0, c.u);
  for (int i = 0; i < Steps(c.w + 6, step); ++i) {
    const double x = i * step - 2;
    path.lineTo(x, c.Y(base - height * (Fbm(x / c.h * roughness, 0.5, 5, seed) - 0.15)));
  }
  path.lineTo(c.w + 2, c.h + 2);
  path.closeSubpath();
  return path;
}

void RockRidge(Canvas& c, double base, double height, const QColor& rock, const QColor& haze, double snow) {
  const quint32 seed = c.seed + static_cast<quint32>(c.rng.Int(0, 99999));
  const double grain = 9.0 / c.h;
  const double rough = c.rng.Real(2.2, 3.2);
  for (int x = 0; x < c.image.width(); ++x) {
    const double peak = Fbm(x / c.h * rough, 0.5, 6, seed);
    const double top = c.Y(base - height * (1.7 * peak - 0.45));
    const double foot = c.Y(base);
    for (int y = std::max(0, static_cast<int>(top)); y < std::min(c.image.height(), static_cast<int>(foot) + 1); ++y) {
      const double side = x + 0.45 * y;  // gullies run down at a slant
      const double light = std::clamp(0.5 + 3.4 * (Fbm(side * grain, y * grain * 0.7, 4, seed) -
                                                   Fbm(side * grain - 0.22, y * grain * 0.7, 4, seed)),
                                      0.0, 1.0);
      const double down = (y - top) / (c.Y(height) + 1);
      const double snowLine = snow * (0.35 + 1.1 * Noise(x * 22.0 / c.h, y * 9.0 / c.h, seed + 7)) * (2.0 * peak);
      QColor colour = Mix(rock.darker(190), rock.lighter(150), light);
      if (down < snowLine)
        colour = Mix(QColor(120, 140, 180), QColor(250, 250, 255), light * 1.3 > 1 ? 1 : light * 1.3);
      Row(c, y)[x] = Mix(colour, haze, std::clamp(0.12 + down * 0.55, 0.0, 0.8)).rgb();
    }
  }
}

void Water(Canvas& c, double top, const QColor& tint, double tintPart, double waves) {
  const quint32 seed = c.seed + 31;
  const int shore = static_cast<int>(c.Y(top));
  for (int y = shore; y < c.image.height(); ++y) {
    const double depth = (y - shore) / (c.h - shore + 1.0);
    QRgb* row = Row(c, y);
    for (int x = 0; x < c.image.width(); ++x) {
      const double ripple = Fbm(x / c.h * (26 - 20 * depth), (y / c.h) * (160 - 110 * depth), 3, seed) - 0.5;
      const int sourceY =
          std::clamp(static_cast<int>(shore - (y - shore) * 0.95 + ripple * waves * c.h * (0.04 + 0.3 * depth)), 0,
                     std::max(0, shore - 1));
      const int sourceX = std::clamp(x + static_cast<int>(ripple * waves * c.h * 0.05), 0, c.image.width() - 1);
      const QRgb mirrored = Row(c, sourceY)[sourceX];
      row[x] =
          Blend(mirrored, ripple > 0.12 ? tint.lighter(150) : tint, std::clamp(tintPart + depth * 0.25, 0.0, 0.95));
    }
  }
}

void Ground(Canvas& c, double top, const QColor& dark, const QColor& light, double stretch) {
  const quint32 seed = c.seed + static_cast<quint32>(c.rng.Int(0, 99999));
  const int start = std::max(0, static_cast<int>(c.Y(top)));
  for (int y = start; y < c.image.height(); ++y) {
    const double depth = (y - start) / (c.h - start + 1.0);
    const double scale = 70 - 52 * std::sqrt(depth);
    QRgb* row = Row(c, y);
    for (int x = 0; x < c.image.width(); ++x) {
      const double n = Fbm(x / c.h * scale, (y / c.h) * scale * stretch, 4, seed);
      const double patch = Noise(x / c.h * 3, depth * 6, seed + 5);
      row[x] = Mix(dark, light, std::clamp((n - 0.5) * 2.2 + 0.3 + patch * 0.4, 0.0, 1.0)).rgb();
    }
  }
}

void Conifer(Canvas& c, QPointF foot, double height, const QColor& colour) {
  QPainterPath tree;
  const int tiers = c.rng.Int(6, 9);
  tree.moveTo(foot.x(), foot.y() - height);
  for (int side = 0; side < 2; ++side) {
    for (int i = 0; i < tiers; ++i) {
      const int tier = side == 0 ? i : tiers - 1 - i;
      const double part = (tier + 1.0) / tiers;
      const double reach = (side == 0 ? 1 : -1) * height * 0.21 * part * c.rng.Real(0.8, 1.15);
      const double y = foot.y() - height * (1 - part) - height * 0.04;
      if (side == 0) {
        tree.lineTo(foot.x() + reach, y + height * 0.02);
        tree.lineTo(foot.x() + reach * 0.45, y - height * 0.015);
      } else {
        tree.lineTo(foot.x() + reach * 0.45, y - height * 0.015);
        tree.lineTo(foot.x() + reach, y + height * 0.02);
      }
    }
  }
  tree.closeSubpath();
  c.p.setPen(Qt::NoPen);
  c.p.setBrush(colour.darker(130));
  c.p.drawRect(QRectF(foot.x() - height * 0.018, foot.y() - height * 0.08, height * 0.036, height * 0.1));
  c.p.setBrush(colour);
  c.p.drawPath(tree);
}

void LeafTree(Canvas& c, QPointF foot, double height, const QColor& leaf) {
  c.p.setPen(QPen(QColor(60, 42, 30), height * 0.06, Qt::SolidLine, Qt::RoundCap));
  c.p.drawLine(foot, foot - QPointF(height * 0.02, height * 0.5));
  c.p.setPen(Qt::NoPen);
  for (int i = 0; i < 90; ++i) {
    const double angle = c.rng.Real(0, 2 * std::numbers::pi);
    const double reach = std::sqrt(c.rng.Real(0, 1)) * height * 0.34;
    const QPointF at(foot.x() + std::cos(angle) * reach, foot.y() - height * 0.66 + std::sin(angle) * reach * 0.9);
    const double light =
        std::clamp(0.5 - (at.y() - foot.y() + height * 0.66) / height - (at.x() - foot.x()) / height, 0.0, 1.0);
    c.p.setBrush(Alpha(Mix(leaf.darker(190), leaf.lighter(140), light * c.rng.Real(0.6, 1.1)), 0.85));
    const double size = height * c.rng.Real(0.05, 0.11);
    c.p.drawEllipse(at, size, size * 0.8);
  }
}

void TreeLine(Canvas& c, double base, double height, int count, const QColor& colour) {
  for (int i = 0; i < count; ++i) {
    const double x = c.w * (i + c.rng.Real(-0.4, 0.4)) / (count - 1);
    Conifer(c, {x, c.Y(base) + c.rng.Real(0, 6) * c.u}, c.Y(height) * c.rng.Real(0.55, 1.15),
            Mix(colour, colour.darker(140), c.rng.Real(0, 1)));
  }
}
