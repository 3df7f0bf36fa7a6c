// SPDX-License-Identifier: GPL-3.0-or-later
#include "onair/bands.h"
#include "onair/on_air_list.h"
#include "test_suite.h"

namespace {

CheckBoxes Ticked(int count, const QList<int>& boxes) {
  CheckBoxes result(count);
  for (const int box : boxes) result.Set(box, true);
  return result;
}

// Rows "CALL mode frequency", blanks parted by commas where they belong to a field.
QList<OnAirRow> Rows(const QStringList& lines) {
  QList<OnAirRow> rows;
  for (const QString& line : lines) {
    const QStringList fields = line.split(u',');
    rows.append({fields[0], fields[1], fields[2], {}});
  }
  return rows;
}

QString Shown(const QStringList& lines, const QList<int>& bands, const QList<int>& modes) {
  QStringList calls;
  for (const OnAirRow& row : FilteredRows(Rows(lines), Ticked(kPeanutBand + 1, bands),
                                          Ticked(static_cast<int>(kModes.size()) + 1, modes), {u"NOCALL1"_s}))
    calls << row.call + (row.frequency == "PEANUT"_L1 ? u"!"_s : QString());
  return calls.join(u' ');
}

}  // namespace

class TestOnAirList : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void PassesTheBoxes() {
    const QStringList feed{u"ZZ0A,EP ,0"_s,       u"ZZ1A,EP,14233"_s, u"ZZ2A,EPH,14300"_s, u"ZZ3A,EP,"_s,
                           u"ZZ4A,EP,PEANUT"_s,   u"ZZ5A,FT8,123"_s,  u"ZZ6A,EP,VRadio"_s, u"ZZ7A,SSTV,3733"_s,
                           u"NOCALL1,EP,14233"_s, u"ZZ8A,EP,18100"_s, u"ZZ9A,PSK,inf"_s};
    const QString all = u"ZZ0A ZZ1A ZZ2A ZZ3A ZZ4A! ZZ5A! ZZ6A ZZ7A ZZ8A ZZ9A"_s;
    QCOMPARE(Shown(feed, {0}, {0}), all);
    // All bands, one mode: until a first frequency lies in a band, both walks over the modes find the row.
    QCOMPARE(Shown(feed, {0}, {1}), u"ZZ0A ZZ0A ZZ1A ZZ3A ZZ4A! ZZ6A ZZ8A"_s);
    QCOMPARE(Shown(feed, {0}, {1, 2, 7}), u"ZZ0A ZZ0A ZZ1A ZZ2A ZZ3A ZZ4A! ZZ6A ZZ8A ZZ9A"_s);
    // What has no band of its own goes with the row before it; the network counts as a band there too.
    QCOMPARE(Shown(feed, {5}, {0}), u"ZZ1A ZZ2A ZZ3A"_s);
    QCOMPARE(Shown(feed, {11}, {0}), u"ZZ4A! ZZ5A! ZZ6A"_s);
    QCOMPARE(Shown(feed, {2, 11}, {1, 4}), u"ZZ4A! ZZ5A! ZZ6A ZZ8A"_s);
    QCOMPARE(Shown(feed, {1}, {0}), u""_s);
    QCOMPARE(Shown({}, {0}, {0}), u""_s);
  }

  void BoxesDriveEachOtherOut() {
    CheckBoxes boxes(4);
    boxes.Settle();
    QCOMPARE(boxes, Ticked(4, {0}));
    boxes.Click(2);
    boxes.Click(3);
    QCOMPARE(boxes, Ticked(4, {2, 3}));
    QCOMPARE(boxes.Single(), 0);
    QCOMPARE(boxes.Summary({u"All"_s, u"160 m"_s, u"80 m"_s, u"70 cm"_s}), u"80 70"_s);
    boxes.Click(3);
    QCOMPARE(boxes.Single(), 2);
    boxes.Click(2);
    QCOMPARE(boxes, Ticked(4, {0}));
    QCOMPARE(boxes.Summary({u"All"_s}), u""_s);
    const auto tenLetters = [](const QString& text) { return text.size() <= 10; };
    QCOMPARE(CutSummary(u"160 80 40"_s, tenLetters), u"160 80 40"_s);
    // The words alone would fit here, the dots behind them would not.
    QCOMPARE(CutSummary(u"160 80 401 30"_s, tenLetters), u"160 80..."_s);
    QCOMPARE(CutSummary(u"elevenchars"_s, tenLetters), u"elevenc..."_s);
    boxes.Click(0);
    QCOMPARE(boxes, Ticked(4, {0}));
    boxes.Click(1);
    boxes.Click(0);
    QCOMPARE(boxes, Ticked(4, {0}));
  }

  void ShowsFrequencies() {
    const auto check = [](const QString& told, const QString& shown) { QCOMPARE(FrequencyText(told), shown); };
    check(u"14233"_s, u"14.233"_s);
    check(u"136"_s, u".136"_s);
    check(u"14233.56"_s, u"14.234"_s);
    check(u"0"_s, u""_s);
    check(u""_s, u""_s);
    check(u"VRadio"_s, u"VRadio"_s);
    check(u"1e999"_s, u"1e999"_s);
    check(QString(5000, u'9'), QString(100, u'9'));
  }

  void TellsWhereAStationIs() {
    const QTemporaryDir folder;
    CallDatabase database(folder.path());
    const auto save = [&](const QString& call, const QString& lat, const QString& lon) {
      DbRec record;
      record.Call = call;
      record.Lat = lat;
      record.Lon = lon;
      database.SaveStation(call, record);
      QVERIFY(database.Finish());
    };
    save(u"ZZ1A"_s, u"51,5"_s, u"-0.1"_s);
    save(u"ZZ2A"_s, u"0"_s, u"0"_s);
    save(u"ZZ3A"_s, u"95"_s, u"10"_s);
    save(u"ZZ4A"_s, u"nan"_s, u"10"_s);
    save(u"ZZ6A"_s, u"51.5"_s, u"0"_s);
    QVERIFY(QDir(folder.path()).mkpath(u"images/qrzImages"_s));
    QFile picture(folder.filePath(u"images/qrzImages/zz2a.JPG"_s));
    QVERIFY(picture.open(QIODevice::WriteOnly) && picture.write("x") == 1);
    picture.close();

    const QList<OnAirRow> rows =
        Rows({u"ZZ1A,EP,1"_s, u"ZZ2A,EP,1"_s, u"ZZ3A,EP,1"_s, u"ZZ4A,EP,1"_s, u"ZZ5A,EP,1"_s, u"ZZ6A,EP,1"_s});
    OnAirSight sight{folder.path(), 40, -75, u"n/a"_s, u'Ø'};
    OnAirPlaces places(database.Reader());
    QStringList azimuths;
    for (const OnAirEntry& entry : EntriesOf(rows, sight, places)) azimuths << entry.azimuth;
    QCOMPARE(azimuths, QStringList({u"50°"_s, u"n/a"_s, u"n/a"_s, u"n/a"_s, u""_s, u"50°"_s}));
    QCOMPARE(EntriesOf(rows, sight, places).at(1).picture, picture.fileName());
    sight.myLat = sight.myLon = 0;
    QCOMPARE(EntriesOf(rows, sight, places).first().azimuth, u""_s);

    // Of a file that has rested is remembered what was found, until it is written again.
    QFile file(folder.filePath(u"Omni-Perch-DB.db"_s));
    const QDateTime rested = QDateTime::currentDateTime().addSecs(-100);
    const auto setRested = [&]() {
      QVERIFY(file.open(QIODevice::ReadWrite) && file.setFileTime(rested, QFileDevice::FileModificationTime));
      file.close();
    };
    setRested();
    QCOMPARE(EntriesOf(rows, sight, places).first().lat, 51.5);
    save(u"ZZ1A"_s, u"60"_s, u"5"_s);
    QCOMPARE(EntriesOf(rows, sight, places).first().lat, 60.0);
    for (const QString& lat : {u"61"_s, u"62"_s}) {
      save(u"ZZ1A"_s, lat, u"5"_s);
      setRested();
      QCOMPARE(EntriesOf(rows, sight, places).first().lat, 61.0);
    }
  }

  void SortsByNumberWithTheEmptyLast() {
    QList<OnAirEntry> told;
    for (const double kiloHertz : {14233.0, 0.0, 7173.0, 144500.0}) {
      OnAirEntry entry;
      entry.call = QString::number(kiloHertz);
      if (kiloHertz > 0) entry.kiloHertz = kiloHertz;
      told.append(entry);
    }
    const auto sorted = [&told](const OnAirOrder& order) {
      QList<OnAirEntry> entries = told;
      SortEntries(entries, order);
      QStringList calls;
      for (const OnAirEntry& entry : entries) calls << entry.call;
      return calls.join(u' ');
    };
    OnAirOrder order = OnAirOrder().Clicked(OnAirColumn::Frequency);
    QCOMPARE(sorted(order), u"7173 14233 144500 0"_s);
    order = order.Clicked(OnAirColumn::Frequency);
    QCOMPARE(sorted(order), u"144500 14233 7173 0"_s);
    QCOMPARE(sorted(order.Clicked(OnAirColumn::Frequency)), u"14233 0 7173 144500"_s);
    QCOMPARE(sorted(order.Clicked(OnAirColumn::Call)), u"0 14233 144500 7173"_s);
  }
};

OMNI_TEST(TestOnAirList)
#include "test_on_air_list.moc"
