// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <cmath>

#include "scenes.h"

namespace {

QGradientStops DuskSky(Rng& rng) {
  switch (rng.Int(0, 2)) {
    case 0:
      return {{0, QColor(32, 44, 96)},
              {0.35, QColor(112, 84, 140)},
              {0.6, QColor(232, 128, 96)},
              {0.85, QColor(255, 206, 128)}};
    case 1:
      return {{0, QColor(18, 34, 78)},
              {0.4, QColor(70, 104, 160)},
              {0.7, QColor(244, 182, 134)},
              {0.9, QColor(255, 226, 176)}};
    default:
      return {{0, QColor(60, 30, 80)},
              {0.4, QColor(168, 60, 92)},
              {0.7, QColor(250, 132, 60)},
              {0.9, QColor(255, 216, 120)}};
  }
}

QGradientStops DaySky() {
  return {{0, QColor(46, 104, 184)}, {0.5, QColor(112, 166, 222)}, {1, QColor(206, 226, 240)}};
}

void HangingLeaves(Canvas& c, const std::array<QColor, 4>& leaves, int count, double top, double bottom) {
  c.p.setPen(Qt::NoPen);
  for (int i = 0; i < count; ++i) {
    const double size = c.rng.Real(2, 6) * c.u;
    c.p.setBrush(Alpha(Mix(c.rng.Pick(leaves), Qt::black, c.rng.Real(0, 0.35)), 0.85));
    c.p.drawEllipse(QPointF(c.rng.Real(0, c.w), c.Y(c.rng.Real(top, bottom))), size, size * 0.7);
  }
}

}  // namespace

void PaintMountainsAtDusk(Canvas& c) {
  FillSky(c, DuskSky(c.rng), 0.75);
  Clouds(c, QColor(255, 190, 150), QColor(120, 80, 120), 0.5, 0.62);
  const QPointF sun(c.X(c.rng.Real(0.25, 0.75)), c.Y(0.52));
  SunDisc(c, sun, 15 * c.u, QColor(255, 214, 130));
  const QColor haze(206, 132, 124);
  const QColor front(24, 22, 44);
  constexpr int kLayers = 6;
  for (int i = 0; i < kLayers; ++i) {
    const double part = (i + 0.6) / kLayers;
    const double top = 0.58 + 0.075 * i;
    QLinearGradient fill(0, c.Y(top - 0.2), 0, c.Y(top + 0.22));
    fill.setColorAt(0, Mix(haze, front, part));
    fill.setColorAt(1, Mix(haze, front, part * 0.62));
    c.p.setPen(Qt::NoPen);
    c.p.setBrush(fill);
    c.p.drawPath(Ridge(c, top, 0.34 - 0.035 * i, 2.6 + 0.9 * i));
  }
  TreeLine(c, 1.02, 0.2, 26, QColor(12, 12, 24));
  Birds(c, c.rng.Int(0, 6), QColor(40, 30, 50));
}

void PaintMountainLake(Canvas& c) {
  FillSky(c, DaySky(), 0.6);
  Clouds(c, QColor(255, 255, 255), QColor(164, 178, 200), c.rng.Real(0.48, 0.62), 0.5);
  RockRidge(c, 0.6, 0.34, QColor(104, 112, 134), QColor(170, 192, 216), 0.62);
  RockRidge(c, 0.6, 0.18, QColor(84, 88, 84), QColor(130, 150, 160), 0.22);
  TreeLine(c, 0.6, 0.07, 46, QColor(34, 62, 42));
  TreeLine(c, 0.61, 0.1, 30, QColor(24, 46, 30));
  Water(c, 0.605, QColor(36, 78, 108), 0.22, 1.2);
  if (c.rng.Chance(0.6))
    House(c, {c.X(c.rng.Real(0.1, 0.7)), c.Y(0.63)}, 52 * c.u, 36 * c.u, {150, 96, 60}, {84, 40, 32}, false);
  for (int i = 0; i < 5; ++i)
    Conifer(c, {c.X(c.rng.Chance(0.5) ? c.rng.Real(-0.02, 0.16) : c.rng.Real(0.86, 1.02)), c.Y(1.02)},
            c.Y(c.rng.Real(0.4, 0.72)), {16, 34, 24});
}

void PaintSnowVillage(Canvas& c) {
  FillSky(c, {{0, QColor(24, 32, 66)}, {0.55, QColor(84, 98, 148)}, {1, QColor(196, 176, 188)}}, 0.6);
  Stars(c, 90, 0.4);
  SunDisc(c, {c.X(c.rng.Real(0.15, 0.85)), c.Y(0.16)}, 11 * c.u, QColor(232, 236, 255));
  RockRidge(c, 0.6, 0.26, QColor(92, 104, 140), QColor(140, 146, 184), 0.95);
  TreeLine(c, 0.6, 0.1, 40, QColor(44, 58, 82));
  c.p.setPen(Qt::NoPen);
  for (int i = 0; i < 3; ++i) {
    const double top = 0.6 + 0.12 * i;
    QLinearGradient snow(0, c.Y(top - 0.05), 0, c.Y(top + 0.3));
    snow.setColorAt(0, QColor(206, 214, 240));
    snow.setColorAt(1, QColor(138, 152, 198));
    c.p.setBrush(snow);
    c.p.drawPath(Ridge(c, top + 0.04, 0.09, 1.3));
    const int houses = 4 - i;
    for (int k = 0; k < houses; ++k) {
      const double size = (34 + 24 * i) * c.u;
      const double x = c.X((k + c.rng.Real(0.15, 0.7)) / houses);
      House(c, {x, c.Y(top + 0.075)}, size * 1.5, size, {128, 92, 74}, {236, 240, 252}, true);
      Conifer(c, {x - size * 0.4, c.Y(top + 0.085)}, size * c.rng.Real(1, 1.7), {46, 66, 76});
    }
  }
  const QPointF mast(c.X(0.12), c.Y(0.97));
  LatticeMast(c, mast, c.Y(0.62), 18 * c.u, QColor(30, 32, 48));
  YagiBeam(c, mast - QPointF(0, c.Y(0.62)), 130 * c.u, 5, QColor(26, 28, 42));
  c.p.setPen(Qt::NoPen);
  for (int i = 0; i < 420; ++i) {
    c.p.setBrush(Alpha(Qt::white, c.rng.Real(0.3, 0.9)));
    const double size = c.rng.Real(0.6, 2.3) * c.u;
    c.p.drawEllipse(QPointF(c.rng.Real(0, c.w), c.rng.Real(0, c.h)), size, size);
  }
}

void PaintAutumnForest(Canvas& c) {
  FillSky(c, {{0, QColor(250, 226, 160)}, {0.6, QColor(252, 240, 206)}, {1, QColor(214, 180, 120)}});
  const std::array leaves{QColor(214, 110, 30), QColor(236, 164, 44), QColor(170, 58, 30), QColor(150, 132, 50)};
  Glow(c, {c.X(0.5), c.Y(0.42)}, c.h * 0.5, QColor(255, 244, 200, 190));
  for (int layer = 0; layer < 4; ++layer) {
    const QColor trunk = Mix(QColor(214, 176, 128), QColor(46, 32, 26), (layer + 0.5) / 4);
    HangingLeaves(c, leaves, 260, 0, 0.5 + 0.03 * layer);
    const int trees = 14 - 3 * layer;
    for (int i = 0; i < trees; ++i) {
      const double x = c.X((i + c.rng.Real(0, 1)) / trees);
      if (layer > 1 && std::abs(x / c.w - 0.5) < 0.16) continue;
      const double width = (4 + layer * layer * 4.2) * c.u * c.rng.Real(0.7, 1.3);
      const double foot = c.Y(0.62 + 0.09 * layer);
      QLinearGradient bark(x - width, 0, x + width, 0);
      bark.setColorAt(0, trunk.darker(140));
      bark.setColorAt(0.55, trunk.lighter(125));
      bark.setColorAt(1, trunk.darker(150));
      QPolygonF shape;
      shape << QPointF(x - width * 0.6, 0) << QPointF(x + width * 0.6, 0) << QPointF(x + width, foot)
            << QPointF(x - width, foot);
      c.p.setPen(Qt::NoPen);
      c.p.setBrush(bark);
      c.p.drawPolygon(shape);
    }
    if (layer == 1) Ground(c, 0.66, QColor(110, 60, 24), QColor(226, 150, 60), 2.4);
    if (layer == 1) {
      QPolygonF path;
      path << QPointF(c.X(0.47), c.Y(0.66)) << QPointF(c.X(0.53), c.Y(0.66)) << QPointF(c.X(0.86), c.h)
           << QPointF(c.X(0.2), c.h);
      c.p.setBrush(QColor(214, 176, 120, 190));
      c.p.drawPolygon(path);
    }
  }
  HangingLeaves(c, leaves, 300, 0, 0.34);
  HangingLeaves(c, leaves, 240, 0.72, 1);
  Vignette(c, 0.5);
}

void PaintMeadow(Canvas& c) {
  FillSky(c, DaySky(), 0.55);
  Clouds(c, QColor(255, 255, 255), QColor(178, 190, 210), 0.55, 0.5);
  c.p.setPen(Qt::NoPen);
  c.p.setBrush(QColor(92, 132, 120));
  c.p.drawPath(Ridge(c, 0.55, 0.12, 2));
  c.p.setBrush(QColor(80, 128, 70));
  c.p.drawPath(Ridge(c, 0.58, 0.08, 3));
  Ground(c, 0.55, QColor(46, 96, 34), QColor(150, 186, 72), 1.2);
  for (int i = 0; i < 4; ++i)
    LeafTree(c, {c.X(c.rng.Real(0.02, 0.98)), c.Y(c.rng.Real(0.56, 0.62))}, c.Y(c.rng.Real(0.14, 0.3)), {74, 124, 46});
  const std::array blossoms{QColor(220, 40, 40), QColor(250, 210, 60), QColor(240, 240, 250), QColor(150, 80, 190),
                            QColor(250, 130, 170)};
  c.p.setPen(Qt::NoPen);
  for (int i = 0; i < 620; ++i) {
    const double depth = std::pow(i / 620.0, 0.8);
    const QPointF at(c.rng.Real(0, c.w), c.Y(0.6 + 0.42 * depth));
    const double size = (1.2 + 8 * depth * depth) * c.u * c.rng.Real(0.7, 1.2);
    const QColor colour = c.rng.Pick(blossoms);
    c.p.setPen(QPen(QColor(40, 90, 30), std::max(0.6, size * 0.2)));
    c.p.drawLine(at, at + QPointF(0, size * 2.5));
    c.p.setPen(Qt::NoPen);
    for (int petal = 0; petal < 5; ++petal) {
      c.p.setBrush(Mix(colour, Qt::black, 0.06 * petal));
      c.p.drawEllipse(at + QPointF(std::cos(petal * 1.257), std::sin(petal * 1.257)) * size * 0.55, size * 0.5,
                      size * 0.5);
    }
    c.p.setBrush(QColor(70, 50, 20));
    c.p.drawEllipse(at, size * 0.28, size * 0.28);
  }
}

void PaintDunes(Canvas& c) {
  FillSky(c, {{0, QColor(58, 120, 190)}, {0.6, QColor(170, 200, 214)}, {1, QColor(246, 222, 176)}}, 0.6);
  SunDisc(c, {c.X(c.rng.Real(0.6, 0.9)), c.Y(0.2)}, 14 * c.u, QColor(255, 240, 190));
  for (int i = 0; i < 5; ++i) {
    const QPainterPath dune = Ridge(c, 0.56 + 0.1 * i, 0.22, 1.2 + 0.2 * i);
    QLinearGradient sand(0, c.Y(0.38 + 0.1 * i), c.X(0.3), c.Y(0.72 + 0.1 * i));
    sand.setColorAt(0, Mix(QColor(246, 214, 160), QColor(232, 164, 84), i / 5.0));
    sand.setColorAt(0.35, Mix(QColor(228, 180, 120), QColor(204, 124, 54), i / 5.0));
    sand.setColorAt(1, Mix(QColor(176, 130, 90), QColor(120, 64, 32), i / 5.0));
    c.p.setPen(Qt::NoPen);
    c.p.setBrush(sand);
    c.p.drawPath(dune);
    c.p.save();
    c.p.setClipPath(dune);
    for (int k = 0; k < 30; ++k) {
      const double y = c.Y(0.45 + 0.1 * i + 0.018 * k);
      QPainterPath ripple(QPointF(-5, y));
      for (int step = 0; step < Steps(c.w + 20, 12 * c.u); ++step) {
        const double x = step * 12 * c.u;
        const double wave = std::sin(x / (42 * c.u) + k * 0.9 + i);
        ripple.lineTo(x, y + c.u * (5 * wave + 3 * Noise(x / (20 * c.u), k, c.seed)));
      }
      c.p.setBrush(Qt::NoBrush);
      c.p.setPen(QPen(QColor(110, 60, 24, 22 + 6 * i), 1.6 * c.u));
      c.p.drawPath(ripple);
    }
    c.p.restore();
  }
  for (int i = 0; i < 3; ++i) {
    const QPointF at(c.X(0.3 + 0.12 * i), c.Y(0.6 + 0.01 * i));
    const double s = 13 * c.u;
    QPainterPath camel(at);
    camel.addEllipse(at + QPointF(0, -s * 1.25), s * 0.85, s * 0.4);
    camel.addEllipse(at + QPointF(0, -s * 1.65), s * 0.34, s * 0.34);
    c.p.setPen(QPen(QColor(62, 34, 20), s * 0.17, Qt::SolidLine, Qt::RoundCap));
    c.p.setBrush(QColor(62, 34, 20));
    c.p.drawPath(camel);
    for (const double leg : {-0.6, -0.35, 0.35, 0.6})
      c.p.drawLine(at + QPointF(leg * s, -s), at + QPointF(leg * s * 1.15, 0));
    c.p.drawLine(at + QPointF(s * 0.8, -s * 1.3), at + QPointF(s * 1.3, -s * 2.1));
    c.p.drawLine(at + QPointF(s * 1.3, -s * 2.1), at + QPointF(s * 1.65, -s * 2.0));
  }
}
