// SPDX-License-Identifier: GPL-3.0-or-later
#include "page/still_pictures.h"

#include <QBuffer>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

#include "platform/whole_file.h"

namespace {

QImage Canvas(const QColor& top, const QColor& bottom) {
  QImage image(232, 172, QImage::Format_RGB32);
  QPainter painter(&image);
  QLinearGradient shade(0, 0, 0, image.height());
  shade.setColorAt(0, top);
  shade.setColorAt(1, bottom);
  painter.fillRect(image.rect(), shade);
  return image;
}

QImage PaintFilmStrip() {
  QImage image = Canvas(QColor(58, 64, 78), QColor(28, 31, 38));
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(16, 17, 20));
  painter.drawRect(0, 0, image.width(), 26);
  painter.drawRect(0, image.height() - 26, image.width(), 26);
  painter.setBrush(QColor(225, 228, 235));
  for (int x = 8; x < image.width(); x += 24) {
    painter.drawRoundedRect(x, 7, 13, 12, 3, 3);
    painter.drawRoundedRect(x, image.height() - 19, 13, 12, 3, 3);
  }
  painter.setBrush(QColor(255, 255, 255, 235));
  QPainterPath arrow;
  arrow.moveTo(92, 54);
  arrow.lineTo(154, 86);
  arrow.lineTo(92, 118);
  arrow.closeSubpath();
  painter.drawPath(arrow);
  return image;
}

QImage PaintCamOnly() {
  QImage image = Canvas(QColor(214, 224, 236), QColor(172, 188, 208));
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(60, 74, 94));
  painter.drawRoundedRect(48, 58, 100, 66, 12, 12);
  QPainterPath hood;
  hood.moveTo(152, 82);
  hood.lineTo(186, 62);
  hood.lineTo(186, 120);
  hood.lineTo(152, 100);
  hood.closeSubpath();
  painter.drawPath(hood);
  painter.setBrush(QColor(236, 242, 250));
  painter.drawEllipse(QPointF(98, 91), 22, 22);
  painter.setBrush(QColor(34, 44, 60));
  painter.drawEllipse(QPointF(98, 91), 14, 14);
  painter.setBrush(QColor(255, 255, 255, 190));
  painter.drawEllipse(QPointF(93, 86), 4, 4);
  return image;
}

}  // namespace

const QImage& imgMp4() {
  static const QImage picture = PaintFilmStrip();
  return picture;
}

const QImage& imgCamOnly() {
  static const QImage picture = PaintCamOnly();
  return picture;
}

bool WriteStill(const QImage& picture, const QString& path) {
  QByteArray jpeg;
  QBuffer buffer(&jpeg);
  return buffer.open(QIODevice::WriteOnly) && picture.save(&buffer, "JPG", 90) && WriteWhole(path, jpeg);
}
