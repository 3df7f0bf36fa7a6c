// SPDX-License-Identifier: GPL-3.0-or-later
#include "film_signs.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

namespace {

constexpr int kPixels = 96;    // enough for a button at three times the usual scale
constexpr double kUnits = 24;  // the side of the square in which the signs are drawn
constexpr double kStroke = 2.2;

QPainterPath Triangle(double tip, double base) {
  QPainterPath path(QPointF(base, 5));
  path.lineTo(tip, 12);
  path.lineTo(base, 19);
  path.closeSubpath();
  return path;
}

QPainterPath Speaker() {
  QPainterPath path(QPointF(3, 9));
  for (const QPointF& point : {QPointF(7, 9), QPointF(12, 4), QPointF(12, 20), QPointF(7, 15), QPointF(3, 15)})
    path.lineTo(point);
  path.closeSubpath();
  return path;
}

// Four corners of a frame; outwards: of the window that the film will fill.
void DrawCorners(QPainter& painter, bool outwards) {
  const double corner = outwards ? 5 : 10;
  const double end = outwards ? 10 : 5;
  for (const QPointF& sign : {QPointF(-1, -1), QPointF(1, -1), QPointF(1, 1), QPointF(-1, 1)}) {
    const auto at = [&sign](double x, double y) { return QPointF(12 + sign.x() * (12 - x), 12 + sign.y() * (12 - y)); };
    painter.drawPolyline(QPolygonF{at(corner, end), at(corner, corner), at(end, corner)});
  }
}

void Draw(QPainter& painter, FilmSign sign) {
  switch (sign) {
    case FilmSign::imgPlay:
      painter.fillPath(Triangle(19, 7), painter.pen().color());
      break;
    case FilmSign::imgPause:
      painter.fillRect(QRectF(6, 5, 4, 14), painter.pen().color());
      painter.fillRect(QRectF(14, 5, 4, 14), painter.pen().color());
      break;
    case FilmSign::Back:
      painter.fillPath(Triangle(3, 12), painter.pen().color());
      painter.fillPath(Triangle(12, 21), painter.pen().color());
      break;
    case FilmSign::Forward:
      painter.fillPath(Triangle(12, 3), painter.pen().color());
      painter.fillPath(Triangle(21, 12), painter.pen().color());
      break;
    case FilmSign::Loud:
      painter.fillPath(Speaker(), painter.pen().color());
      painter.drawArc(QRectF(10, 8, 8, 8), -60 * 16, 120 * 16);
      painter.drawArc(QRectF(8, 4, 16, 16), -55 * 16, 110 * 16);
      break;
    case FilmSign::Muted:
      painter.fillPath(Speaker(), painter.pen().color());
      painter.drawLine(QPointF(15.5, 9), QPointF(21.5, 15));
      painter.drawLine(QPointF(21.5, 9), QPointF(15.5, 15));
      break;
    case FilmSign::FullScreen:
      DrawCorners(painter, true);
      break;
    case FilmSign::Window:
      DrawCorners(painter, false);
      break;
  }
}

QPixmap Picture(FilmSign sign, const QColor& colour) {
  QPixmap picture(kPixels, kPixels);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(kPixels / kUnits, kPixels / kUnits);
  painter.setPen(QPen(colour, kStroke, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  Draw(painter, sign);
  return picture;
}

}  // namespace

QIcon FilmIcon(FilmSign sign, const QColor& colour, const QColor& disabled) {
  QIcon icon(Picture(sign, colour));
  icon.addPixmap(Picture(sign, disabled), QIcon::Disabled);
  return icon;
}
