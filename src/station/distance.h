// SPDX-License-Identifier: GPL-3.0-or-later
// Distance and direction between two stations. Every figure of that kind that the program shows comes from here: hover
// tips, the lookup, the lists and the maps.
#pragma once

#include <QLocale>
#include <QString>

inline constexpr int kUnitMiles = 1;  // a DistUnit; any other value is kilometres

struct DistAz {
  double distance = 0;  // whole kilometres or miles
  double azimuth = 0;   // whole degrees 0 to 359 from the first point to the second; 0 where the distance is 0
};

// Degrees, north and east positive. Own position is the first pair. Points at latitude or longitude 0 are figured like
// any other; that such a position counts as unknown is the caller's business.
DistAz GetDistAz(double lat1, double lon1, double lat2, double lon2, int unit);

// "km" or "mi".
QString DistUnitText(int unit);
// "5,704 km 50° " with the thousands separator of the locale, which is the user's where none is handed in.
QString DistAzText(const DistAz& result, int unit, const QLocale& locale = QLocale());
// The same from own position to a target that is known; "0 km0° " where the two are one place.
QString DistAzText(double myLat, double myLon, double lat, double lon, int unit, const QLocale& locale = QLocale());
// A coordinate of exactly 0 is an unknown position.
inline bool IsKnownPosition(double lat, double lon) {
  return lat != 0 && lon != 0;
}
