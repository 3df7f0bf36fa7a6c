// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/config.h"
#include "station/date_text.h"
#include "test_folder.h"

namespace {

// A whole file with one line changed.
QStringList LinesWith(int number, const QString& line) {
  QStringList lines = u"2|3|1|2|4|German|51.5|-0.125|1|1|1|K1AB|4|-7|8|1|k1ab|3|5*1/24/2024 15:30|6"_s.split(u'|');
  if (number > 0) lines[number - 1] = line;
  return lines;
}

QString Described(const Config& config) {
  QStringList fields;
  for (const int number : {config.GuiMode, config.AutoRefreshMinutes, config.AutoPollCams, config.CallbookIndex}) {
    fields += QString::number(number);
  }
  fields << config.CallbookName << config.LanguageName << config.OnAirCode << NumberText(config.MyLat);
  fields << NumberText(config.MyLon) << QString::number(config.SpareFlag) << DateText(config.LastRxOkTime);
  return fields.join(u' ');
}

}  // namespace

class TestConfig : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void FixesAndClamps() {
    const QString head = u"2 2 1 3 QRZCQ"_s;
    const QString language = u" German 2"_s;
    const QString tail = u" 51.5 -0.125 5 1/24/2024 15:30"_s;
    const auto check = [](int number, const QString& line, const QString& expected) {
      Config config;
      config.Read(LinesWith(number, line));
      QCOMPARE(Described(config), expected);
    };
    check(0, {}, head + language + tail);
    check(1, u"4"_s, u"3 2 1 3 QRZCQ"_s + language + tail);
    check(1, u"-99999999999999"_s, u"0 2 1 3 QRZCQ"_s + language + tail);
    check(1, u" 1.6 x"_s, head + language + tail);
    check(4, u"7"_s, u"2 5 1 3 QRZCQ"_s + language + tail);
    check(4, u"0"_s, u"2 1 1 3 QRZCQ"_s + language + tail);
    check(11, u"9"_s, head + language + tail);
    check(18, u"9"_s, u"2 2 1 9 "_s + language + tail);
    check(18, u""_s, u"2 2 1 1 eHam"_s + language + tail);
    check(6, u"3"_s, head + u" French 1"_s + tail);
    check(6, u"Japanese"_s, head + u" Japanese 0"_s + tail);
    check(6, u"Klingon"_s, head + u" Klingon "_s + tail);
    check(6, u"7"_s, head + u" 7 "_s + tail);
    check(19, u"x*8*24.1.2024 15:30:12"_s, head + language + u" 51.5 -0.125 8 1/24/2024 15:30"_s);
    check(19, u"8*soon"_s, head + language + u" 51.5 -0.125 8 "_s);
    check(19, u""_s, head + language + u" 51.5 -0.125 0 "_s);
  }

  void WritesWhatItRead() {
    Config config;
    config.Read(LinesWith(0, {}) + QStringList{u"a line too many"_s});
    QCOMPARE(config.Lines(-7, 8), LinesWith(0, {}));
  }

  void ShortFilesGrowToTwentyLines() {
    Config config;
    config.LastRxOkTime = ReadDate(u"2/3/2024 10:00"_s);
    config.Read({u"1"_s, u"6"_s});
    QVERIFY(config.ThumbLayout == 6 && config.AutoRefreshMinutes == 1 && config.CallbookName == u"eHam");
    QCOMPARE(config.Lines(0, 0).size(), 20);
    QCOMPARE(config.Lines(0, 0).at(18), u"0*2/3/2024 10:00"_s);
  }

  void KeepsTheOldFileWhereItMust() {
    const QString name = u"Omni-Perch.cfg"_s;
    const TestFolder folder;
    Config config;
    QVERIFY(!config.ReadConfig(folder.path()) && config.SaveConfig(folder.path(), 0, 0));
    QCOMPARE(folder.Bytes(name).count("\r\n"), 20);
    QVERIFY(config.ReadConfig(folder.path()));

    // Something with the file's name that cannot be read as a file is left alone.
    QVERIFY(QFile::remove(folder.filePath(name)));
    folder.PutFolder(name + u"/kept"_s);
    QVERIFY(config.ReadConfig(folder.path()) && !config.SaveConfig(folder.path(), 0, 0));
    QVERIFY(QFileInfo::exists(folder.filePath(name + u"/kept"_s)));
  }

  void ReadsLeadingNumbers() {
    const auto check = [](const QString& text, double value, const QString& written) {
      QVERIFY2(Val(text) == value, qPrintable(text));
      QCOMPARE(NumberText(Val(text)), written);
    };
    check(u"  51.4779N"_s, 51.4779, u"51.4779"_s);
    check(u"-0.0015"_s, -0.0015, u"-0.0015"_s);
    check(u"+.5.5"_s, 0.5, u"0.5"_s);
    check(u"1e5"_s, 1, u"1"_s);
    check(u"52,5"_s, 52, u"52"_s);
    check(u"0.000001"_s, 0.000001, u"0.000001"_s);
    for (const QString& none : {u"- 5"_s, u"."_s, u"north"_s, u"-0"_s, QString(400, u'9')}) check(none, 0, u"0"_s);
  }
};

OMNI_TEST(TestConfig)
#include "test_config.moc"
