// SPDX-License-Identifier: GPL-3.0-or-later
// The pictures of the maps: files of all kinds, whole and broken, and what is kept of them.
#include <QTest>

#include "map_folder.h"
#include "maps/map_store.h"
#include "test_suite.h"

using namespace Qt::StringLiterals;

class TestMapStore : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void Pictures_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QSize>("size");  // of the map; empty: it cannot be read
    QTest::newRow("picture") << u"Europe Map.jpg"_s << QSize(300, 200);
    QTest::newRow("any letter case") << u"EUROPE map.JPG"_s << QSize(300, 200);
    QTest::newRow("of another type than its name") << u"Asia Map.jpg"_s << QSize(40, 30);
    QTest::newRow("one pixel, a gif") << u"Tiny Map.gif"_s << QSize(1, 1);
    QTest::newRow("with bytes behind its end") << u"Long Map.jpg"_s << QSize(300, 200);
    QTest::newRow("cut off") << u"Cut Map.jpg"_s << QSize();
    QTest::newRow("cut off in its head") << u"Head Map.jpg"_s << QSize();
    QTest::newRow("gif cut off") << u"Cut Map.gif"_s << QSize();
    QTest::newRow("missing") << u"Moon Map.jpg"_s << QSize();
    QTest::newRow("broken") << u"Broken Map.jpg"_s << QSize();
    QTest::newRow("empty") << u"Empty Map.jpg"_s << QSize();
    QTest::newRow("folder") << u"Folder Map.jpg"_s << QSize();
    QTest::newRow("more pixels than are held") << u"Huge Map.jpg"_s << QSize(6000, 5600);
    QTest::newRow("wider than is painted") << u"Wide Map.jpg"_s << QSize(33000, 2);
    QTest::newRow("no name") << QString() << QSize();
  }

  void Pictures() {
    QFETCH(QString, name);
    MapFolder files;
    files.Save(u"Europe Map.jpg"_s, QSize(300, 200));
    files.Save(u"Asia Map.jpg"_s, QSize(40, 30), Qt::red, "PNG");
    if (name == "Huge Map.jpg"_L1) files.Save(name, QSize(6000, 5600));
    files.Save(u"Wide Map.jpg"_s, QSize(33000, 2));
    const QByteArray gif =
        QByteArray::fromHex("47494638396101000100800000ff000000000021f90401000000002c00000000010001000002024401003b");
    files.Write(u"Tiny Map.gif"_s, gif);
    files.Write(u"Cut Map.gif"_s, gif.chopped(3));
    files.Write(u"Broken Map.jpg"_s, QByteArray(5000, 'x'));
    files.Write(u"Empty Map.jpg"_s, QByteArray());
    QFile whole(files.folder.filePath(u"maps/Europe Map.jpg"_s));
    QVERIFY(whole.open(QIODevice::ReadOnly));
    const QByteArray bytes = whole.readAll();
    files.Write(u"Cut Map.jpg"_s, bytes.chopped(100));
    files.Write(u"Head Map.jpg"_s, bytes.left(200));
    files.Write(u"Long Map.jpg"_s, bytes + QByteArray(100, '\0'));
    QDir(files.folder.path()).mkpath(u"maps/Folder Map.jpg"_s);

    MapStore store(files.folder.path());
    std::optional<MapPicture> read;
    store.Read(name, this, [&read](const MapPicture& picture) { read = picture; });
    QTRY_VERIFY_WITH_TIMEOUT(read.has_value(), 20000);
    QTEST(read->size, "size");
    QCOMPARE(read->failed, read->size.isEmpty());
    if (read->failed) return;
    QCOMPARE(read->pixels.format(), QImage::Format_RGB32);
    QVERIFY(read->pixels.width() <= 32000 && read->pixels.sizeInBytes() <= 128'000'000);
  }

  void KeepsTheLastTwo() {
    MapFolder files;
    for (const QString& name : {u"a"_s, u"b"_s, u"c"_s}) files.Save(name, QSize(30, 20));
    MapStore store(files.folder.path());
    const auto atOnce = [this, &store](const QString& name) {
      bool now = true;
      bool answered = false;
      QColor colour;
      bool inTime = false;
      bool failed = false;
      store.Read(name, this, [&](const MapPicture& picture) {
        inTime = now;
        answered = true;
        colour = picture.pixels.pixelColor(3, 3);
        failed = picture.failed;
      });
      now = false;
      return QTest::qWaitFor([&answered]() { return answered; }) ? (failed   ? u"failed "_s
                                                                    : inTime ? u"kept "_s
                                                                             : u"read "_s) +
                                                                       colour.name()
                                                                 : QString();
    };
    QStringList answers;
    for (const QString& name : {u"a"_s, u"b"_s, u"a"_s, u"c"_s, u"a"_s, u"b"_s}) answers.append(atOnce(name).left(4));
    QCOMPARE(answers.join(u' '), u"read read kept read kept read"_s);
    // The user has put another picture in its place.
    files.Save(u"a"_s, QSize(31, 20), Qt::black);
    QCOMPARE(atOnce(u"a"_s), u"read #000000"_s);
    QCOMPARE(atOnce(u"a"_s), u"kept #000000"_s);
    // Twice in a row: the one before does not take the place of another map.
    files.Save(u"a"_s, QSize(32, 20), Qt::white);
    QCOMPARE(atOnce(u"a"_s), u"read #ffffff"_s);
    QVERIFY(atOnce(u"b"_s).startsWith(u"kept"));

    // A file that breaks off does not take the place of the picture that was read from it before.
    QFile::resize(files.folder.filePath(u"maps/a"_s), 300);
    QCOMPARE(atOnce(u"a"_s), u"failed #ffffff"_s);

    bool called = false;
    {
      QObject gone;
      store.Read(u"c"_s, &gone, [&called](const MapPicture&) { called = true; });
    }
    QVERIFY(QTest::qWaitFor([&]() { return atOnce(u"c"_s).startsWith(u"kept"); }));
    QVERIFY(!called);
  }

  void KeepsOneHugePicture() {
    MapFolder files;
    QImage huge(5000, 3000, QImage::Format_Mono);
    huge.fill(0);
    for (const QString& name : {u"maps/a"_s, u"maps/b"_s}) QVERIFY(huge.save(files.folder.filePath(name), "PNG"));
    MapStore store(files.folder.path());
    int answers = 0;
    for (const QString& name : {u"a"_s, u"b"_s}) {
      store.Read(name, this,
                 [&answers](const MapPicture& picture) { answers += picture.size.width() == 5000 ? 1 : 0; });
    }
    QTRY_COMPARE(answers, 2);
    store.Read(u"b"_s, this, [&answers](const MapPicture&) { ++answers; });
    QCOMPARE(answers, 3);
    store.Read(u"a"_s, this, [&answers](const MapPicture&) { ++answers; });
    QCOMPARE(answers, 3);
    QTRY_COMPARE(answers, 4);
  }

  void SeeThroughIsWhite() {
    MapFolder files;
    QImage clear(4, 4, QImage::Format_ARGB32);
    clear.fill(Qt::transparent);
    QVERIFY(clear.save(files.folder.filePath(u"maps/Clear Map.gif"_s), "PNG"));
    MapStore store(files.folder.path());
    QImage read;
    store.Read(u"Clear Map.gif"_s, this, [&read](const MapPicture& picture) { read = picture.pixels; });
    QTRY_COMPARE(read.size(), QSize(4, 4));
    QCOMPARE(read.pixelColor(1, 1), QColor(Qt::white));
  }
};

OMNI_TEST(TestMapStore)
#include "test_map_store.moc"
