// SPDX-License-Identifier: GPL-3.0-or-later
// The file of heights: read in all its spellings, written back, and missing.

#include "poll/height_table.h"
#include "test_folder.h"

namespace {

constexpr auto kFile = "images/dsstv/ckNewHeight.txt"_L1;

// A data folder with a picture, a thumb and, unless it is null, a file of heights.
struct DataFolder : TestFolder {
  explicit DataFolder(const QByteArray& heights) {
    PutFolder(u"images/dsstv/thumbs"_s);
    Put(u"images/dsstv/3-8"_s, "picture");
    Put(u"images/dsstv/thumbs/3-8.jpg"_s, "thumb");
    if (!heights.isNull()) Put(kFile, heights);
  }
  bool Has(const QString& name) const { return QFile::exists(filePath(name)); }
  QList<QByteArray> Lines() const { return Bytes(kFile).split('\n'); }
};

}  // namespace

class TestHeightTable : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  // No file, an empty one, two forms of the former format, and garbage.
  void WipesPicturesWithoutHeights() {
    for (const QByteArray& heights : {QByteArray(), ""_ba, "412,1-1-7\r\n1-2-8\r\n"_ba, "412\r\n1-1-7\r\n"_ba,
                                      QByteArray("\0\xFF\0\n1-1-7\n", 10)}) {
      const DataFolder folder(heights);
      HeightTable table;
      table.Read(folder.path());
      QVERIFY2(!folder.Has(u"images/dsstv/3-8"_s) && !folder.Has(kFile), heights.constData());
      QVERIFY(folder.Has(u"images/dsstv/thumbs/3-8.jpg"_s) && table.Height(1, 1) == 0);
    }
  }

  void ReadsEntries() {
    const auto check = [](const QByteArray& entry, int height) {
      for (const char* separator : {"\r\n", "\n", ","}) {
        const DataFolder folder("1-0-11" + QByteArray(separator) + entry + separator + "1-2-13");
        HeightTable table;
        table.Read(folder.path());
        QVERIFY(folder.Has(u"images/dsstv/3-8"_s));
        QVERIFY2(table.Height(1, 1) == height, entry.constData());
        QVERIFY(table.Height(1, 0) == 11 && table.Height(1, 2) == 13 && table.Height(20, 35) == 0);
      }
    };
    for (const char* entry : {"1-1-412", "9-9-412", "412", "\"1-1-412\"", "1-1- 412px"}) check(entry, 412);
    for (const char* entry : {"x", "", "1-412", "1-1--412", "-412", "1-1-99999999999999999999"}) check(entry, 0);
  }

  void ComesBackAfterARestart() {
    const DataFolder folder("1-0-11\n1-1-\"4,5\"\n\"1-2-6,7\"\n");
    HeightTable table;
    table.Read(folder.path());
    table.SetHeight(3, 7, 412);
    table.SetHeight(20, 35, 65535);
    table.SetHeight(21, 0, 5);  // the WX page has no place here
    table.SetHeight(3, 36, 5);
    QVERIFY(table.Write(folder.path()));

    const QList<QByteArray> lines = folder.Lines();
    QCOMPARE(lines.size(), 721);  // 720, and nothing behind the last line's end
    QCOMPARE(lines[2 * 36 + 7].trimmed(), QByteArray("3-7-412"));
    QCOMPARE(lines[2 * 36 + 8].trimmed(), QByteArray("3-8-x"));
    HeightTable again;
    again.Read(folder.path());
    for (int page = 0; page <= 22; ++page) {
      for (int slot = -1; slot <= 37; ++slot) QCOMPARE(again.Height(page, slot), table.Height(page, slot));
    }
    QCOMPARE(again.Height(20, 35), 65535);
    QVERIFY(folder.Has(u"images/dsstv/3-8"_s));

    HeightTable neverRead;
    QVERIFY(neverRead.Write(folder.path()));
    QCOMPARE(folder.Lines().first().trimmed(), QByteArray("1-0-x"));
  }

  // A folder in the file's place cannot be read as a file by any user, root included.
  void KeepsPicturesOfAnUnreadableFile() {
    const DataFolder folder({});
    QVERIFY(QDir(folder.path()).mkdir(kFile));
    HeightTable table;
    table.Read(folder.path());
    QVERIFY(folder.Has(u"images/dsstv/3-8"_s) && !table.Write(folder.path()));
  }
};

OMNI_TEST(TestHeightTable)
#include "test_height_table.moc"
