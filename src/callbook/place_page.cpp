// SPDX-License-Identifier: GPL-3.0-or-later
#include "callbook/place_page.h"

#include <QUrl>
#include <cmath>

#include "callbook/db_rec.h"
#include "station/distance.h"

using namespace Qt::StringLiterals;

namespace {

// Degrees of latitude at which maps end; stored for a click there, not the place of a station.
constexpr double kMapLimit = 89.0;

// A line of a postal address, encoded as part of an URL's path.
QByteArray PlaceWord(const QString& line) {
  return QUrl::toPercentEncoding(line.trimmed().replace(u' ', u'+'), "+");
}

}  // namespace

QString SatelliteViewUrl(const Hosts& hosts, const TargetLocation& target, const QString& call) {
  const QString lat = CoordinateText(target.TargetLat);
  const QString lon = CoordinateText(target.TargetLon);
  const bool real = IsKnownPosition(target.TargetLat, target.TargetLon) && std::abs(target.TargetLat) != kMapLimit;
  const QString address =
      QString::fromLatin1(PlaceWord(target.Add1) + ',' + PlaceWord(target.Add2) + ',' + PlaceWord(target.Ctry));
  const QString place = real ? lat + u',' + lon : address;
  return hosts.Maps + "/maps/place/"_L1 + place + "/@"_L1 + lat + u',' + lon + ",19z/data=!3m1!1e3*"_L1 + call;
}
