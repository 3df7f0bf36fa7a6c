// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <cmath>
#include <numbers>

#include "scenes.h"

namespace {

void WaterfallInto(Canvas& c, const QRectF& area, int lines) {
  const int signal = c.rng.Int(4, 9);
  std::vector<double> at(static_cast<std::size_t>(signal));
  for (double& x : at) x = c.rng.Real(0.04, 0.96);
  const double step = area.height() / lines;
  const int columns = static_cast<int>(area.width() / std::max(1.0, 1.3 * c.u));
  for (int line = 0; line < lines; ++line) {
    for (int column = 0; column < columns; ++column) {
      const double x = 1.0 * column / columns;
      double level = 0.16 + 0.22 * c.rng.Real(0, 1);
      for (const double s : at) {
        const bool sending = Noise(s * 91, line / 14.0, c.seed) > 0.36;
        if (sending && std::abs(x - s) < 0.022) level += 0.75 * c.rng.Real(0.3, 1) * (1 - std::abs(x - s) / 0.03);
      }
      const QColor colour = level < 0.4
                                ? Mix(QColor(4, 8, 40), QColor(20, 70, 170), level / 0.4)
                                : Mix(QColor(40, 150, 190), QColor(255, 230, 70), std::min(1.0, (level - 0.4) / 0.6));
      c.p.fillRect(QRectF(area.left() + column * area.width() / columns, area.top() + line * step,
                          area.width() / columns + 0.6, step + 0.6),
                   colour);
    }
  }
}

void Knob(Canvas& c, QPointF at, double r) {
  QRadialGradient round(at - QPointF(r * 0.4, r * 0.4), r * 1.8);
  round.setColorAt(0, QColor(120, 120, 126));
  round.setColorAt(1, QColor(16, 16, 18));
  c.p.setPen(QPen(QColor(8, 8, 10), std::max(0.8, r * 0.06)));
  c.p.setBrush(round);
  c.p.drawEllipse(at, r, r);
  c.p.setPen(QPen(QColor(230, 230, 230), std::max(0.8, r * 0.1)));
  const double turn = c.rng.Real(3.6, 5.8);
  c.p.drawLine(at + QPointF(std::cos(turn), std::sin(turn)) * r * 0.55,
               at + QPointF(std::cos(turn), std::sin(turn)) * r * 0.85);
}

QFont Mono(double pixels, bool bold = true) {
  QFont font(u"DejaVu Sans Mono"_s);
  font.setStyleHint(QFont::Monospace);
  font.setPixelSize(std::max(4, static_cast<int>(pixels)));
  font.setBold(bold);
  return font;
}

// front: the case, from its left top corner.
void Transceiver(Canvas& c, const QRectF& front) {
  QLinearGradient metal(front.topLeft(), front.bottomLeft());
  metal.setColorAt(0, QColor(66, 68, 74));
  metal.setColorAt(0.1, QColor(40, 41, 46));
  metal.setColorAt(1, QColor(22, 22, 26));
  c.p.setPen(QPen(QColor(10, 10, 12), 1.4 * c.u));
  c.p.setBrush(metal);
  c.p.drawRoundedRect(front, 6 * c.u, 6 * c.u);
  const double w = front.width();
  const double h = front.height();
  const QRectF display(front.left() + w * 0.2, front.top() + h * 0.12, w * 0.42, h * 0.4);
  QLinearGradient glass(display.topLeft(), display.bottomRight());
  const bool amber = c.rng.Chance(0.5);
  glass.setColorAt(0, amber ? QColor(255, 176, 60) : QColor(40, 120, 200));
  glass.setColorAt(1, amber ? QColor(206, 110, 20) : QColor(16, 60, 130));
  c.p.setBrush(glass);
  c.p.drawRect(display);
  const std::array dial{u"14.230.00"_s, u" 7.171.00"_s, u" 3.733.00"_s, u"14.233.00"_s, u"21.340.00"_s, u"28.680.00"_s};
  c.p.setFont(Mono(h * 0.19));
  c.p.setPen(amber ? QColor(40, 20, 0) : QColor(230, 245, 255));
  c.p.drawText(display, Qt::AlignCenter, c.rng.Pick(dial));
  Knob(c, {front.left() + w * 0.76, front.top() + h * 0.46}, h * 0.26);
  for (int i = 0; i < 3; ++i) Knob(c, {front.left() + w * 0.93, front.top() + h * (0.2 + 0.28 * i)}, h * 0.08);
  Knob(c, {front.left() + w * 0.1, front.top() + h * 0.3}, h * 0.1);
  for (int i = 0; i < 8; ++i) {
    const QRectF key(front.left() + w * (0.05 + 0.072 * i), front.top() + h * 0.72, w * 0.055, h * 0.12);
    c.p.setPen(Qt::NoPen);
    c.p.setBrush(i == 2 ? QColor(90, 220, 90) : QColor(88, 90, 98));
    c.p.drawRoundedRect(key, 2 * c.u, 2 * c.u);
  }
}

void Wheel(Canvas& c, QPointF at, double r) {
  c.p.setPen(Qt::NoPen);
  c.p.setBrush(QColor(20, 20, 22));
  c.p.drawEllipse(at, r, r);
  c.p.setBrush(QColor(230, 226, 214));
  c.p.drawEllipse(at, r * 0.72, r * 0.72);
  QRadialGradient chrome(at - QPointF(r * 0.2, r * 0.2), r * 0.6);
  chrome.setColorAt(0, QColor(250, 250, 252));
  chrome.setColorAt(1, QColor(110, 112, 118));
  c.p.setBrush(chrome);
  c.p.drawEllipse(at, r * 0.5, r * 0.5);
}

void CarBody(Canvas& c, QPointF foot, double length, const QColor& paint) {
  const auto at = [&](double x, double y) { return foot + QPointF(x, -y) * length; };
  QPainterPath body(at(0, 0.09));
  body.cubicTo(at(-0.02, 0.2), at(0.02, 0.225), at(0.14, 0.235));
  body.lineTo(at(0.26, 0.245));
  body.cubicTo(at(0.33, 0.36), at(0.37, 0.385), at(0.46, 0.388));
  body.cubicTo(at(0.62, 0.39), at(0.68, 0.36), at(0.76, 0.25));
  body.cubicTo(at(0.9, 0.245), at(0.97, 0.22), at(1, 0.15));
  body.lineTo(at(1, 0.08));
  body.lineTo(at(0, 0.07));
  body.closeSubpath();
  QLinearGradient lacquer(at(0, 0.39), at(0, 0.06));
  lacquer.setColorAt(0, paint.lighter(150));
  lacquer.setColorAt(0.45, paint);
  lacquer.setColorAt(0.5, paint.lighter(170));
  lacquer.setColorAt(0.56, paint.darker(115));
  lacquer.setColorAt(1, paint.darker(210));
  c.p.setPen(QPen(paint.darker(280), 1.3 * c.u));
  c.p.setBrush(lacquer);
  c.p.drawPath(body);
  QPainterPath glass(at(0.3, 0.25));
  glass.cubicTo(at(0.35, 0.34), at(0.38, 0.36), at(0.46, 0.362));
  glass.cubicTo(at(0.6, 0.364), at(0.65, 0.34), at(0.72, 0.25));
  glass.closeSubpath();
  QLinearGradient pane(at(0.3, 0.36), at(0.7, 0.25));
  pane.setColorAt(0, QColor(206, 226, 236));
  pane.setColorAt(0.5, QColor(96, 120, 136));
  pane.setColorAt(1, QColor(160, 186, 200));
  c.p.setBrush(pane);
  c.p.drawPath(glass);
  c.p.setPen(QPen(paint.darker(160), length * 0.014));
  c.p.drawLine(at(0.505, 0.25), at(0.495, 0.365));
  c.p.setPen(QPen(QColor(232, 234, 238), length * 0.012));
  c.p.drawLine(at(0.02, 0.17), at(0.98, 0.165));
  c.p.drawLine(at(-0.02, 0.075), at(0.12, 0.07));
  c.p.drawLine(at(0.9, 0.075), at(1.02, 0.085));
  c.p.setPen(Qt::NoPen);
  c.p.setBrush(QColor(255, 250, 210));
  c.p.drawEllipse(at(0.985, 0.185), length * 0.016, length * 0.028);
  c.p.setBrush(QColor(200, 30, 20));
  c.p.drawEllipse(at(0.008, 0.18), length * 0.012, length * 0.024);
  Wheel(c, at(0.2, 0.075), length * 0.085);
  Wheel(c, at(0.79, 0.075), length * 0.085);
  c.p.setPen(QPen(QColor(40, 40, 44), std::max(0.9, length * 0.004)));
  c.p.drawLine(at(0.1, 0.23), at(0.03, 0.62));
}

void Cat(Canvas& c, QPointF foot, double s, const QColor& fur) {
  const auto at = [&](double x, double y) { return foot + QPointF(x, -y) * s; };
  c.p.setBrush(Qt::NoBrush);
  c.p.setPen(QPen(fur, s * 0.09, Qt::SolidLine, Qt::RoundCap));
  QPainterPath tail(at(0.26, 0.06));
  tail.cubicTo(at(0.7, 0.0), at(0.62, -0.35), at(0.46, -0.5));
  c.p.drawPath(tail);
  QPainterPath body(at(-0.3, 0));
  body.cubicTo(at(-0.36, 0.4), at(-0.2, 0.62), at(-0.12, 0.72));
  body.lineTo(at(0.12, 0.72));
  body.cubicTo(at(0.24, 0.6), at(0.42, 0.36), at(0.34, 0));
  body.closeSubpath();
  c.p.setPen(Qt::NoPen);
  c.p.setBrush(fur);
  c.p.drawPath(body);
  c.p.drawEllipse(at(0, 0.84), s * 0.215, s * 0.19);
  for (const double side : {-1.0, 1.0}) {
    c.p.drawPolygon(QPolygonF() << at(side * 0.21, 0.86) << at(side * 0.2, 1.13) << at(side * 0.05, 1.0));
  }
}

void Rain(Canvas& c, const QRectF& pane) {
  for (int i = 0; i < 130; ++i) {
    const QPointF at(c.rng.Real(pane.left(), pane.right()), c.rng.Real(pane.top(), pane.bottom()));
    const double r = c.rng.Real(0.7, 2.4) * c.u;
    c.p.setPen(Qt::NoPen);
    c.p.setBrush(QColor(220, 230, 255, 110));
    c.p.drawEllipse(at, r, r * 1.4);
    if (c.rng.Chance(0.25)) {
      c.p.setPen(QPen(QColor(200, 214, 240, 60), r));
      c.p.drawLine(at, at + QPointF(0, c.rng.Real(8, 40) * c.u));
    }
  }
}

void Skyline(Canvas& c, double base, double tallest, const QColor& wall, double litPart) {
  double x = -10 * c.u;
  c.p.setPen(Qt::NoPen);
  while (x < c.w) {
    const double wide = c.rng.Real(28, 66) * c.u;
    const double tall = c.Y(tallest) * c.rng.Real(0.35, 1);
    const QRectF block(x, c.Y(base) - tall, wide, tall + 2);
    c.p.fillRect(block, Mix(wall, Qt::black, c.rng.Real(0, 0.4)));
    if (c.rng.Chance(0.2)) {
      c.p.setPen(QPen(wall.lighter(130), 1.4 * c.u));
      c.p.drawLine(block.topLeft() + QPointF(wide / 2, 0), block.topLeft() + QPointF(wide / 2, -28 * c.u));
      c.p.setPen(Qt::NoPen);
      Glow(c, block.topLeft() + QPointF(wide / 2, -28 * c.u), 7 * c.u, QColor(255, 50, 40));
    }
    for (int floor = 0; floor < Steps(tall - 10 * c.u, 8 * c.u); ++floor) {
      for (int window = 0; window < Steps(wide - 9 * c.u, 7 * c.u); ++window) {
        if (!c.rng.Chance(litPart)) continue;
        const QPointF at = block.topLeft() + QPointF(4 + 7 * window, 5 + 8 * floor) * c.u;
        c.p.fillRect(QRectF(at, QSizeF(3.6, 4.4) * c.u),
                     Mix(QColor(255, 206, 110), QColor(210, 226, 255), c.rng.Real(0, 1)));
      }
    }
    x += wide + c.rng.Real(0, 8) * c.u;
  }
}

}  // namespace

void PaintShack(Canvas& c) {
  QLinearGradient wall(0, 0, 0, c.h);
  wall.setColorAt(0, QColor(150, 124, 96));
  wall.setColorAt(1, QColor(92, 70, 52));
  c.p.fillRect(c.image.rect(), wall);
  Grain(c.image, 10, c.seed);
  Glow(c, {c.X(0.85), c.Y(0.1)}, c.h * 0.6, QColor(255, 220, 150, 120));
  const QRectF monitor(c.X(0.06), c.Y(0.08), c.X(0.5), c.Y(0.46));
  c.p.setPen(Qt::NoPen);
  c.p.setBrush(QColor(18, 18, 20));
  c.p.drawRoundedRect(monitor.adjusted(-8 * c.u, -8 * c.u, 8 * c.u, 12 * c.u), 5 * c.u, 5 * c.u);
  c.p.fillRect(monitor, QColor(206, 210, 218));
  c.p.fillRect(QRectF(monitor.left(), monitor.top(), monitor.width(), 14 * c.u), QColor(40, 84, 150));
  WaterfallInto(
      c, {monitor.left() + 6 * c.u, monitor.top() + 20 * c.u, monitor.width() * 0.58, monitor.height() - 28 * c.u}, 70);
  const QRectF received(monitor.left() + monitor.width() * 0.62, monitor.top() + 20 * c.u, monitor.width() * 0.35,
                        monitor.height() * 0.42);
  FillSky(c, {{0, Qt::transparent}, {1, Qt::transparent}}, 0.01);
  QLinearGradient scenery(received.topLeft(), received.bottomLeft());
  scenery.setColorAt(0, QColor(90, 150, 220));
  scenery.setColorAt(0.55, QColor(250, 220, 160));
  scenery.setColorAt(0.58, QColor(50, 90, 60));
  scenery.setColorAt(1, QColor(30, 60, 40));
  c.p.fillRect(received, scenery);
  for (int i = 0; i < 9; ++i)
    c.p.fillRect(
        QRectF(received.left(), received.bottom() + (10 + 9 * i) * c.u, received.width() * c.rng.Real(0.4, 1), 3 * c.u),
        QColor(70, 80, 100));
  QLinearGradient desk(0, c.Y(0.62), 0, c.h);
  desk.setColorAt(0, QColor(140, 92, 52));
  desk.setColorAt(1, QColor(74, 44, 24));
  c.p.fillRect(QRectF(0, c.Y(0.62), c.w, c.Y(0.4)), desk);
  c.p.fillRect(QRectF(c.X(0.26), c.Y(0.56), c.X(0.1), c.Y(0.07)), QColor(14, 14, 16));
  Transceiver(c, {c.X(0.5), c.Y(0.6), c.X(0.46), c.Y(0.22)});
  Transceiver(c, {c.X(0.64), c.Y(0.36), c.X(0.32), c.Y(0.17)});
  for (int i = 0; i < 3; ++i) {  // cards on the wall
    c.p.save();
    c.p.translate(c.X(0.66 + 0.11 * i), c.Y(0.16));
    c.p.rotate(c.rng.Real(-6, 6));
    c.p.fillRect(QRectF(-28 * c.u, -18 * c.u, 56 * c.u, 36 * c.u), QColor(244, 240, 226));
    c.p.fillRect(QRectF(-25 * c.u, -15 * c.u, 50 * c.u, 17 * c.u), QColor::fromHsv(c.rng.Int(0, 359), 140, 190));
    c.p.restore();
  }
  c.p.setPen(QPen(QColor(16, 16, 18), 5 * c.u));  // microphone on its arm
  c.p.drawLine(QPointF(c.X(0.02), c.Y(0.98)), QPointF(c.X(0.16), c.Y(0.7)));
  c.p.drawLine(QPointF(c.X(0.16), c.Y(0.7)), QPointF(c.X(0.33), c.Y(0.74)));
  c.p.setBrush(QColor(56, 58, 64));
  c.p.drawRoundedRect(QRectF(c.X(0.32), c.Y(0.7), 46 * c.u, 24 * c.u), 11 * c.u, 11 * c.u);
  c.p.setPen(Qt::NoPen);
  c.p.setBrush(QColor(190, 50, 40));  // mug
  c.p.drawRoundedRect(QRectF(c.X(0.3), c.Y(0.84), 38 * c.u, 46 * c.u), 5 * c.u, 5 * c.u);
  Vignette(c, 0.45);
}

void PaintWaterfall(Canvas& c) {
  c.p.fillRect(c.image.rect(), QColor(22, 24, 30));
  const QRectF spectrum(c.X(0.02), c.Y(0.03), c.X(0.96), c.Y(0.24));
  c.p.fillRect(spectrum, QColor(4, 8, 20));
  c.p.setPen(QPen(QColor(60, 80, 110, 120), 1));
  for (int i = 1; i < 10; ++i)
    c.p.drawLine(QPointF(spectrum.left() + spectrum.width() * i / 10, spectrum.top()),
                 QPointF(spectrum.left() + spectrum.width() * i / 10, spectrum.bottom()));
  QPainterPath trace(spectrum.bottomLeft());
  for (int i = 0; i < Steps(spectrum.width(), 1.5 * c.u); ++i) {
    const double x = i * 1.5 * c.u;
    const double part = x / spectrum.width();
    const double hill = std::abs(part - 0.5) < 0.3 ? 0.45 + 0.2 * Noise(part * 30, 1, c.seed) : 0.1;
    trace.lineTo(spectrum.left() + x, spectrum.bottom() - spectrum.height() * (hill + 0.14 * c.rng.Real(0, 1)));
  }
  trace.lineTo(spectrum.bottomRight());
  c.p.setPen(QPen(QColor(250, 240, 120), 1.1 * c.u));
  c.p.setBrush(QColor(40, 120, 200, 120));
  c.p.drawPath(trace);
  WaterfallInto(c, {c.X(0.02), c.Y(0.29), c.X(0.96), c.Y(0.5)}, 110);
  c.p.setFont(Mono(15 * c.u, false));
  const std::array lines{u"sync 0.92   frames 118/120   RS1   LDPC ok"_s,
                         u"offset +3 Hz   S/N 17.4 dB   mode B 2.3 kHz"_s, u"segments 42 of 42   file complete"_s};
  for (std::size_t i = 0; i < lines.size(); ++i) {
    c.p.setPen(QColor(120, 230, 140));
    c.p.drawText(QPointF(c.X(0.04), c.Y(0.85 + 0.05 * static_cast<double>(i))), lines.at(i));
  }
}

void PaintCatAtWindow(Canvas& c) {
  FillSky(c, {{0, QColor(24, 28, 66)}, {0.6, QColor(90, 70, 120)}, {1, QColor(220, 130, 100)}}, 0.74);
  Stars(c, 70, 0.4);
  SunDisc(c, {c.X(0.72), c.Y(0.2)}, 20 * c.u, QColor(250, 240, 206));
  Skyline(c, 0.76, 0.3, QColor(36, 34, 60), 0.3);
  Rain(c, {0, 0, c.w, c.Y(0.76)});
  QLinearGradient sill(0, c.Y(0.76), 0, c.h);
  sill.setColorAt(0, QColor(212, 190, 160));
  sill.setColorAt(0.2, QColor(150, 120, 92));
  sill.setColorAt(1, QColor(80, 58, 44));
  c.p.fillRect(QRectF(0, c.Y(0.76), c.w, c.Y(0.26)), sill);
  const QColor frame(92, 64, 46);
  for (const double x : {0.0, 0.485, 0.965}) c.p.fillRect(QRectF(c.X(x), 0, c.X(0.035), c.Y(0.78)), frame);
  c.p.fillRect(QRectF(0, 0, c.w, c.Y(0.04)), frame);
  c.p.fillRect(QRectF(0, c.Y(0.4), c.w, c.Y(0.03)), frame);
  for (const double side : {0.0, 1.0}) {  // curtains
    for (int i = 0; i < 5; ++i) {
      const double x = side < 0.5 ? c.X(0.03 * i) : c.w - c.X(0.03 * (i + 1));
      QLinearGradient fold(x, 0, x + c.X(0.03), 0);
      fold.setColorAt(0, QColor(120, 30, 40));
      fold.setColorAt(0.5, QColor(176, 56, 60));
      fold.setColorAt(1, QColor(90, 20, 30));
      c.p.fillRect(QRectF(x, 0, c.X(0.03) + 1, c.Y(0.8)), fold);
    }
  }
  const QColor fur = c.rng.Chance(0.5) ? QColor(22, 18, 24) : QColor(120, 70, 30);
  Cat(c, {c.X(c.rng.Real(0.36, 0.64)), c.Y(0.82)}, c.Y(0.4), fur);
  for (int i = 0; i < 2; ++i) {  // a plant
    LeafTree(c, {c.X(0.84), c.Y(0.82)}, c.Y(0.24), {60, 120, 60});
    c.p.setPen(Qt::NoPen);
    c.p.setBrush(QColor(176, 92, 56));
    c.p.drawPolygon(QPolygonF() << QPointF(c.X(0.8), c.Y(0.78)) << QPointF(c.X(0.88), c.Y(0.78))
                                << QPointF(c.X(0.865), c.Y(0.87)) << QPointF(c.X(0.815), c.Y(0.87)));
  }
  Vignette(c, 0.4);
}

void PaintOldCar(Canvas& c) {
  FillSky(c, {{0, QColor(70, 140, 210)}, {1, QColor(220, 232, 236)}}, 0.6);
  Clouds(c, QColor(255, 255, 255), QColor(184, 196, 212), 0.53, 0.55);
  c.p.setPen(Qt::NoPen);
  for (int i = 0; i < 3; ++i) {
    c.p.setBrush(Mix(QColor(140, 164, 170), QColor(96, 128, 60), i / 2.0));
    c.p.drawPath(Ridge(c, 0.6 + 0.04 * i, 0.16 - 0.03 * i, 1.8 + i));
  }
  Ground(c, 0.66, QColor(72, 100, 40), QColor(170, 178, 90), 1.5);
  for (int i = 0; i < 4; ++i)
    LeafTree(c, {c.X(c.rng.Real(0, 1)), c.Y(0.68)}, c.Y(c.rng.Real(0.16, 0.28)), {86, 126, 52});
  QLinearGradient road(0, c.Y(0.76), 0, c.Y(0.97));
  road.setColorAt(0, QColor(124, 122, 120));
  road.setColorAt(1, QColor(84, 84, 86));
  c.p.fillRect(QRectF(0, c.Y(0.76), c.w, c.Y(0.2)), road);
  for (int i = 0; i < 7; ++i)
    c.p.fillRect(QRectF(c.X(0.02 + 0.15 * i), c.Y(0.925), c.X(0.08), c.Y(0.01)), QColor(232, 226, 200));
  const double length = std::min(c.X(0.62), c.Y(0.9));
  const QPointF foot(c.w / 2 - length / 2, c.Y(0.89));
  c.p.setPen(Qt::NoPen);
  c.p.setBrush(QColor(0, 0, 0, 110));
  c.p.drawEllipse(QPointF(c.w / 2, c.Y(0.892)), length * 0.53, c.Y(0.022));
  const std::array lacquers{QColor(170, 24, 30), QColor(40, 110, 130), QColor(226, 206, 150), QColor(30, 60, 120),
                            QColor(60, 110, 70)};
  CarBody(c, foot, length, c.rng.Pick(lacquers));
}

void PaintSunflower(Canvas& c) {
  const std::array skies{QColor(70, 130, 200), QColor(90, 110, 70), QColor(60, 70, 90)};
  const QColor back = c.rng.Pick(skies);
  FillSky(c, {{0, back.lighter(130)}, {0.6, back}, {1, back.darker(150)}});
  c.p.setPen(Qt::NoPen);
  for (int i = 0; i < 26; ++i) {  // out of focus
    c.p.setBrush(Alpha(Mix(QColor(250, 220, 90), QColor(110, 170, 60), c.rng.Real(0, 1)), 0.16));
    const double r = c.rng.Real(20, 60) * c.u;
    c.p.drawEllipse(QPointF(c.rng.Real(0, c.w), c.Y(c.rng.Real(0.4, 1))), r, r);
  }
  const QPointF heart(c.X(c.rng.Real(0.42, 0.58)), c.Y(0.46));
  const double r = std::min(c.w, c.h) * 0.15;
  c.p.setPen(QPen(QColor(60, 110, 40), r * 0.22));
  c.p.drawLine(heart, QPointF(heart.x() + r * 0.4, c.h + r));
  c.p.setPen(Qt::NoPen);
  const bool red = c.rng.Chance(0.3);
  for (int ring = 0; ring < 3; ++ring) {
    for (int i = 0; i < 22; ++i) {
      const double angle = i * 360.0 / 22 + ring * 8 + c.rng.Real(-3, 3);
      const double reach = r * (2.55 - 0.3 * ring) * c.rng.Real(0.92, 1.06);
      c.p.save();
      c.p.translate(heart);
      c.p.rotate(angle);
      QLinearGradient petal(r * 0.7, 0, reach, 0);
      petal.setColorAt(0, red ? QColor(120, 20, 30) : QColor(206, 110, 10));
      petal.setColorAt(0.6, red ? QColor(214, 60, 50) : QColor(250, 190, 20));
      petal.setColorAt(1, red ? QColor(240, 130, 90) : QColor(255, 228, 90));
      c.p.setBrush(petal);
      QPainterPath leaf(QPointF(r * 0.6, 0));
      leaf.quadTo(reach * 0.7, r * 0.42, reach, 0);
      leaf.quadTo(reach * 0.7, -r * 0.42, r * 0.6, 0);
      c.p.drawPath(leaf);
      c.p.restore();
    }
  }
  constexpr double kGoldenAngle = 2.399963;
  for (int i = 420; i > 0; --i) {
    const double out = std::sqrt(i / 420.0);
    const QPointF at = heart + QPointF(std::cos(i * kGoldenAngle), std::sin(i * kGoldenAngle)) * r * 1.02 * out;
    c.p.setBrush(Mix(QColor(110, 80, 20), QColor(36, 20, 10), std::abs(out - 0.55) * 1.8).lighter(c.rng.Int(85, 150)));
    c.p.drawEllipse(at, r * 0.048, r * 0.048);
  }
  Vignette(c, 0.4);
}

void PaintCityAtNight(Canvas& c) {
  FillSky(c, {{0, QColor(6, 8, 28)}, {0.7, QColor(34, 30, 70)}, {1, QColor(96, 60, 90)}}, 0.72);
  Stars(c, 120, 0.5);
  const std::array sparks{QColor(255, 90, 70), QColor(255, 220, 110), QColor(110, 200, 255), QColor(150, 255, 150),
                          QColor(255, 130, 230)};
  const int bursts = c.rng.Int(0, 5);
  for (int b = 0; b < bursts; ++b) {
    const QPointF at(c.X(c.rng.Real(0.1, 0.9)), c.Y(c.rng.Real(0.1, 0.36)));
    const QColor colour = c.rng.Pick(sparks);
    const double reach = c.rng.Real(50, 105) * c.u;
    Glow(c, at, reach, Alpha(colour, 0.35));
    for (int i = 0; i < 64; ++i) {
      const double angle = c.rng.Real(0, 2 * std::numbers::pi);
      const QPointF tip =
          at + QPointF(std::cos(angle), std::sin(angle)) * reach * c.rng.Real(0.5, 1) + QPointF(0, reach * 0.12);
      QLinearGradient ray(at, tip);
      ray.setColorAt(0, Alpha(colour, 0.1));
      ray.setColorAt(1, colour.lighter(140));
      c.p.setPen(QPen(QBrush(ray), 1.5 * c.u, Qt::SolidLine, Qt::RoundCap));
      c.p.drawLine(at, tip);
    }
  }
  Skyline(c, 0.74, 0.28, QColor(26, 26, 52), 0.18);
  Skyline(c, 0.74, 0.42, QColor(16, 16, 34), 0.42);
  Water(c, 0.74, QColor(6, 8, 24), 0.28, 2.0);
  Vignette(c, 0.3);
}
