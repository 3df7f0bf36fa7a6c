// SPDX-License-Identifier: GPL-3.0-or-later
// The pictures of the maps: files of all kinds, whole and broken, and what is kept of them.

#include "map_folder.h"
#include "maps/map_store.h"
#include "test_suite.h"

using namespace Qt::StringLiterals;

class TestMapStore : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  // Each row names its file; a map without a size cannot be read.
  void Pictures() {
    MapFolder files;
    files.Save(u"Europe Map.jpg"_s, QSize(300, 200));
    QFile whole(files.folder.filePath(u"maps/Europe Map.jpg"_s));
    QVERIFY(whole.open(QIODevice::ReadOnly));
    const QByteArray bytes = whole.readAll();
    const QByteArray gif =
        QByteArray::fromHex("47494638396101000100800000ff000000000021f90401000000002c00000000010001000002024401003b");
    const auto check = [this, &files](const char* name, QSize size) {
      const TableRow row(name);
      MapStore store(files.folder.path());
      std::optional<MapPicture> read;
      store.Read(QString::fromLatin1(name), this, [&read](const MapPicture& picture) { read = picture; });
      QTRY_VERIFY_WITH_TIMEOUT(read.has_value(), 20000);
      QCOMPARE(read->size, size);
      QCOMPARE(read->failed, read->size.isEmpty());
      if (read->failed) return;
      QCOMPARE(read->pixels.format(), kMapFormat);
      QVERIFY(read->pixels.width() <= 32000 && read->pixels.sizeInBytes() <= 128'000'000);
    };
    check("Europe Map.jpg", {300, 200});
    check("EUROPE map.JPG", {300, 200});
    files.Save(u"PNG by the name of a Map.jpg"_s, QSize(40, 30), Qt::red, "PNG");
    check("PNG by the name of a Map.jpg", {40, 30});
    files.Write(u"Bytes behind the end Map.jpg"_s, bytes + QByteArray(100, '\0'));
    check("Bytes behind the end Map.jpg", {300, 200});
    files.Write(u"Cut off Map.jpg"_s, bytes.chopped(100));
    check("Cut off Map.jpg", {});
    files.Write(u"Cut off in its head Map.jpg"_s, bytes.left(200));
    check("Cut off in its head Map.jpg", {});
    files.Write(u"One pixel Map.gif"_s, gif);
    check("One pixel Map.gif", {1, 1});
    files.Write(u"Cut off Map.gif"_s, gif.chopped(3));
    check("Cut off Map.gif", {});
    files.Write(u"No picture Map.jpg"_s, QByteArray(5000, 'x'));
    check("No picture Map.jpg", {});
    files.Write(u"Empty Map.jpg"_s, QByteArray());
    check("Empty Map.jpg", {});
    QVERIFY(QDir(files.folder.path()).mkpath(u"maps/Folder Map.jpg"_s));
    check("Folder Map.jpg", {});
    check("Missing Map.jpg", {});
    check("", {});
    files.Save(u"More pixels than are held Map.jpg"_s, QSize(6000, 5600));
    check("More pixels than are held Map.jpg", {6000, 5600});
    files.Save(u"Wider than is painted Map.jpg"_s, QSize(33000, 2));
    check("Wider than is painted Map.jpg", {33000, 2});
  }

  void KeepsTheLastTwo() {
    MapFolder files;
    for (const QString& name : {u"a"_s, u"b"_s, u"c"_s}) files.Save(name, QSize(30, 20));
    MapStore store(files.folder.path());
    const auto atOnce = [this, &store](const QString& name) {
      QString answer;
      bool inTime = true;
      store.Read(name, this, [&](const MapPicture& picture) {
        answer = picture.failed ? u"failed "_s : inTime ? u"kept "_s : u"read "_s;
        answer += picture.pixels.pixelColor(3, 3).name();
      });
      inTime = false;
      return QTest::qWaitFor([&answer]() { return !answer.isEmpty(); }) ? answer : u"no answer"_s;
    };
    QStringList answers;
    for (const QString& name : {u"a"_s, u"b"_s, u"a"_s, u"c"_s, u"a"_s, u"b"_s}) answers.append(atOnce(name).left(4));
    QCOMPARE(answers.join(u' '), u"read read kept read kept read"_s);
    // The user has put another picture in the place of the file.
    files.Save(u"a"_s, QSize(31, 20), Qt::black);
    QCOMPARE(atOnce(u"a"_s), u"read #000000"_s);
    QCOMPARE(atOnce(u"a"_s), u"kept #000000"_s);
    // Changed again: the former picture of this map goes, not that of another one.
    files.Save(u"a"_s, QSize(32, 20), Qt::white);
    QCOMPARE(atOnce(u"a"_s), u"read #ffffff"_s);
    QVERIFY(atOnce(u"b"_s).startsWith(u"kept"));

    // A file that breaks off does not take the place of the picture that was read from it before.
    QFile::resize(files.folder.filePath(u"maps/a"_s), 300);
    QCOMPARE(atOnce(u"a"_s), u"failed #ffffff"_s);

    // Nobody is called whose object is gone by the time of the answer.
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
