// SPDX-License-Identifier: GPL-3.0-or-later
#include "callbook/place_page.h"

#include <QUrl>
#include <cmath>

#include "callbook/db_rec.h"
#include "station/distance.h"

using namespace Qt::StringLiterals;

namespace {

constexpr double kMapLimit = 89.0;  // degrees of latitude; no station, but the end of a map

// A line of the address as a part of a path.
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
