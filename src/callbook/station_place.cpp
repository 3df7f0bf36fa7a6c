// SPDX-License-Identifier: GPL-3.0-or-later
#include "callbook/station_place.h"

#include "station/distance.h"

TargetLocation PlaceOf(const Program& program, CallDatabase& database, const QString& call) {
  TargetLocation place = database.LookupTargetLocation(call);
  if (IsKnownPosition(place.TargetLat, place.TargetLon)) return place;
  const int site = program.sites.FindCall(QString(call).replace(u'Ø', u'0'));
  if (site < 0) return place;
  place.TargetLat = program.sites.Sites.at(site).Lat;
  place.TargetLon = program.sites.Sites.at(site).Lon;
  return place;
}
