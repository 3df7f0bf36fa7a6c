// SPDX-License-Identifier: GPL-3.0-or-later
// Distance and direction between two stations. Every figure of that kind that the program shows comes from here: hover
// tips, the lookup, the lists and the maps.
#pragma once

#include <QLocale>
#include <QString>

inline constexpr int kUnitMiles = 1;  // a DistUnit; any other value is kilometres

// Distance and direction.
struct DistAz {
  double distance = 0;  // whole kilometres or miles
  double azimuth = 0;   // whole degrees 0 to 359 from the first point to the second; 0 where the distance is 0
};

// From the first point, the own position, to the second. Arguments in degrees, north and east positive. Points at
// latitude or longitude 0 are computed like any other; callers decide whether such a position counts as unknown. Unit:
// kUnitMiles or any other value for kilometres.
DistAz GetDistAz(double lat1, double lon1, double lat2, double lon2, int unit);

// "km" or "mi".
QString DistUnitText(int unit);
// "5,704 km 50° " with the thousands separator of the locale, by default the user's.
QString DistAzText(const DistAz& result, int unit, const QLocale& locale = QLocale());
// The same from the own position to a known target; "0 km0° " if both are the same place.
QString DistAzText(double myLat, double myLon, double lat, double lon, int unit, const QLocale& locale = QLocale());
// A coordinate of exactly 0 is an unknown position.
inline bool IsKnownPosition(double lat, double lon) {
  return lat != 0 && lon != 0;
}
