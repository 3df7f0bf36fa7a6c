// SPDX-License-Identifier: GPL-3.0-or-later
#include "station/locator.h"

#include <cmath>

namespace {

// Degrees and minutes. Keeps a position on a border in the field that begins there, in spite of binary rounding. It is
// added before the sign, so that a border south or west of 0 belongs to the field beyond it.
constexpr double kNudge = 0.0001;
constexpr double kSubSquareLat = 2.5;  // minutes
constexpr double kSubSquareLon = 5;    // minutes
constexpr double kHalfSquare = 12;     // sub-squares in a degree of longitude

double WithSignOf(double value, double sign) {
  return sign < 0 ? -value : value;
}

QChar Character(char16_t first, double offset) {
  return QChar(static_cast<char16_t>(first + static_cast<int>(offset)));
}

}  // namespace

QString MakeGridLocator(double lat, double lon) {
  if (!(lat >= -90 && lat <= 90 && lon >= -180 && lon <= 180)) return {};
  const auto whole = [](double value) { return std::floor(value); };
  const double alat = std::abs(lat);
  const double alon = std::abs(lon);
  const double latMin = (alat - whole(alat)) * 60;
  const double lonMin = (alon - whole(alon)) * 60;
  const double latStep = whole(latMin / kSubSquareLat) * kSubSquareLat + kNudge;
  const double lonWhole = whole(lonMin) + kNudge;
  const double x = WithSignOf(whole(alon) + kNudge, lon) + 180;
  const double y = WithSignOf(whole(alat) + kNudge, lat) + 90;
  const double m = lon < 0 ? 60 - lonWhole : lonWhole;
  const double n = lat < 0 ? 60 - latStep : latStep;

  QString locator;
  locator += Character(u'A', whole(x / 20));
  locator += Character(u'A', whole(y / 10));
  locator += Character(u'0', whole(x / 2) - 10 * whole(x / 20));
  locator += Character(u'0', whole(y) - 10 * whole(y / 10));
  locator += Character(u'a', kHalfSquare * whole(x - 2 * whole(x / 2)) + whole(m / kSubSquareLon));
  locator += Character(u'a', whole(n / kSubSquareLat));
  return locator;
}
