// SPDX-License-Identifier: GPL-3.0-or-later
#include <QRandomGenerator>

#include "station/date_text.h"
#include "test_suite.h"

class TestDateText : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void ReadsTheShapesOfOlderFiles() {
    const auto check = [](const QStringList& texts, const QString& expected) {
      for (const QString& text : texts) QVERIFY2(DateText(ReadDate(text)) == expected, qPrintable(text));
    };
    check({u"1/24/2024 15:30"_s, u"1/24/2024 3:30:05 PM"_s, u"24/1/2024 15:30:00"_s, u"24.1.2024 15.30.00"_s,
           u"2024-01-24 15:30"_s, u"2024. 01. 24. 15:30:00"_s, u"1/24/2024 3:30\u202fPM"_s},
          u"1/24/2024 15:30"_s);
    check({u"3.4.2024 15:30:00"_s, u"3-4-2024 15:30"_s}, u"4/3/2024 15:30"_s);
    check({u"2/3/2024 9:05"_s}, u"2/3/2024 09:05"_s);
    check({u"1/24/24 12:05 a.m."_s}, u"1/24/2024 00:05"_s);
    check({u"1/24/2024"_s}, u"1/24/2024 00:00"_s);
    check({u""_s, u" 15:30"_s, u"13/13/2024 10:00"_s, u"2/30/2024 10:00"_s, u"1/24/2024 25:00"_s,
           u"1/24/2024 15:30xx"_s, u"0/0/0 00:00"_s, u"1/24.2024 15:30"_s},
          QString());
  }

  void ReadsBackWhatItWrites() {
    QRandomGenerator random(17);
    for (int i = 0; i < 2000; ++i) {
      // Every minute, also those that do not exist in local time because of a clock change.
      const QDateTime when =
          QDateTime(QDate(2000, 1, 1), QTime(0, 0), Qt::UTC).addSecs(60LL * random.bounded(20'000'000));
      QCOMPARE(ReadDate(DateText(when)), when);
    }
  }
};

OMNI_TEST(TestDateText)
#include "test_date_text.moc"
