// SPDX-License-Identifier: GPL-3.0-or-later
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include "core/config.h"
#include "station/date_text.h"
#include "test_suite.h"

using namespace Qt::StringLiterals;

namespace {

// A whole file with one line changed.
QStringList LinesWith(int number, const QString& line) {
  QStringList lines = {u"2"_s,
                       u"3"_s,
                       u"1"_s,
                       u"2"_s,
                       u"4"_s,
                       u"German"_s,
                       u"51.5"_s,
                       u"-0.125"_s,
                       u"1"_s,
                       u"1"_s,
                       u"1"_s,
                       u"K1AB"_s,
                       u"4"_s,
                       u"-7"_s,
                       u"8"_s,
                       u"1"_s,
                       u"k1ab"_s,
                       u"3"_s,
                       u"5*1/24/2024 15:30"_s,
                       u"6"_s};
  if (number > 0) {
    lines[number - 1] = line;
  }
  return lines;
}

QString Described(const Config& config) {
  return u"%1 %2 %3 %4 %5"_s.arg(config.GuiMode)
             .arg(config.AutoRefreshMinutes)
             .arg(config.AutoPollCams)
             .arg(config.CallbookIndex)
             .arg(config.CallbookName) +
         u" %1 %2 %3 %4"_s.arg(config.LanguageName, config.OnAirCode, NumberText(config.MyLat),
                               NumberText(config.MyLon)) +
         u" %1 %2"_s.arg(config.SpareFlag).arg(DateText(config.LastRxOkTime));
}

}  // namespace

class TestConfig : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void FixesAndClamps_data();
  void FixesAndClamps();
  void WritesWhatItRead();
  void ShortFilesGrowToTwentyLines();
  void KeepsTheOldFileWhereItMust();
  void ReadsLeadingNumbers_data();
  void ReadsLeadingNumbers();
};

void TestConfig::FixesAndClamps_data() {
  QTest::addColumn<int>("number");
  QTest::addColumn<QString>("line");
  QTest::addColumn<QString>("expected");
  const QString tail = u" 51.5 -0.125 5 1/24/2024 15:30"_s;
  const QString language = u" German 2"_s;
  const auto row = [](int number, const QString& line, const QString& expected) {
    QTest::addRow("line %d: %s", number, qPrintable(line)) << number << line << expected;
  };
  row(0, {}, u"2 2 1 3 QRZCQ"_s + language + tail);
  row(1, u"4"_s, u"3 2 1 3 QRZCQ"_s + language + tail);
  row(1, u"-99999999999999"_s, u"0 2 1 3 QRZCQ"_s + language + tail);
  row(1, u" 1.6 x"_s, u"2 2 1 3 QRZCQ"_s + language + tail);
  row(4, u"7"_s, u"2 5 1 3 QRZCQ"_s + language + tail);
  row(4, u"0"_s, u"2 1 1 3 QRZCQ"_s + language + tail);
  row(11, u"9"_s, u"2 2 1 3 QRZCQ"_s + language + tail);
  row(18, u"9"_s, u"2 2 1 9 "_s + language + tail);
  row(18, u""_s, u"2 2 1 1 eHam"_s + language + tail);
  row(6, u"3"_s, u"2 2 1 3 QRZCQ French 1"_s + tail);
  row(6, u"Japanese"_s, u"2 2 1 3 QRZCQ Japanese 0"_s + tail);
  row(6, u"Klingon"_s, u"2 2 1 3 QRZCQ Klingon "_s + tail);
  row(6, u"7"_s, u"2 2 1 3 QRZCQ 7 "_s + tail);
  row(19, u"x*8*24.1.2024 15:30:12"_s, u"2 2 1 3 QRZCQ"_s + language + u" 51.5 -0.125 8 1/24/2024 15:30"_s);
  row(19, u"8*soon"_s, u"2 2 1 3 QRZCQ"_s + language + u" 51.5 -0.125 8 "_s);
  row(19, u""_s, u"2 2 1 3 QRZCQ"_s + language + u" 51.5 -0.125 0 "_s);
}

void TestConfig::FixesAndClamps() {
  QFETCH(int, number);
  QFETCH(QString, line);
  QFETCH(QString, expected);
  Config config;
  config.Read(LinesWith(number, line));
  QCOMPARE(Described(config), expected);
}

void TestConfig::WritesWhatItRead() {
  Config config;
  config.Read(LinesWith(0, {}) + QStringList{u"a line too many"_s});
  QCOMPARE(config.Lines(-7, 8), LinesWith(0, {}));
}

void TestConfig::ShortFilesGrowToTwentyLines() {
  Config config;
  config.LastRxOkTime = ReadDate(u"2/3/2024 10:00"_s);
  config.Read({u"1"_s, u"6"_s});
  QCOMPARE(config.ThumbLayout, 6);
  QCOMPARE(config.AutoRefreshMinutes, 1);
  QCOMPARE(config.CallbookName, u"eHam"_s);
  QCOMPARE(config.Lines(0, 0).size(), 20);
  QCOMPARE(config.Lines(0, 0).at(18), u"0*2/3/2024 10:00"_s);
}

void TestConfig::KeepsTheOldFileWhereItMust() {
  const QTemporaryDir folder;
  Config config;
  QVERIFY(!config.ReadConfig(folder.path()));
  QVERIFY(config.SaveConfig(folder.path(), 0, 0));
  QFile file(folder.filePath(u"Omni-Perch.cfg"_s));
  QVERIFY(file.open(QIODevice::ReadOnly));
  QCOMPARE(file.readAll().count("\r\n"), 20);
  QVERIFY(config.ReadConfig(folder.path()));

  // There, and no file that could be read.
  QVERIFY(file.remove());
  QVERIFY(QDir(folder.path()).mkpath(u"Omni-Perch.cfg/kept"_s));
  QVERIFY(config.ReadConfig(folder.path()));
  QVERIFY(!config.SaveConfig(folder.path(), 0, 0));
  QVERIFY(QFileInfo::exists(folder.filePath(u"Omni-Perch.cfg/kept"_s)));
}

void TestConfig::ReadsLeadingNumbers_data() {
  QTest::addColumn<QString>("text");
  QTest::addColumn<double>("value");
  QTest::addColumn<QString>("written");
  const auto row = [](const QString& text, double value, const QString& written) {
    QTest::newRow(qPrintable(text)) << text << value << written;
  };
  row(u"  51.4779N"_s, 51.4779, u"51.4779"_s);
  row(u"-0.0015"_s, -0.0015, u"-0.0015"_s);
  row(u"+.5.5"_s, 0.5, u"0.5"_s);
  row(u"1e5"_s, 1, u"1"_s);
  row(u"52,5"_s, 52, u"52"_s);
  row(u"- 5"_s, 0, u"0"_s);
  row(u"."_s, 0, u"0"_s);
  row(u"north"_s, 0, u"0"_s);
  row(u"-0"_s, 0, u"0"_s);
  row(u"0.000001"_s, 0.000001, u"0.000001"_s);
  row(QString(400, u'9'), 0, u"0"_s);
}

void TestConfig::ReadsLeadingNumbers() {
  QFETCH(QString, text);
  QFETCH(double, value);
  QFETCH(QString, written);
  QCOMPARE(Val(text), value);
  QCOMPARE(NumberText(Val(text)), written);
}

OMNI_TEST(TestConfig)
#include "test_config.moc"
