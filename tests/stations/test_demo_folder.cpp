// SPDX-License-Identifier: GPL-3.0-or-later
// The demo's data folder: what is missing is put there, and a second seeding keeps the user's files.
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include "demo_folder.h"
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
  void SeedsWhatIsMissing() {
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
};

OMNI_TEST(TestDemoFolder)
#include "test_demo_folder.moc"
