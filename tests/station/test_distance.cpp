// SPDX-License-Identifier: GPL-3.0-or-later
#include <QLocale>
#include <cmath>

#include "station/distance.h"
#include "station/locator.h"
#include "test_suite.h"

class TestDistance : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void MeetsWorkedValues() {
    const auto check = [](const QList<double>& positions, int km, int mi, int azimuth) {
      for (const int unit : {0, 2, kUnitMiles}) {
        const DistAz result = GetDistAz(positions[0], positions[1], positions[2], positions[3], unit);
        QCOMPARE(result.distance, unit == kUnitMiles ? mi : km);
        QCOMPARE(result.azimuth, azimuth);
      }
    };
    check({40, -75, 51.5, 0}, 5704, 3545, 50);
    check({40, -75, -33.9, 151.2}, 15901, 9882, 264);
    check({35.7, 139.7, 51.5, 0}, 9568, 5946, 336);
    check({0, 0, 0, 90}, 10019, 6226, 90);
    check({40, -75, 40, -74}, 85, 52, 89);
    check({10, 20, 10, 20}, 0, 0, 0);
  }

  void NeverLeavesItsRanges() {
    QList<std::pair<double, double>> places;
    for (const double lat : {-90., -89.99, -45., -1e-9, 0., 1e-9, 12.345678, 45., 90., 1e300}) {
      for (const double lon : {-180., -179.99, -75., -1e-17, 0., 1e-9, 75., 105., 180., -1e300}) places += {lat, lon};
    }
    double farthest = 0;
    for (const auto& [lat1, lon1] : places) {
      for (const auto& [lat2, lon2] : places) {
        const DistAz result = GetDistAz(lat1, lon1, lat2, lon2, 0);
        QVERIFY(result.distance == std::floor(result.distance) && result.azimuth == std::floor(result.azimuth));
        QVERIFY(result.azimuth >= 0 && result.azimuth < 360);
        QVERIFY(result.distance != 0 || result.azimuth == 0);
        farthest = std::max(farthest, result.distance);
      }
    }
    QVERIFY2(farthest > 19900 && farthest < 20100, qPrintable(QString::number(farthest)));
    // A kilometre is no mile, and then there is no direction either.
    QCOMPARE(GetDistAz(50, 10, 50, 10.014, 0).distance, 1);
    QCOMPARE(GetDistAz(50, 10, 50, 10.014, kUnitMiles).azimuth, 0);
  }

  void WritesTexts() {
    const QLocale before;
    QLocale::setDefault(QLocale::c());
    QCOMPARE(DistAzText(40, -75, 51.5, 0.0, 0), u"5,704 km 50° "_s);
    QCOMPARE(DistAzText(40, -75, 40, -74, kUnitMiles), u"52 mi 89° "_s);
    QCOMPARE(DistAzText(40, -75, 40, -75, kUnitMiles), u"0 mi0° "_s);
    QCOMPARE(DistAzText(40, -75, 40, -75.000001, 0), u"0 km 0° "_s);
    QLocale::setDefault(QLocale(QLocale::German));
    QCOMPARE(DistAzText(40, -75, 51.5, 0.0, 0), u"5.704 km 50° "_s);
    QLocale::setDefault(before);
  }

  void MakesLocators() {
    QCOMPARE(MakeGridLocator(40.5, -75.2), u"FN20jm"_s);
    QCOMPARE(MakeGridLocator(51.4769, 0.0005), u"JO01al"_s);
    QCOMPARE(MakeGridLocator(-33.86, 151.21), u"QF56od"_s);
    QCOMPARE(MakeGridLocator(-34.6, -58.4), u"GF05tj"_s);
    // A border of all fields, the poles, which are not clamped, and positions that do not exist.
    QCOMPARE(MakeGridLocator(0, 0), u"JJ00aa"_s);
    QCOMPARE(MakeGridLocator(90, 180), u"SS00aa"_s);
    QCOMPARE(MakeGridLocator(-90, -180), u"@@99xx"_s);
    QCOMPARE(MakeGridLocator(90.01, 0), QString());
    QCOMPARE(MakeGridLocator(0, -180.01), QString());
    QCOMPARE(MakeGridLocator(std::nan(""), 0), QString());
  }
};

OMNI_TEST(TestDistance)
#include "test_distance.moc"
