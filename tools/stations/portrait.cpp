// SPDX-License-Identifier: GPL-3.0-or-later
#include "portrait.h"

#include <QBuffer>
#include <algorithm>
#include <array>

#include "paint_tools.h"

namespace {

quint32 SeedOf(const QString& call) {
  quint32 seed = 40503U;
  for (const QChar letter : call) seed = seed * 31U + letter.unicode();
  return seed;
}

void PaintWall(Canvas& c) {
  const std::array walls{QColor(196, 180, 150), QColor(150, 170, 180), QColor(170, 186, 158), QColor(188, 164, 164)};
  const QColor wall = c.rng.Pick(walls);
  FillSky(c, {{0, wall.lighter(112)}, {1, wall.darker(125)}});
  // Cards from other stations.
  for (int i = 0; i < 7; ++i) {
    const QRectF card(c.X(0.04 + 0.14 * i), c.Y(c.rng.Real(0.03, 0.1)), c.X(0.11), c.X(0.08));
    c.p.fillRect(card.translated(2, 2), Alpha(Qt::black, 0.25));
    c.p.fillRect(card, QColor::fromHsv(c.rng.Int(0, 359), 110, 225));
  }
}

// A receiver on the shelf: dial, knob and a meter.
void PaintRadio(Canvas& c, const QRectF& box) {
  const int grey = c.rng.Int(30, 90);
  c.p.setPen(QPen(QColor(15, 15, 15), 1.5));
  c.p.setBrush(QColor(grey, grey, grey + 6));
  c.p.drawRoundedRect(box, 4, 4);
  const QRectF dial(box.x() + box.width() * 0.08, box.y() + box.height() * 0.18, box.width() * 0.45,
                    box.height() * 0.3);
  c.p.fillRect(dial, c.rng.Chance(0.5) ? QColor(70, 210, 230) : QColor(250, 190, 80));
  c.p.setPen(QPen(QColor(20, 30, 40), 1));
  for (int i = 1; i < 9; ++i) {
    const double x = dial.x() + dial.width() * i / 9;
    c.p.drawLine(QPointF(x, dial.y()), QPointF(x, dial.y() + dial.height() * (i % 3 == 0 ? 0.7 : 0.4)));
  }
  c.p.setBrush(QColor(140, 140, 145));
  const double radius = std::min(box.height() * 0.26, box.width() * 0.16);
  c.p.drawEllipse(QPointF(box.right() - box.width() * 0.24, box.center().y()), radius, radius);
  for (int i = 0; i < 4; ++i) {
    c.p.drawEllipse(QPointF(dial.x() + box.width() * (0.05 + 0.12 * i), box.bottom() - box.height() * 0.2), 4, 4);
  }
}

void PaintShelf(Canvas& c) {
  const double top = c.Y(0.3);
  const double height = c.Y(0.2);
  for (int i = 0; i < 3; ++i) PaintRadio(c, {c.X(0.02 + 0.33 * i), top, c.X(0.3), height});
  c.p.fillRect(QRectF(0, top + height, c.w, c.Y(0.03)), QColor(104, 72, 44));
}

void PaintPerson(Canvas& c) {
  const std::array skins{QColor(240, 204, 172), QColor(222, 176, 138), QColor(176, 124, 88), QColor(124, 84, 60)};
  const std::array hairs{QColor(60, 44, 34), QColor(130, 90, 50), QColor(200, 200, 204), QColor(206, 170, 100)};
  const QColor skin = c.rng.Pick(skins);
  const QColor hair = c.rng.Pick(hairs);
  const QPointF head(c.X(c.rng.Real(0.42, 0.58)), c.Y(0.48));
  const double r = std::min(c.w, c.h) * 0.17;

  c.p.setPen(Qt::NoPen);
  c.p.setBrush(QColor::fromHsv(c.rng.Int(0, 359), 130, 130));
  c.p.drawRoundedRect(QRectF(head.x() - r * 2, head.y() + r * 1.35, r * 4, c.h), r, r);
  c.p.setBrush(skin.darker(112));
  c.p.drawRect(QRectF(head.x() - r * 0.35, head.y() + r * 0.8, r * 0.7, r * 0.8));
  c.p.setBrush(hair);
  c.p.drawEllipse(head - QPointF(0, r * 0.25), r * 0.98, r * (c.rng.Chance(0.4) ? 1.3 : 1.05));
  c.p.setBrush(skin);
  c.p.drawEllipse(head + QPointF(0, r * 0.12), r * 0.86, r * 1.05);
  if (c.rng.Chance(0.35)) {
    c.p.setBrush(hair);
    c.p.drawChord(QRectF(head.x() - r * 0.8, head.y() - r * 0.6, r * 1.6, r * 1.8), 200 * 16, 140 * 16);
  }
  // Eyes, and glasses for some.
  const bool glasses = c.rng.Chance(0.5);
  for (const double side : {-0.36, 0.36}) {
    const QPointF eye = head + QPointF(side * r, -r * 0.05);
    c.p.setPen(Qt::NoPen);
    c.p.setBrush(QColor(40, 40, 50));
    c.p.drawEllipse(eye, r * 0.09, r * 0.09);
    c.p.setPen(QPen(QColor(30, 30, 30), 2));
    c.p.setBrush(Qt::NoBrush);
    if (glasses) c.p.drawEllipse(eye, r * 0.27, r * 0.24);
  }
  c.p.setPen(QPen(QColor(150, 70, 70), 2.5, Qt::SolidLine, Qt::RoundCap));
  c.p.drawArc(QRectF(head.x() - r * 0.35, head.y() + r * 0.2, r * 0.7, r * 0.5), 210 * 16, 120 * 16);
  // Headphones.
  c.p.setPen(QPen(QColor(35, 35, 40), r * 0.13));
  c.p.drawArc(QRectF(head.x() - r, head.y() - r * 1.35, r * 2, r * 2.4), 10 * 16, 160 * 16);
  c.p.setBrush(QColor(55, 55, 62));
  for (const double side : {-1.0, 1.0}) c.p.drawEllipse(head + QPointF(side * r * 0.95, 0), r * 0.18, r * 0.34);
}

// A plate with the call on the desk.
void PaintPlate(Canvas& c, const QString& call) {
  const QRectF plate(c.X(0.2), c.Y(0.84), c.X(0.6), c.Y(0.13));
  c.p.fillRect(QRectF(0, c.Y(0.92), c.w, c.Y(0.08)), QColor(84, 58, 36));
  c.p.setPen(QPen(QColor(90, 70, 20), 2));
  c.p.setBrush(QColor(238, 214, 140));
  c.p.drawRoundedRect(plate, 6, 6);
  QFont face;
  face.setBold(true);
  face.setPixelSize(static_cast<int>(plate.height() * 0.66));
  c.p.setFont(face);
  c.p.setPen(QColor(50, 34, 10));
  c.p.drawText(plate, Qt::AlignCenter, call);
}

}  // namespace

QByteArray PaintPortrait(const QString& call) {
  const quint32 seed = SeedOf(call);
  Canvas canvas(seed % 2 == 0 ? QSize(400, 300) : QSize(300, 400), seed);
  canvas.p.setRenderHint(QPainter::Antialiasing);
  PaintWall(canvas);
  PaintShelf(canvas);
  PaintPerson(canvas);
  PaintPlate(canvas, call);
  Vignette(canvas, 0.25);
  canvas.p.end();
  Grain(canvas.image, 4, seed);
  QByteArray file;
  QBuffer buffer(&file);
  buffer.open(QIODevice::WriteOnly);
  canvas.image.save(&buffer, "JPEG", 82);
  return file;
}
