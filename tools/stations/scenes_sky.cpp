// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <cmath>
#include <numbers>

#include "scenes.h"

namespace {

void SailBoat(Canvas& c, QPointF at, double s, const QColor& sail, const QColor& hull) {
  QPainterPath body(at + QPointF(-s * 0.55, -s * 0.12));
  body.quadTo(at + QPointF(-s * 0.42, s * 0.06), at + QPointF(-s * 0.3, s * 0.06));
  body.lineTo(at + QPointF(s * 0.42, s * 0.06));
  body.quadTo(at + QPointF(s * 0.58, -s * 0.02), at + QPointF(s * 0.7, -s * 0.15));
  body.closeSubpath();
  c.p.setPen(QPen(QColor(70, 50, 40), std::max(1.0, s * 0.025)));
  c.p.drawLine(at + QPointF(0.02 * s, -s * 0.1), at + QPointF(0.02 * s, -s * 1.45));
  c.p.setPen(Qt::NoPen);
  QLinearGradient cloth(at + QPointF(-s * 0.5, 0), at + QPointF(s * 0.5, 0));
  cloth.setColorAt(0, sail.darker(118));
  cloth.setColorAt(0.6, sail);
  cloth.setColorAt(1, sail.lighter(110));
  c.p.setBrush(cloth);
  QPainterPath mainSail(at + QPointF(-0.01 * s, -s * 1.42));
  mainSail.quadTo(at + QPointF(-s * 0.3, -s * 0.7), at + QPointF(-s * 0.5, -s * 0.24));
  mainSail.lineTo(at + QPointF(-0.01 * s, -s * 0.22));
  mainSail.closeSubpath();
  c.p.drawPath(mainSail);
  QPainterPath jib(at + QPointF(s * 0.06, -s * 1.3));
  jib.quadTo(at + QPointF(s * 0.48, -s * 0.7), at + QPointF(s * 0.66, -s * 0.18));
  jib.lineTo(at + QPointF(s * 0.06, -s * 0.25));
  jib.closeSubpath();
  c.p.drawPath(jib);
  c.p.setBrush(hull);
  c.p.drawPath(body);
}

void Palm(Canvas& c, QPointF foot, double height, double lean) {
  const QPointF top = foot + QPointF(height * lean, -height);
  QPainterPath trunk(foot);
  trunk.quadTo(foot + QPointF(height * lean * 0.15, -height * 0.6), top);
  c.p.setBrush(Qt::NoBrush);
  c.p.setPen(QPen(QColor(24, 16, 20), height * 0.035, Qt::SolidLine, Qt::RoundCap));
  c.p.drawPath(trunk);
  for (int i = 0; i < 11; ++i) {
    const double angle = -std::numbers::pi * (i / 10.0) + c.rng.Real(-0.12, 0.12);
    const double reach = height * c.rng.Real(0.34, 0.46);
    QPainterPath leaf(top);
    const QPointF tip = top + QPointF(std::cos(angle) * reach, std::sin(angle) * reach * 0.55 + reach * 0.4);
    const QPointF bow = top + QPointF(std::cos(angle) * reach * 0.6, std::sin(angle) * reach * 0.75);
    leaf.quadTo(bow + QPointF(0, -height * 0.03), tip);
    leaf.quadTo(bow + QPointF(0, height * 0.05), top);
    c.p.setPen(Qt::NoPen);
    c.p.setBrush(QColor(18, 22, 22));
    c.p.drawPath(leaf);
  }
}

void Balloon(Canvas& c, QPointF at, double r, const QColor& one, const QColor& other) {
  QPainterPath hull(at + QPointF(0, r * 1.35));
  hull.cubicTo(at + QPointF(-r * 0.35, r * 1.0), at + QPointF(-r, r * 0.6), at + QPointF(-r, 0));
  hull.cubicTo(at + QPointF(-r, -r * 1.3), at + QPointF(r, -r * 1.3), at + QPointF(r, 0));
  hull.cubicTo(at + QPointF(r, r * 0.6), at + QPointF(r * 0.35, r * 1.0), at + QPointF(0, r * 1.35));
  c.p.save();
  c.p.setClipPath(hull);
  c.p.setPen(Qt::NoPen);
  for (int i = 5; i >= 1; --i) {
    c.p.setBrush(i % 2 == 0 ? one : other);
    c.p.drawEllipse(at, r * i / 5.0 * (i == 5 ? 1.1 : 1), r * 1.6);
  }
  c.p.setBrush(Alpha(Mix(one, other, 0.5).darker(150), 0.8));
  c.p.drawRect(QRectF(at.x() - r, at.y() + r * 0.25, r * 2, r * 0.16));
  QRadialGradient light(at + QPointF(-r * 0.4, -r * 0.45), r * 1.9);
  light.setColorAt(0, QColor(255, 255, 255, 110));
  light.setColorAt(0.45, QColor(255, 255, 255, 0));
  light.setColorAt(1, QColor(0, 0, 20, 150));
  c.p.fillRect(QRectF(at.x() - r * 1.2, at.y() - r * 1.6, r * 2.4, r * 3.2), light);
  c.p.restore();
  c.p.setPen(QPen(QColor(60, 50, 40), std::max(0.7, r * 0.02)));
  for (const double side : {-0.13, 0.13})
    c.p.drawLine(at + QPointF(side * r, r * 1.3), at + QPointF(side * r, r * 1.62));
  c.p.fillRect(QRectF(at.x() - r * 0.16, at.y() + r * 1.6, r * 0.32, r * 0.24), QColor(120, 78, 40));
}

// Curtains: columns of light whose lower edge follows a wandering line.
void Curtain(Canvas& c, double base, double amplitude, const QColor& low, const QColor& high) {
  const quint32 seed = c.seed + static_cast<quint32>(c.rng.Int(0, 9999));
  c.p.save();
  c.p.setCompositionMode(QPainter::CompositionMode_Plus);
  for (int x = 0; x < c.image.width(); ++x) {
    const double part = x / c.h;
    const double foot = c.Y(base + amplitude * (Fbm(part * 1.7, 3, 3, seed) - 0.5));
    const double strength =
        std::clamp(1.7 * Fbm(part * 26, 1, 3, seed + 3) * Fbm(part * 2.2, 7, 2, seed + 9) * 1.6 - 0.1, 0.0, 1.0);
    const double height = c.h * (0.25 + 0.3 * Noise(part * 9, 2, seed));
    QLinearGradient ray(0, foot, 0, foot - height);
    ray.setColorAt(0, Alpha(low, 0));
    ray.setColorAt(0.08, Alpha(low, strength * 0.85));
    ray.setColorAt(0.4, Alpha(Mix(low, high, 0.5), strength * 0.45));
    ray.setColorAt(1, Alpha(high, 0));
    c.p.fillRect(QRectF(x, foot - height, 1, height), ray);
  }
  c.p.restore();
}

}  // namespace

void PaintSailingBoats(Canvas& c) {
  const bool evening = c.rng.Chance(0.4);
  if (evening) {
    FillSky(c, {{0, QColor(60, 70, 130)}, {0.6, QColor(240, 150, 110)}, {1, QColor(255, 220, 150)}}, 0.58);
    Clouds(c, QColor(255, 200, 160), QColor(140, 90, 120), 0.5, 0.5);
    SunDisc(c, {c.X(c.rng.Real(0.2, 0.8)), c.Y(0.5)}, 16 * c.u, QColor(255, 210, 120));
  } else {
    FillSky(c, {{0, QColor(40, 110, 196)}, {1, QColor(190, 220, 240)}}, 0.58);
    Clouds(c, QColor(255, 255, 255), QColor(176, 190, 210), 0.56, 0.54);
  }
  c.p.setPen(Qt::NoPen);
  c.p.setBrush(evening ? QColor(104, 76, 104) : QColor(104, 136, 150));
  c.p.drawPath(Ridge(c, 0.6, 0.1, 2.2));
  Water(c, 0.58, evening ? QColor(70, 60, 100) : QColor(22, 84, 140), 0.45, 1.9);
  const std::array sails{QColor(250, 250, 245), QColor(236, 90, 70), QColor(250, 214, 90), QColor(120, 180, 230),
                         QColor(250, 250, 245)};
  const int boats = c.rng.Int(3, 6);
  for (int i = 0; i < boats; ++i) {
    const double depth = (i + 0.3) / boats;
    const QPointF at(c.X(c.rng.Real(0.08, 0.92)), c.Y(0.6 + 0.28 * depth * depth));
    const double s = (22 + 96 * depth * depth) * c.u;
    QLinearGradient mirror(at, at + QPointF(0, s * 0.8));
    mirror.setColorAt(0, QColor(255, 255, 255, 90));
    mirror.setColorAt(1, QColor(255, 255, 255, 0));
    c.p.fillRect(QRectF(at.x() - s * 0.35, at.y(), s * 0.7, s * 0.8), mirror);
    SailBoat(c, at, s, c.rng.Pick(sails), c.rng.Chance(0.5) ? QColor(140, 34, 30) : QColor(30, 44, 80));
  }
  Birds(c, c.rng.Int(2, 7), QColor(70, 70, 80));
}

void PaintLighthouse(Canvas& c) {
  FillSky(c, {{0, QColor(10, 16, 44)}, {0.6, QColor(46, 60, 112)}, {1, QColor(176, 122, 128)}}, 0.66);
  Stars(c, 160, 0.5);
  Clouds(c, QColor(120, 110, 150), QColor(28, 34, 66), 0.5, 0.6);
  Water(c, 0.66, QColor(16, 26, 56), 0.42, 1.8);
  const QPointF foot(c.X(c.rng.Real(0.3, 0.7)), c.Y(0.74));
  const double tall = c.Y(0.5);
  const double wide = tall * 0.16;
  c.p.setPen(Qt::NoPen);
  for (int i = 0; i < 260; ++i) {
    const double x = c.rng.Real(-1, 1);
    const double rise = (1 - x * x) * 0.12;
    const double size = c.rng.Real(6, 22) * c.u;
    c.p.setBrush(Mix(QColor(20, 18, 26), QColor(92, 80, 82), c.rng.Real(0, 1) * (0.4 + rise * 4)));
    c.p.drawEllipse(QPointF(foot.x() + x * c.w * 0.3, foot.y() + c.Y(c.rng.Real(-rise * 0.35, 0.08))), size * 1.4,
                    size * 0.7);
  }
  const QPointF lamp = foot - QPointF(0, tall * 1.05);
  for (const double side : {-1.0, 1.0}) {
    QPolygonF beam;
    beam << lamp << lamp + QPointF(side * c.w, -c.Y(0.2)) << lamp + QPointF(side * c.w, c.Y(0.1));
    QLinearGradient light(lamp, lamp + QPointF(side * c.w * 0.75, 0));
    light.setColorAt(0, QColor(255, 244, 190, 190));
    light.setColorAt(1, QColor(255, 244, 190, 0));
    c.p.setBrush(light);
    c.p.drawPolygon(beam);
  }
  for (int band = 0; band < 5; ++band) {
    const double low = band / 5.0;
    const double high = (band + 1) / 5.0;
    QPolygonF ring;
    ring << foot + QPointF(-wide * (1 - 0.4 * low), -tall * low) << foot + QPointF(wide * (1 - 0.4 * low), -tall * low)
         << foot + QPointF(wide * (1 - 0.4 * high), -tall * high)
         << foot + QPointF(-wide * (1 - 0.4 * high), -tall * high);
    const QColor paint = band % 2 == 0 ? QColor(190, 40, 40) : QColor(232, 232, 226);
    QLinearGradient round(foot.x() - wide, 0, foot.x() + wide, 0);
    round.setColorAt(0, paint.darker(220));
    round.setColorAt(0.35, paint);
    round.setColorAt(1, paint.darker(260));
    c.p.setBrush(round);
    c.p.drawPolygon(ring);
  }
  c.p.fillRect(QRectF(lamp.x() - wide * 0.75, lamp.y() + wide * 0.4, wide * 1.5, wide * 0.16), QColor(40, 40, 46));
  c.p.fillRect(QRectF(lamp.x() - wide * 0.42, lamp.y() - wide * 0.4, wide * 0.84, wide * 0.8), QColor(255, 240, 180));
  c.p.setBrush(QColor(50, 40, 44));
  c.p.drawPolygon(QPolygonF() << lamp + QPointF(-wide * 0.55, -wide * 0.4) << lamp + QPointF(0, -wide * 1.1)
                              << lamp + QPointF(wide * 0.55, -wide * 0.4));
  Glow(c, lamp, tall * 0.4, QColor(255, 236, 170, 230));
  House(c, foot + QPointF(wide * 1.2, 0), tall * 0.42, tall * 0.3, {196, 190, 180}, {96, 44, 40}, true);
}

void PaintPalmBeach(Canvas& c) {
  FillSky(
      c,
      {{0, QColor(74, 40, 110)}, {0.45, QColor(232, 92, 90)}, {0.8, QColor(255, 176, 84)}, {1, QColor(255, 232, 150)}},
      0.62);
  Clouds(c, QColor(255, 176, 120), QColor(110, 50, 100), 0.47, 0.55);
  SunDisc(c, {c.X(0.5), c.Y(0.56)}, 26 * c.u, QColor(255, 200, 90));
  Water(c, 0.62, QColor(120, 50, 80), 0.2, 1.6);
  c.p.setPen(Qt::NoPen);
  QLinearGradient sand(0, c.Y(0.82), 0, c.h);
  sand.setColorAt(0, QColor(120, 70, 66));
  sand.setColorAt(1, QColor(46, 26, 34));
  c.p.setBrush(sand);
  QPainterPath shore(QPointF(0, c.Y(0.86)));
  shore.cubicTo(c.X(0.3), c.Y(0.8), c.X(0.6), c.Y(0.96), c.w, c.Y(0.88));
  shore.lineTo(c.w, c.h);
  shore.lineTo(0, c.h);
  c.p.drawPath(shore);
  Palm(c, {c.X(0.1), c.Y(0.98)}, c.Y(0.72), 0.22);
  Palm(c, {c.X(0.2), c.Y(1.0)}, c.Y(0.52), 0.1);
  Palm(c, {c.X(0.93), c.Y(0.98)}, c.Y(c.rng.Real(0.5, 0.68)), -0.2);
  SailBoat(c, {c.X(0.66), c.Y(0.66)}, 34 * c.u, QColor(50, 30, 50), QColor(30, 20, 34));
  Birds(c, 4, QColor(50, 20, 40));
}

void PaintAurora(Canvas& c) {
  FillSky(c, {{0, QColor(4, 8, 26)}, {0.7, QColor(10, 32, 52)}, {1, QColor(24, 60, 70)}}, 0.8);
  Stars(c, 320, 0.75);
  const QColor green(70, 255, 140);
  const QColor violet(150, 60, 210);
  Curtain(c, 0.62, 0.5, green, violet);
  Curtain(c, 0.5, 0.6, QColor(90, 240, 180), QColor(60, 80, 220));
  if (c.rng.Chance(0.6)) Curtain(c, 0.42, 0.4, QColor(220, 90, 150), violet);
  RockRidge(c, 0.78, 0.14, QColor(44, 58, 74), QColor(24, 60, 66), 0.8);
  if (c.rng.Chance(0.6)) {
    Water(c, 0.77, QColor(6, 20, 30), 0.2, 0.9);
  } else {
    c.p.setPen(Qt::NoPen);
    c.p.setBrush(QColor(150, 190, 190));
    c.p.drawPath(Ridge(c, 0.82, 0.06, 1.4));
    House(c, {c.X(c.rng.Real(0.3, 0.6)), c.Y(0.9)}, 92 * c.u, 62 * c.u, {96, 40, 36}, {190, 206, 214}, true);
  }
  TreeLine(c, 1.03, 0.32, 18, QColor(4, 14, 14));
}

void PaintBalloons(Canvas& c) {
  FillSky(c, {{0, QColor(74, 134, 204)}, {0.7, QColor(190, 216, 236)}, {1, QColor(252, 230, 196)}});
  Clouds(c, QColor(255, 255, 255), QColor(190, 200, 220), 0.52, 0.7);
  c.p.setPen(Qt::NoPen);
  for (int i = 0; i < 4; ++i) {
    c.p.setBrush(Mix(QColor(168, 190, 206), QColor(58, 96, 50), (i + 0.5) / 4));
    c.p.drawPath(Ridge(c, 0.82 + 0.05 * i, 0.12, 1.8 + i * 0.7));
  }
  const std::array colours{QColor(214, 40, 40), QColor(250, 190, 30), QColor(30, 90, 190), QColor(250, 250, 240),
                           QColor(30, 140, 70), QColor(140, 50, 150), QColor(240, 110, 30)};
  const int balloons = c.rng.Int(5, 8);
  for (int i = 0; i < balloons; ++i) {
    const double depth = (i + 0.5) / balloons;
    const double r = (10 + 58 * depth * depth) * c.u;
    QColor one = c.rng.Pick(colours);
    QColor other = c.rng.Pick(colours);
    const double haze = 0.55 * (1 - depth);
    Balloon(c, {c.X((i * 0.37 - std::floor(i * 0.37)) * 0.84 + 0.08), c.Y(c.rng.Real(0.16, 0.62))}, r,
            Mix(one, QColor(200, 216, 230), haze),
            Mix(one == other ? QColor(250, 240, 200) : other, QColor(200, 216, 230), haze));
  }
}

void PaintAntennaFarm(Canvas& c) {
  const bool sunset = c.rng.Chance(0.6);
  if (sunset) {
    FillSky(c, {{0, QColor(40, 48, 100)},
                {0.5, QColor(214, 110, 96)},
                {0.85, QColor(255, 196, 110)},
                {1, QColor(255, 230, 170)}});
    Clouds(c, QColor(255, 180, 130), QColor(96, 60, 100), 0.54, 0.8);
    SunDisc(c, {c.X(c.rng.Real(0.2, 0.8)), c.Y(0.76)}, 18 * c.u, QColor(255, 214, 130));
  } else {
    FillSky(c, {{0, QColor(36, 96, 180)}, {1, QColor(196, 220, 240)}});
    Clouds(c, QColor(255, 255, 255), QColor(170, 184, 206), 0.56, 0.85);
  }
  const QColor metal = sunset ? QColor(22, 18, 30) : QColor(60, 64, 72);
  c.p.setPen(Qt::NoPen);
  c.p.setBrush(sunset ? QColor(30, 24, 36) : QColor(60, 92, 52));
  c.p.drawPath(Ridge(c, 0.95, 0.1, 2.4));
  const int masts = c.rng.Int(2, 3);
  QPointF last;
  for (int i = 0; i < masts; ++i) {
    const QPointF foot(c.X((i + c.rng.Real(0.35, 0.65)) / masts), c.Y(0.96));
    const double height = c.Y(c.rng.Real(0.55, 0.82));
    LatticeMast(c, foot, height, 22 * c.u, metal);
    const QPointF top = foot - QPointF(0, height);
    c.p.setPen(QPen(metal, 0.8 * c.u));
    for (const double side : {-0.3, 0.3})
      c.p.drawLine(top + QPointF(0, height * 0.15), QPointF(foot.x() + side * height, c.Y(0.97)));
    YagiBeam(c, top, c.rng.Real(150, 220) * c.u, c.rng.Int(3, 6), metal);
    if (c.rng.Chance(0.7))
      YagiBeam(c, top + QPointF(0, height * 0.16), c.rng.Real(90, 140) * c.u, c.rng.Int(5, 9), metal);
    c.p.setPen(QPen(metal, 2 * c.u));
    c.p.drawLine(top, top - QPointF(0, 40 * c.u));
    if (i > 0) WireAerial(c, last + QPointF(0, 40 * c.u), top + QPointF(0, 70 * c.u), 20 * c.u, metal);
    last = top;
  }
  House(c, {c.X(c.rng.Real(0.05, 0.6)), c.Y(0.97)}, 110 * c.u, 72 * c.u,
        sunset ? QColor(40, 32, 40) : QColor(206, 190, 160), sunset ? QColor(24, 18, 26) : QColor(150, 66, 50), sunset);
  for (int i = 0; i < 3; ++i)
    LeafTree(c, {c.X(c.rng.Real(0, 1)), c.Y(0.99)}, c.Y(c.rng.Real(0.12, 0.24)),
             sunset ? QColor(26, 22, 28) : QColor(60, 110, 40));
  Birds(c, c.rng.Int(2, 8), metal);
}
