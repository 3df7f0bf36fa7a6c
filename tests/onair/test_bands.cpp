// SPDX-License-Identifier: GPL-3.0-or-later
#include <limits>

#include "onair/bands.h"
#include "test_suite.h"

class TestBands : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void IncludesBothEnds() {
    const std::optional<int> none;
    const auto check = [](double kiloHertz, std::optional<int> band) { QCOMPARE(BandOf(kiloHertz), band); };
    check(1799.9, none);
    check(1800, 1);
    check(10130, 4);
    check(10150, 4);
    check(14350, 5);
    check(14350.1, none);
    check(18100, none);
    check(24900, none);
    check(450000, 10);
    check(1300000, 11);
    check(std::numeric_limits<double>::quiet_NaN(), none);
    check(std::numeric_limits<double>::infinity(), none);
    QCOMPARE(BandOf(1300000, kFeedBands), none);
    QCOMPARE(BandOf(450000, kFeedBands), 10);
  }
};

OMNI_TEST(TestBands)
#include "test_bands.moc"
