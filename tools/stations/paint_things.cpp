// SPDX-License-Identifier: GPL-3.0-or-later
// The second half of the brushes: masts and aerials, houses, birds, and what a camera adds.
#include <QRandomGenerator>
#include <algorithm>
#include <cmath>

#include "paint_tools.h"

void LatticeMast(Canvas& c, QPointF foot, double height, double width, const QColor& colour) {
  c.p.setPen(QPen(colour, std::max(1.0, width * 0.09)));
  const QPointF left(width / 2, 0);
  const QPointF up(0, height);
  c.p.drawLine(foot - left, foot - left * 0.7 - up);
  c.p.drawLine(foot + left, foot + left * 0.7 - up);
  c.p.setPen(QPen(colour, std::max(0.7, width * 0.06)));
  const int bays = std::max(4, static_cast<int>(height / (width * 1.5)));
  for (int i = 0; i < bays; ++i) {
    const double low = height * i / bays;
    const double high = height * (i + 1) / bays;
    const double wide = width / 2 * (1 - 0.3 * i / bays);
    const double narrow = width / 2 * (1 - 0.3 * (i + 1) / bays);
    c.p.drawLine(foot + QPointF(-wide, -low), foot + QPointF(narrow, -high));
    c.p.drawLine(foot + QPointF(wide, -low), foot + QPointF(-narrow, -high));
    c.p.drawLine(foot + QPointF(-narrow, -high), foot + QPointF(narrow, -high));
  }
}

void YagiBeam(Canvas& c, QPointF centre, double length, int elements, const QColor& colour) {
  const QPointF boom(length / 2, length * 0.07);
  c.p.setPen(QPen(colour, std::max(1.4, 3.2 * c.u), Qt::SolidLine, Qt::RoundCap));
  c.p.drawLine(centre - boom, centre + boom);
  for (int i = 0; i < elements; ++i) {
    const double part = elements == 1 ? 0.5 : 1.0 * i / (elements - 1);
    const QPointF at = centre - boom + boom * 2 * part;
    const double half = length * (0.42 - 0.1 * part);
    const QPointF reach(half * 0.34, -half * 0.62);
    c.p.setPen(QPen(colour, std::max(1.0, 2.1 * c.u), Qt::SolidLine, Qt::RoundCap));
    c.p.drawLine(at - reach, at + reach);
  }
}

void WireAerial(Canvas& c, QPointF left, QPointF right, double sag, const QColor& colour) {
  QPainterPath wire(left);
  wire.quadTo((left + right) / 2 + QPointF(0, sag * 2), right);
  c.p.setBrush(Qt::NoBrush);
  c.p.setPen(QPen(colour, std::max(0.9, 1.4 * c.u)));
  c.p.drawPath(wire);
  c.p.drawLine((left + right) / 2 + QPointF(0, sag), (left + right) / 2 + QPointF(c.u * 10, c.h * 0.5));
  for (const double part : {0.04, 0.96}) {
    c.p.setBrush(QColor(235, 235, 225));
    const QPointF at = wire.pointAtPercent(part);
    c.p.drawEllipse(at, 3.2 * c.u, 2.2 * c.u);
  }
}

void House(Canvas& c, QPointF foot, double width, double height, const QColor& wall, const QColor& roof, bool lit) {
  const double wallHeight = height * 0.58;
  QLinearGradient shade(foot, foot + QPointF(width, 0));
  shade.setColorAt(0, wall.lighter(112));
  shade.setColorAt(1, wall.darker(135));
  c.p.setPen(Qt::NoPen);
  c.p.fillRect(QRectF(foot.x(), foot.y() - wallHeight, width, wallHeight), shade);
  QPolygonF gable;
  gable << foot + QPointF(-width * 0.08, -wallHeight) << foot + QPointF(width * 0.22, -height)
        << foot + QPointF(width * 0.78, -height) << foot + QPointF(width * 1.08, -wallHeight);
  c.p.setBrush(roof);
  c.p.drawPolygon(gable);
  c.p.fillRect(QRectF(foot.x() + width * 0.62, foot.y() - height * 1.14, width * 0.09, height * 0.22),
               roof.darker(130));
  const int panes = std::max(2, static_cast<int>(width / (wallHeight * 0.55)));
  for (int i = 0; i < panes; ++i) {
    const QRectF pane(foot.x() + width * (i + 0.3) / panes, foot.y() - wallHeight * 0.72, width * 0.4 / panes,
                      wallHeight * 0.38);
    const bool bright = lit && c.rng.Chance(0.75);
    if (bright) Glow(c, pane.center(), wallHeight * 0.9, QColor(255, 180, 70, 90));
    c.p.fillRect(pane, bright ? QColor(255, 214, 120) : QColor(40, 52, 66));
    c.p.setPen(QPen(wall.lighter(150), std::max(0.8, width * 0.008)));
    c.p.drawLine(QPointF(pane.center().x(), pane.top()), QPointF(pane.center().x(), pane.bottom()));
    c.p.drawLine(QPointF(pane.left(), pane.center().y()), QPointF(pane.right(), pane.center().y()));
    c.p.setPen(Qt::NoPen);
  }
}

void Birds(Canvas& c, int count, const QColor& colour) {
  c.p.setBrush(Qt::NoBrush);
  const QPointF flock(c.rng.Real(0.2, 0.8) * c.w, c.rng.Real(0.12, 0.35) * c.h);
  for (int i = 0; i < count; ++i) {
    const QPointF at = flock + QPointF(c.rng.Real(-70, 70), c.rng.Real(-30, 30)) * c.u;
    const double span = c.rng.Real(5, 10) * c.u;
    QPainterPath bird(at - QPointF(span, span * 0.45));
    bird.quadTo(at - QPointF(span * 0.4, span * 0.6), at);
    bird.quadTo(at + QPointF(span * 0.4, -span * 0.6), at + QPointF(span, -span * 0.35));
    c.p.setPen(QPen(colour, std::max(0.9, 1.5 * c.u), Qt::SolidLine, Qt::RoundCap));
    c.p.drawPath(bird);
  }
}

void Grain(QImage& image, double strength, quint32 seed) {
  QRandomGenerator generator(seed);
  for (int y = 0; y < image.height(); ++y) {
    auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
    for (int x = 0; x < image.width(); ++x) {
      // The sum of two even chances is close enough to the noise of a sensor.
      const quint32 bits = generator.generate();
      const double noise = (static_cast<double>((bits & 0xffU) + ((bits >> 8U) & 0xffU)) - 255.0) / 255.0 * strength;
      const auto add = [noise](int v) { return std::clamp(static_cast<int>(v + noise), 0, 255); };
      row[x] = qRgb(add(qRed(row[x])), add(qGreen(row[x])), add(qBlue(row[x])));
    }
  }
}

void Vignette(Canvas& c, double strength) {
  QRadialGradient gradient(QPointF(c.w / 2, c.h / 2), std::hypot(c.w, c.h) * 0.55);
  gradient.setColorAt(0.5, QColor(0, 0, 0, 0));
  gradient.setColorAt(1, Alpha(Qt::black, strength));
  c.p.fillRect(c.image.rect(), gradient);
}
