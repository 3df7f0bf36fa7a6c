// SPDX-License-Identifier: GPL-3.0-or-later
// The demo's data folder: its lists fit every layout, name hosts that answer, and a second seeding keeps the user's
// files.
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include "callbook/call_database.h"
#include "demo_folder.h"
#include "maps/map_projection.h"
#include "operators.h"
#include "test_suite.h"

using namespace Qt::StringLiterals;

namespace {

QList<QByteArray> LinesOf(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return {};
  QByteArray text = file.readAll();
  text.replace("\r\n", "\n");
  text.chop(1);
  return text.split('\n');
}

}  // namespace

class TestDemoFolder : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void seedsWhatIsMissing() {
    const QTemporaryDir folder;
    const auto at = [&folder](const QString& name) { return folder.filePath(name); };
    StationBand band;
    const QDateTime now = QDateTime::currentDateTimeUtc();
    const Demo demo = BuildDemo(band, now);
    QVERIFY(band.HasAddresses());
    QVERIFY(SeedFolder(folder.path(), band, demo, now));
    QCOMPARE(LinesOf(at(u"Omni-Perch.cfg"_s)).size(), 20);
    QVERIFY(QDir(at(u"Languages"_s)).exists() && QDir(at(u"Maps"_s)).exists());

    // A user's list stays as it is, hosts.ini follows the band.
    QFile list(at(u"Omni-Perch.lst"_s));
    QVERIFY(list.open(QIODevice::Append) && list.write("ZZ9NEW*0120*****1*2**\r\nhttp://host/image1\r\n") > 0);
    list.close();
    const QList<QByteArray> lines = LinesOf(list.fileName());
    QVERIFY(QFile::remove(at(u"WXsites.lst"_s)));
    StationBand other;
    QVERIFY(SeedFolder(folder.path(), other, demo, now));
    QCOMPARE(LinesOf(list.fileName()), lines);
    QVERIFY(!QFile::exists(at(u"WXsites.lst"_s)));
    QVERIFY(LinesOf(at(u"hosts.ini"_s)).contains("Connectivity=" + other.HostUrl(u"Connectivity"_s).toUtf8()));
  }

  void everyLayoutHasRoomForItsPlaces() {
    const QTemporaryDir folder;
    StationBand band;
    const QDateTime now = QDateTime::currentDateTimeUtc();
    QVERIFY(SeedFolder(folder.path(), band, BuildDemo(band, now), now));
    const QList<QByteArray> lines = LinesOf(folder.filePath(u"Omni-Perch.lst"_s));
    QVERIFY(lines.size() / 2 >= 64);
    std::array<QSet<QByteArray>, kDemoLayouts> taken;
    QSet<QByteArray> calls;
    int camOnly = 0;
    for (qsizetype i = 0; i + 1 < lines.size(); i += 2) {
      const QList<QByteArray> fields = lines.at(i).split('*');
      QCOMPARE(fields.size(), 11);
      calls << fields.first();
      camOnly += lines.at(i + 1).toLower().contains("cam only") ? 1 : 0;
      for (std::size_t layout = 0; layout < kDemoLayouts; ++layout) {
        const QByteArray& place = fields.at(static_cast<qsizetype>(layout) + 1);
        QCOMPARE(place.size(), 4);
        const int page = place.left(2).toInt();
        const int slot = place.mid(2).toInt();
        QVERIFY2(page >= 1 && page <= 20 && slot >= 1 && slot <= kDemoLayoutCounts.at(layout), lines.at(i).constData());
        QVERIFY2(!taken.at(layout).contains(place), lines.at(i).constData());
        taken.at(layout) << place;
      }
    }
    QCOMPARE(calls.size(), lines.size() / 2);
    QCOMPARE(camOnly, 1);
    // Full pages to look at: the first one under the two largest layouts.
    for (const int layout : {4, 5}) {
      for (int slot = 1; slot <= kDemoLayoutCounts.at(static_cast<std::size_t>(layout)); ++slot) {
        QVERIFY(taken.at(static_cast<std::size_t>(layout))
                    .contains("01" + QByteArray::number(slot).rightJustified(2, '0')));
      }
    }
  }

  // Something to be seen on every map, and senders that only a callbook service knows or can place.
  void databaseHasAPlaceOnEveryMap() {
    const QTemporaryDir folder;
    StationBand band;
    const QDateTime now = QDateTime::currentDateTimeUtc();
    const Demo demo = BuildDemo(band, now);
    QVERIFY(SeedFolder(folder.path(), band, demo, now));
    CallDatabase database(folder.path());
    QSet<QString> maps;
    int missing = 0;
    int unplaced = 0;
    for (const Operator& person : Operators()) {
      const TargetLocation target = database.LookupTargetLocation(person.call.toString());
      missing += target.InDatabase ? 0 : 1;
      unplaced += target.InDatabase && target.TargetLat == 0 && person.lat != 0 ? 1 : 0;
      if (target.TargetLat != 0) maps << FindMapName(target.TargetLat, target.TargetLon);
    }
    QCOMPARE(maps.size(), 9);
    QVERIFY(missing >= 5 && unplaced >= 3);
    // The Asian ones are stations: no sender lives there.
    for (const QString& call : {u"VU2QLR"_s, u"YB0QRC"_s}) QVERIFY(band.Find(call) != nullptr);
  }
};

OMNI_TEST(TestDemoFolder)
#include "test_demo_folder.moc"
