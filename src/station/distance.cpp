// SPDX-License-Identifier: GPL-3.0-or-later
#include "station/distance.h"

#include <cmath>
#include <limits>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

// These constants are part of the format: users compare their distances with each other's, so a better pi or a better
// earth would only make them disagree.
constexpr double kPi = 3.14159265;
constexpr double kRad = kPi / 180;
constexpr double kEquatorRadius = 6378;  // km
constexpr double kPoleRadius = 6356;     // km
constexpr double kFlattening = (kPoleRadius * kPoleRadius) / (kEquatorRadius * kEquatorRadius);
constexpr double kKilometresPerMile = 1.609;

double Angle(double y, double x) {
  const double absY = std::abs(y);
  const double absX = std::abs(x);
  double result = kPi / 2;
  if (absY > absX) {
    result = kPi / 2 - std::atan(absX / absY);
  } else if (absX > 0) {
    result = std::atan(absY / absX);
  }
  if (x < 0) result = kPi - result;
  return y < 0 ? -result : result;
}

double Scale(double angle, double factor) {
  return Angle(std::sin(angle) * factor, std::cos(angle));
}

// The angle of a cosine. 0 if rounding has pushed the cosine of two almost equal points above 1.
double CentralAngle(double cosine) {
  const double square = 1 - cosine * cosine;
  return square < 0 ? 0 : Angle(std::sqrt(square), cosine);
}

// Kilometres along the ellipse between the arcs s and c + s, counted from where the great circle crosses the equator.
double EllipseLength(double g1, double g2, double c) {
  const double s = Angle(std::sin(c) * std::sin(g1), std::sin(g2) - std::cos(c) * std::sin(g1));
  const double t1 = std::sin(s);
  const double t2 = std::sin(c + s);
  double sineOfInclination = 0;
  if (std::abs(t1) > std::abs(t2)) {
    sineOfInclination = std::sin(g1) / t1;
  } else if (t2 != 0) {
    sineOfInclination = std::sin(g2) / t2;
  }
  const double i = Angle(sineOfInclination, std::sqrt(std::abs(1 - sineOfInclination * sineOfInclination)) *
                                                (kPoleRadius / kEquatorRadius));
  const double e = (1 - kFlattening) * std::sin(i) * std::sin(i);
  const double f = 1 / std::sqrt(1 - e);
  const double u1 = Scale(s, f);
  const double u2 = Scale(c + s, f);
  // The exact formula has a small divisor under the second term; all versions of the program have divided by the
  // radius.
  return kEquatorRadius * ((1 - e / 4) * (u2 - u1) - e * (std::sin(2 * u2) - std::sin(2 * u1)) / kPoleRadius);
}

// Rounds halves to the even neighbour; 0 if the result does not fit into 16 bits.
double Rounded(double kilometres) {
  const double rounded = std::nearbyint(kilometres);
  return std::abs(rounded) <= std::numeric_limits<qint16>::max() ? rounded : 0;
}

QString Grouped(double wholeNumber, QLocale locale) {
  locale.setNumberOptions(locale.numberOptions() & ~QLocale::OmitGroupSeparator);
  return locale.toString(wholeNumber, 'f', 0);
}

}  // namespace

DistAz GetDistAz(double lat1, double lon1, double lat2, double lon2, int unit) {
  const double eastward = lon2 * kRad - lon1 * kRad;
  double g1 = Scale(lat1 * kRad, kFlattening);
  double g2 = Scale(lat2 * kRad, kFlattening);
  const double c = CentralAngle(std::cos(eastward) * std::cos(g1) * std::cos(g2) + std::sin(g1) * std::sin(g2));

  double azimuth = Angle(std::sin(eastward) * std::cos(g2) * std::cos(g1), std::sin(g2) - std::sin(g1) * std::cos(c));
  if (azimuth < 0) azimuth += 2 * kPi;
  if (g1 >= g2) std::swap(g1, g2);

  DistAz result;
  result.distance = Rounded(EllipseLength(g1, g2, c));
  if (unit == kUnitMiles) result.distance = std::floor(result.distance / kKilometresPerMile);
  // An azimuth just west of north may round up to 360.
  if (result.distance != 0) result.azimuth = std::fmod(std::floor(azimuth / kRad), 360);
  return result;
}

QString DistUnitText(int unit) {
  return unit == kUnitMiles ? u"mi"_s : u"km"_s;
}

QString DistAzText(const DistAz& result, int unit, const QLocale& locale) {
  return Grouped(result.distance, locale) + u' ' + DistUnitText(unit) + u' ' + QString::number(result.azimuth, 'f', 0) +
         u"° "_s;
}

QString DistAzText(double myLat, double myLon, double lat, double lon, int unit, const QLocale& locale) {
  // There is no blank before the direction here; users know it so.
  if (myLat == lat && myLon == lon) return u"0 "_s + DistUnitText(unit) + u"0° "_s;
  return DistAzText(GetDistAz(myLat, myLon, lat, lon, unit), unit, locale);
}
