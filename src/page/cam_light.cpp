// SPDX-License-Identifier: GPL-3.0-or-later
#include "page/cam_light.h"

#include <QCoreApplication>
#include <QPainterPath>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr QColor kYellow(245, 200, 40);
constexpr QColor kGreen(40, 180, 70);
constexpr QColor kRed(225, 60, 50);
constexpr QColor kGray(150, 150, 150);

// Context of the words in data/translations.
class CamWords {
  Q_DECLARE_TR_FUNCTIONS(CamWords)
};

}  // namespace

CamLight LightOfMark(QChar mark) {
  switch (mark.unicode()) {
    case u'Y':
      return imgCamY;
    case u'G':
      return imgCamG;
    case u'R':
      return imgCamR;
    default:
      return CamLight::Gray;
  }
}

CamLight LightOfSite(const Program& program, const QString& call) {
  if (const QChar mark = program.sites.CamMark(call); !mark.isNull()) return LightOfMark(mark);
  const QString answered = program.page.ActiveCamNames + u'*';
  return answered.contains(u'*' + call + u'*') ? imgCamG : imgCamY;
}

void PaintCamLight(QPainter& painter, const QRectF& place, CamLight light, const QColor& outline) {
  if (light == CamLight::Hidden) return;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  const double line = std::max(1.0, place.width() / 11);
  const QRectF disc = place.adjusted(line / 2, line / 2, -line / 2, -line / 2);
  painter.setPen(QPen(outline, line));
  if (light == CamLight::Yellow) {
    // Two rims around the yellow ring, which alone is too pale on white.
    const double ring = place.width() * 0.24;
    painter.setBrush(kYellow);
    QPainterPath path;
    path.addEllipse(disc);
    path.addEllipse(disc.adjusted(ring, ring, -ring, -ring));
    painter.drawPath(path);
  } else if (light == CamLight::Gray) {
    const double rim = place.width() * 0.3;
    painter.setPen(Qt::NoPen);
    painter.setBrush(kGray);
    painter.drawEllipse(place.adjusted(rim, rim, -rim, -rim));
  } else {
    painter.setBrush(light == CamLight::Green ? kGreen : kRed);
    painter.drawEllipse(disc);
  }
  if (light == CamLight::Red) {
    const double rim = place.width() * 0.28;
    const QRectF cross = place.adjusted(rim, rim, -rim, -rim);
    painter.setPen(QPen(Qt::white, line * 1.6, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(cross.topLeft(), cross.bottomRight());
    painter.drawLine(cross.topRight(), cross.bottomLeft());
  }
  painter.restore();
}

QString CamLightName(CamLight light) {
  switch (light) {
    case CamLight::Hidden:
      break;
    case CamLight::Yellow:
      return CamWords::tr("cam is being tested");
    case CamLight::Green:
      return CamWords::tr("cam answers");
    case CamLight::Red:
      return CamWords::tr("cam does not answer");
    case CamLight::Gray:
      return CamWords::tr("no cam tested");
  }
  return {};
}
