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

// The page of a place, seen from above at that point.
QString ViewUrl(const Hosts& hosts, const QString& place, const TargetLocation& target, const QString& call) {
  return hosts.Maps + "/maps/place/"_L1 + place + "/@"_L1 + CoordinateText(target.TargetLat) + u',' +
         CoordinateText(target.TargetLon) + ",19z/data=!3m1!1e3*"_L1 + call;
}

QString ByCoordinates(const TargetLocation& target) {
  return CoordinateText(target.TargetLat) + u',' + CoordinateText(target.TargetLon);
}

QString ByAddress(const TargetLocation& target) {
  return QString::fromLatin1(PlaceWord(target.Add1) + ',' + PlaceWord(target.Add2) + ',' + PlaceWord(target.Ctry));
}

}  // namespace

QString SatelliteViewUrl(const Hosts& hosts, const TargetLocation& target, const QString& call) {
  const bool real = IsKnownPosition(target.TargetLat, target.TargetLon) && std::abs(target.TargetLat) != kMapLimit;
  return ViewUrl(hosts, real ? ByCoordinates(target) : ByAddress(target), target, call);
}

QString PlaceViewUrl(const Hosts& hosts, const TargetLocation& target, const QString& call, bool byAddress) {
  const bool unknown = target.TargetLat == 0 && target.TargetLon == 0;
  if (unknown || (target.TargetLat == kMapLimit && target.TargetLon == kMapLimit)) return {};
  return ViewUrl(hosts, byAddress ? ByAddress(target) : ByCoordinates(target), target, call);
}
