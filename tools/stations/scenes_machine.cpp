// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <cmath>
#include <numbers>

#include "scenes.h"

namespace {

void Bars(Canvas& c, const QRectF& area, const QList<QColor>& colours) {
  const double width = area.width() / static_cast<double>(colours.size());
  for (qsizetype i = 0; i < colours.size(); ++i) {
    c.p.fillRect(QRectF(area.left() + width * static_cast<double>(i), area.top(), width + 1, area.height()),
                 colours.at(i));
  }
}

QFont Bold(double pixels) {
  QFont font(u"DejaVu Sans"_s);
  font.setStyleHint(QFont::SansSerif);
  font.setPixelSize(std::max(5, static_cast<int>(pixels)));
  font.setBold(true);
  return font;
}

// A ball lit from one side, with land, sea and clouds by noise.
void Planet(Canvas& c, QPointF centre, double r) {
  Glow(c, centre, r * 1.16, QColor(90, 160, 255, 130));
  const double sunX = -0.62;
  const double sunY = -0.5;
  const double sunZ = 0.6;
  for (int y = std::max(0, static_cast<int>(centre.y() - r));
       y < std::min(c.image.height(), static_cast<int>(centre.y() + r)); ++y) {
    auto* row = reinterpret_cast<QRgb*>(c.image.scanLine(y));
    for (int x = std::max(0, static_cast<int>(centre.x() - r));
         x < std::min(c.image.width(), static_cast<int>(centre.x() + r)); ++x) {
      const double nx = (x - centre.x()) / r;
      const double ny = (y - centre.y()) / r;
      const double squared = nx * nx + ny * ny;
      if (squared >= 1) continue;
      const double nz = std::sqrt(1 - squared);
      const double longitude = std::atan2(nx, nz);
      const double latitude = std::asin(ny);
      const double land = Fbm(longitude * 1.7 + 9, latitude * 2.1, 5, c.seed);
      QColor colour = land > 0.53
                          ? Mix(QColor(58, 104, 44), QColor(170, 146, 96), std::clamp((land - 0.53) * 7, 0.0, 1.0))
                          : Mix(QColor(8, 34, 92), QColor(28, 96, 160), std::clamp(land * 1.5, 0.0, 1.0));
      const double ice = std::abs(latitude) + 0.5 * (Fbm(longitude * 4, latitude * 4, 3, c.seed + 8) - 0.5);
      colour = Mix(colour, QColor(236, 242, 248), std::clamp((ice - 1.15) * 12, 0.0, 1.0));
      const double cloud = Fbm(longitude * 3 + latitude, latitude * 5, 5, c.seed + 50);
      colour = Mix(colour, Qt::white, std::clamp((cloud - 0.5) * 5, 0.0, 0.9));
      const double light = std::clamp(nx * sunX + ny * sunY + nz * sunZ + 0.12, 0.03, 1.0);
      const QColor lit = Mix(Qt::black, colour, light);
      row[x] = Mix(lit, QColor(120, 180, 255), std::pow(squared, 6) * 0.5 * light).rgb();
    }
  }
}

void SolarPanel(Canvas& c, const QRectF& area) {
  c.p.fillRect(area, QColor(26, 36, 96));
  c.p.setPen(QPen(QColor(150, 170, 220), std::max(0.6, 0.9 * c.u)));
  for (int i = 0; i <= 6; ++i)
    c.p.drawLine(QPointF(area.left() + area.width() * i / 6, area.top()),
                 QPointF(area.left() + area.width() * i / 6, area.bottom()));
  c.p.drawLine(QPointF(area.left(), area.center().y()), QPointF(area.right(), area.center().y()));
  c.p.setBrush(Qt::NoBrush);
  c.p.drawRect(area);
}

}  // namespace

void PaintTestCard(Canvas& c) {
  c.p.fillRect(c.image.rect(), QColor(112, 116, 120));
  c.p.setPen(QPen(QColor(240, 240, 240), std::max(1.0, 1.4 * c.u)));
  const double cell = c.h / 12;
  for (int i = 0; i < Steps(c.w, cell); ++i) {
    const double x = std::fmod(c.w / 2, cell) + i * cell;
    c.p.drawLine(QPointF(x, 0), QPointF(x, c.h));
  }
  for (int i = 0; i < 12; ++i) c.p.drawLine(QPointF(0, i * cell), QPointF(c.w, i * cell));
  const double r = std::min(c.h * 0.45, c.w * 0.45);
  const QPointF centre(c.w / 2, c.h / 2);
  QPainterPath circle;
  circle.addEllipse(centre, r, r);
  c.p.save();
  c.p.setClipPath(circle);
  c.p.fillRect(c.image.rect(), Qt::black);
  const auto band = [&](double top, double height) {
    return QRectF(centre.x() - r, centre.y() + r * top, r * 2, r * height);
  };
  c.p.fillRect(band(-1, 0.3), QColor(235, 235, 235));
  Bars(c, band(-0.7, 0.5),
       {QColor(235, 235, 235), QColor(235, 235, 16), QColor(16, 235, 235), QColor(16, 235, 16), QColor(235, 16, 235),
        QColor(235, 16, 16), QColor(16, 16, 235)});
  for (int i = 0; i < 5; ++i) {  // ever finer lines
    const QRectF part(centre.x() - r + r * 0.4 * i, centre.y() + r * 0.12, r * 0.4, r * 0.3);
    const double step = std::max(1.0, r * 0.075 / (i + 1));
    for (int line = 0; line < Steps(part.width(), step * 2); ++line) {
      c.p.fillRect(QRectF(part.left() + line * step * 2, part.top(), step, part.height()), QColor(230, 230, 230));
    }
  }
  QList<QColor> greys;
  for (int i = 0; i < 8; ++i) greys << QColor(i * 36, i * 36, i * 36);
  Bars(c, band(0.42, 0.26), greys);
  const QColor accent = QColor::fromHsv(c.rng.Int(0, 359), 200, 190);
  c.p.fillRect(band(0.68, 0.32), accent);
  c.p.restore();
  c.p.setPen(QPen(QColor(250, 250, 250), std::max(1.0, 2 * c.u)));
  c.p.setBrush(Qt::NoBrush);
  c.p.drawEllipse(centre, r, r);
  c.p.setFont(Bold(r * 0.14));
  c.p.setPen(Qt::black);
  c.p.drawText(band(-1, 0.32), Qt::AlignHCenter | Qt::AlignBottom, u"DIGITAL TEST"_s);
  c.p.fillRect(QRectF(centre.x() - r * 0.6, centre.y() - r * 0.2, r * 1.2, r * 0.32), Qt::black);
}

void PaintSunsetGrid(Canvas& c) {
  FillSky(c, {{0, QColor(16, 4, 46)}, {0.6, QColor(92, 16, 112)}, {1, QColor(236, 70, 140)}}, 0.6);
  Stars(c, 120, 0.4);
  const QPointF sun(c.w / 2, c.Y(0.44));
  const double r = c.Y(0.22);
  Glow(c, sun, r * 2, QColor(255, 90, 150, 130));
  QLinearGradient disc(0, sun.y() - r, 0, sun.y() + r);
  disc.setColorAt(0, QColor(255, 226, 90));
  disc.setColorAt(1, QColor(255, 60, 140));
  QPainterPath slices;
  slices.addEllipse(sun, r, r);
  for (int i = 0; i < 6; ++i) {
    QPainterPath gap;
    gap.addRect(QRectF(0, sun.y() + r * (0.05 + 0.16 * i), c.w, r * (0.03 + 0.014 * i)));
    slices -= gap;
  }
  c.p.setPen(Qt::NoPen);
  c.p.fillPath(slices, disc);
  c.p.setBrush(QColor(40, 8, 74));
  c.p.setPen(QPen(QColor(250, 80, 220), 1.6 * c.u));
  c.p.drawPath(Ridge(c, 0.62, 0.16, 4));
  QLinearGradient floor(0, c.Y(0.6), 0, c.h);
  floor.setColorAt(0, QColor(60, 10, 90));
  floor.setColorAt(1, QColor(10, 2, 30));
  c.p.fillRect(QRectF(0, c.Y(0.6), c.w, c.Y(0.4)), floor);
  c.p.setPen(QPen(QColor(80, 230, 255), 1.5 * c.u));
  for (int i = 0; i < 12; ++i) {
    const double y = c.Y(0.6 + 0.4 * std::pow(i / 11.0, 2.2));
    c.p.drawLine(QPointF(0, y), QPointF(c.w, y));
  }
  for (int i = -14; i <= 14; ++i)
    c.p.drawLine(QPointF(c.w / 2 + i * c.w * 0.03, c.Y(0.6)), QPointF(c.w / 2 + i * c.w * 0.2, c.h));
  const QPointF mast(c.X(c.rng.Chance(0.5) ? 0.16 : 0.84), c.Y(0.72));
  LatticeMast(c, mast, c.Y(0.46), 15 * c.u, QColor(12, 2, 30));
  YagiBeam(c, mast - QPointF(0, c.Y(0.46)), 130 * c.u, 5, QColor(12, 2, 30));
}

void PaintSatellite(Canvas& c) {
  c.image.fill(QColor(2, 3, 10));
  Stars(c, 420, 1);
  const double r = std::max(c.w, c.h) * 0.62;
  Planet(c, {c.X(c.rng.Real(0.5, 0.85)), c.h + r * 0.42}, r);
  c.p.save();
  c.p.translate(c.X(c.rng.Real(0.28, 0.42)), c.Y(0.34));
  c.p.rotate(c.rng.Real(-28, -8));
  const double s = 46 * c.u;
  SolarPanel(c, {-s * 2.9, -s * 0.42, s * 2.1, s * 0.84});
  SolarPanel(c, {s * 0.8, -s * 0.42, s * 2.1, s * 0.84});
  QLinearGradient foil(0, -s * 0.7, 0, s * 0.7);
  foil.setColorAt(0, QColor(255, 232, 150));
  foil.setColorAt(0.5, QColor(200, 146, 50));
  foil.setColorAt(1, QColor(96, 60, 20));
  c.p.setPen(QPen(QColor(60, 40, 14), c.u));
  c.p.setBrush(foil);
  c.p.drawRect(QRectF(-s * 0.6, -s * 0.7, s * 1.2, s * 1.4));
  c.p.setBrush(QColor(206, 208, 214));
  c.p.drawEllipse(QPointF(0, s * 1.02), s * 0.52, s * 0.2);
  c.p.setPen(QPen(QColor(206, 208, 214), 2 * c.u));
  c.p.drawLine(QPointF(0, s * 0.7), QPointF(0, s * 1.0));
  c.p.drawLine(QPointF(0, -s * 0.7), QPointF(s * 0.3, -s * 1.4));
  c.p.drawLine(QPointF(0, -s * 0.7), QPointF(-s * 0.3, -s * 1.4));
  c.p.restore();
}

// A chart as weather sites show it: land, lines of equal pressure, fronts, highs and lows.
void PaintWeatherMap(Canvas& c) {
  for (int y = 0; y < c.image.height(); ++y) {
    auto* row = reinterpret_cast<QRgb*>(c.image.scanLine(y));
    for (int x = 0; x < c.image.width(); ++x) {
      const double land = Fbm(x / c.h * 3.2, y / c.h * 3.2, 5, c.seed);
      const double pressure = Fbm(x / c.h * 1.5 + 20, y / c.h * 1.5, 2, c.seed + 9) * 16;
      QColor colour = land > 0.5
                          ? Mix(QColor(150, 180, 110), QColor(206, 190, 140), std::clamp((land - 0.5) * 6, 0.0, 1.0))
                          : QColor(150, 192, 224);
      if (std::abs(land - 0.5) < 0.006) colour = QColor(90, 100, 90);
      const double rain = Fbm(x / c.h * 2.4 + 5, y / c.h * 2.4 + 3, 4, c.seed + 21);
      if (rain > 0.6) colour = Mix(colour, rain > 0.68 ? QColor(40, 160, 40) : QColor(60, 110, 220), 0.6);
      if (pressure - std::floor(pressure) < 0.09) colour = Mix(colour, QColor(30, 30, 60), 0.75);
      row[x] = colour.rgb();
    }
  }
  c.p.setFont(Bold(46 * c.u));
  for (int i = 0; i < 4; ++i) {
    const bool high = i % 2 == 0;
    const QPointF at(c.X(0.14 + 0.23 * i), c.Y(c.rng.Real(0.25, 0.75)));
    c.p.setPen(high ? QColor(20, 50, 190) : QColor(200, 20, 20));
    c.p.drawText(at, high ? u"H"_s : u"L"_s);
  }
  const double y = c.Y(c.rng.Real(0.3, 0.6));
  QPainterPath front(QPointF(c.X(0.1), y));
  front.cubicTo(c.X(0.35), y - c.Y(0.3), c.X(0.6), y + c.Y(0.4), c.X(0.92), y);
  c.p.setBrush(Qt::NoBrush);
  c.p.setPen(QPen(QColor(10, 30, 200), 3 * c.u));
  c.p.drawPath(front);
  c.p.setPen(Qt::NoPen);
  c.p.setBrush(QColor(10, 30, 200));
  for (int i = 1; i < 14; ++i) {
    const QPointF at = front.pointAtPercent(i / 14.0);
    c.p.drawPolygon(QPolygonF() << at + QPointF(-8 * c.u, 0) << at + QPointF(8 * c.u, 0) << at + QPointF(0, 13 * c.u));
  }
}
