// SPDX-License-Identifier: GPL-3.0-or-later
// The call database against a plain model of the file: records in memory, bisected, sorted and copied one by one.
#include <sys/resource.h>

#include <QDateTime>
#include <QFileInfo>
#include <QRandomGenerator>
#include <csignal>

#include "callbook/call_database.h"
#include "database_files.h"
#include "demo_database.h"
#include "test_folder.h"

class TestCallDatabase : public QObject {
  Q_OBJECT

  inline static const QString kFile = u"Omni-Perch-DB.db"_s;

  static QByteArray Padded(const QByteArray& text, qsizetype width) { return text.leftJustified(width, ' ', true); }
  // A whole record; by its name a test knows it among others of the same call.
  static QByteArray Stored(const QByteArray& call, const QByteArray& name = "") {
    return Padded(call, 6) + Padded(name, kRecordSize - 6);
  }
  static QByteArray Trimmed(QByteArray text) {
    while (text.startsWith(' ')) text.remove(0, 1);
    while (text.endsWith(' ')) text.chop(1);
    return text;
  }
  static QByteArray Bytes(const DbRec& record) { return {reinterpret_cast<const char*>(&record), kRecordSize}; }
  static QByteArray CallOf(const QByteArray& record) { return Trimmed(record.left(6)); }

  // Records in memory.
  struct Model {
    QList<QByteArray> records;

    int Find(const QByteArray& call) const {
      qsizetype high = std::max<qsizetype>(records.size(), 1);
      qsizetype low = 1;
      while (low <= high) {
        const qsizetype middle = (low + high) / 2;
        const QByteArray record = middle > records.size() ? QByteArray(kRecordSize, '\0') : records[middle - 1];
        if (CallOf(record) == Trimmed(call)) return static_cast<int>(middle);
        if (call > record.left(6)) {
          low = middle + 1;
        } else {
          high = middle - 1;
        }
      }
      return 0;
    }

    // A call of up to seven of the letters, or that of a record.
    QByteArray AnyCall(QRandomGenerator& random, const QByteArray& letters) const {
      if (!records.isEmpty() && random.bounded(3) == 0) {
        return CallOf(records[random.bounded(static_cast<int>(records.size()))]);
      }
      QByteArray call;
      for (int i = random.bounded(8); i > 0; --i) call += letters[random.bounded(static_cast<int>(letters.size()))];
      return call;
    }

    void Sort() {
      std::stable_sort(records.begin(), records.end(),
                       [](const QByteArray& a, const QByteArray& b) { return CallOf(a) < CallOf(b); });
    }
    static Model OfFile(const QByteArray& bytes) {
      Model model;
      for (qsizetype i = 0; i < bytes.size(); i += kRecordSize) model.records += bytes.mid(i, kRecordSize);
      return model;
    }
  };

 private Q_SLOTS:
  void MeetsTheModel() {
    // searchesFirst: each change searches first, as all callers do.
    const auto check = [](const char* what, const QByteArray& letters, bool searchesFirst, bool cut = false) {
      const TableRow row(what);
      const TestFolder folder;
      Files database(folder.path());
      Model model;
      QRandomGenerator random(41);
      bool sorted = true;
      for (int step = 0; step < 400; ++step) {
        const QByteArray call = model.AnyCall(random, letters);
        const QString text = QString::fromLatin1(call);
        const QByteArray name = QByteArray::number(step);
        const int number = database.FindRecord(text);
        // Among several of a call any may be found until they are sorted, and blanks and NULs sort elsewhere.
        if (sorted || (searchesFirst && !cut)) QCOMPARE(number, model.Find(call));
        const QByteArray found = number == 0 ? QByteArray() : model.records[number - 1].mid(6, 25);
        QCOMPARE(database.DbCurrent.Name.Bytes().toByteArray(), Padded(found, 25));
        if (number > 0) QCOMPARE(database.DbCurrent.Call.Text(), text.trimmed());

        DbRec record;
        record.Call = text;
        record.Name = QString::fromLatin1(name);
        const int choice = random.bounded(10);
        if (choice == 0) {
          const qsizetype before = model.records.size();
          model.records.removeIf([&call](const QByteArray& stored) { return CallOf(stored) == Trimmed(call); });
          const Deletion deletion = database.file.DeleteRecord(text);
          QVERIFY(deletion.durable && deletion.removed.size() == before - model.records.size());
          if (random.bounded(3) == 0 && database.file.PutBack(deletion.removed)) {
            for (const DbRec& removed : deletion.removed) model.records += Bytes(removed);
            model.Sort();
          }
        } else if (number > 0 && (searchesFirst || choice < 3)) {
          QVERIFY(database.file.UpdateRecord(database.NumberInFile(), record));
          model.records[number - 1] = Stored(call, name);
        } else {
          QVERIFY(database.file.AddRecord(record));
          model.records += Stored(call, name);
          model.Sort();
        }
        sorted = choice == 0 || choice == 9;
        if (sorted) QVERIFY(database.file.SortDatabase());
        // The file has every record at any time.
        Model stored = Model::OfFile(folder.Bytes(kFile));
        if (!sorted) stored.Sort();
        QCOMPARE(stored.records, model.records);
        QCOMPARE(database.RecordCount(), model.records.size());
      }
      QByteArray expected;
      for (const QByteArray& record : std::as_const(model.records)) expected += record.left(6);
      QCOMPARE(database.file.FillCallList(), expected);
    };
    check("few calls, many duplicates", "AB", false);
    check("blanks, NULs, accents, lower case", QByteArray("A1 \0z\xC4", 6), false);
    check("each call once", "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789", true);
    check("once, but for cut calls", "ABC", true, true);
  }

  void KeepsFieldsInTheirPlaces() {
    const TestFolder folder;
    Files database(folder.path());
    QCOMPARE(database.FindRecord(u"ZZ9QX"_s), 0);
    DbRec& record = database.DbCurrent;
    record.Call = u"ZZ9QX"_s;
    record.Name = u"Abcdefghijklmnopqrstuvwxyz"_s;  // 26 characters
    record.Add1 = u"Łódź Ж € ñ"_s;
    record.Add2 = u"1 Mill Lane"_s;
    record.Ctry = u"Nowhere"_s;
    record.Lat = CoordinateText(-40.25);
    record.Lon = CoordinateText(0);
    record.Class = u"Extra"_s;
    record.YearBorn = u"1961"_s;
    QVERIFY(database.file.AddRecord(record));
    const QByteArray add1 = Padded(QString(u"?ódz ? \u0080 ñ"_s).toLatin1(), 30);
    QCOMPARE(folder.Bytes(kFile), "ZZ9QX Abcdefghijklmnopqrstuvwxy" + add1 + Padded("1 Mill Lane", 30) +
                                      Padded("Nowhere", 30) + Padded("-40.25", 15) + Padded("0", 15) +
                                      Padded("Extra", 12) + "1961");
    Files other(folder.path());
    QCOMPARE(other.FindRecord(u" ZZ9QX "_s), 1);
    QCOMPARE(other.DbCurrent.Name.Text() + other.DbCurrent.Add1.Text(), u"Abcdefghijklmnopqrstuvwxy?ódz ? € ñ"_s);
  }

  void GoesOnWithoutAFile() {
    const TestFolder folder;
    folder.Put(u"temp.db"_s, Stored("LEFT"));
    Files database(folder.path());
    database.DbCurrent.Call = u"ZZ9QX"_s;
    const DbRec record = database.DbCurrent;
    QVERIFY(!database.file.AddRecord(record) && !database.file.UpdateRecord(1, record) &&
            !database.file.SortDatabase());
    QVERIFY(!database.file.DeleteRecord(u"ZZ9QX"_s).durable && !database.file.FillCallList());
    QCOMPARE(database.RecordCount(), 0);
    QCOMPARE(folder.Files(), QStringList{u"temp.db"_s});

    // The first search makes the file, and searching it leaves it empty.
    for (const QString& call : {u"ZZ9QX"_s, u""_s}) QCOMPARE(database.FindRecord(call), 0);
    QCOMPARE(folder.Bytes(kFile), QByteArray());
    QCOMPARE(database.DbCurrent.Call.Text(), QString());
    QCOMPARE(database.file.FillCallList(), QByteArray());

    // A number behind the last record writes nothing.
    QVERIFY(!database.file.UpdateRecord(1, record) && !database.file.UpdateRecord(0, record));
    QCOMPARE(folder.Bytes(kFile), QByteArray());

    // A file of another spelling is the same file; no second one is made beside it.
    QVERIFY(QFile::rename(folder.filePath(kFile), folder.filePath(u"omni-perch-db.DB"_s)));
    QVERIFY(database.file.AddRecord(record));
    QCOMPARE(database.FindRecord(u"ZZ9QX"_s), 1);
    QVERIFY(!QFile::exists(folder.filePath(kFile)));

    // A folder in the file's place cannot be opened: nothing is found or written, and the work record stays.
    QVERIFY(QFile::remove(folder.filePath(u"omni-perch-db.DB"_s)) && QDir(folder.path()).mkdir(u"Omni-Perch-DB.db"_s));
    QCOMPARE(database.FindRecord(u"AB1CD"_s), 0);
    QVERIFY(!database.file.SaveStation(u"ZZ9QX"_s, record) && !database.file.SortDatabase());
    QCOMPARE(database.DbCurrent.Call.Text(), u"ZZ9QX"_s);
  }

  void LosesNothingOfABrokenFile() {
    const QByteArray a = Stored("A");
    const QByteArray b = Stored("B");
    const QByteArray c = Stored("C", "new");
    const QByteArray d = Stored("D");
    const QByteArray half = Stored("E").left(84);  // counts as a record where lengths are rounded
    const QByteArray zeros(kRecordSize, '\0');
    const auto check = [](const QByteArray& before, int count, const QByteArray& afterAddingC,
                          const QByteArray& afterDeletingB) {
      const TestFolder folder;
      Files database(folder.path());
      folder.Put(kFile, before);
      QCOMPARE(database.RecordCount(), count);
      DbRec record;
      record.Call = u"C"_s;
      record.Name = u"new"_s;
      QVERIFY(database.file.SaveStation(u"C"_s, record) && database.file.SortDatabase());
      QCOMPARE(folder.Bytes(kFile), afterAddingC);
      folder.Put(kFile, before);
      QVERIFY(database.file.DeleteRecord(u"B"_s).durable);
      QCOMPARE(folder.Bytes(kFile), afterDeletingB);
    };
    check("rest", 0, c + "rest", "rest");
    check(a + b + d + "\r\n", 3, a + b + c + d + "\r\n", a + d + "\r\n");
    check(a + b + d + half, 4, a + b + c + d + half, a + d + Stored("E"));
    check(zeros + a, 2, zeros + a + c, zeros + a);
    check(d + b + a, 3, a + b + c + d, d + a);
    check(a + half, 2, a + c + half, a + Stored("E"));
  }

  void TakesInWhatATemporaryFileHolds() {
    const TestFolder folder;
    folder.Put(kFile, Stored("A") + Stored("B") + Stored("C"));
    folder.Put(u"temp.db"_s, Stored("X") + Stored("Y") + Stored("Z"));
    Files database(folder.path());
    QCOMPARE(database.file.DeleteRecord(u"C"_s).removed.size(), 1);
    QCOMPARE(folder.Bytes(kFile), Stored("A") + Stored("B") + Stored("Z"));
    QCOMPARE(folder.Files(), QStringList{u"Omni-Perch-DB.db"_s});
  }

  // Searches remember the beginning of a file that has not changed for a while; its first change must end that.
  void SeesEveryChangeOfARestedFile() {
    const TestFolder folder;
    const auto call = [](int number) { return u"ZZ%1"_s.arg(number, 4, 10, QLatin1Char('0')); };
    QByteArray even;
    QByteArray odd;
    for (int i = 0; i < 300; ++i) {
      even += Stored(call(2 * i).toLatin1(), "first");
      odd += Stored(call(2 * i + 1).toLatin1(), "second");
    }
    folder.Put(kFile, even);
    Files database(folder.path());
    const auto rested = [&folder]() {
      return QFileInfo(folder.filePath(kFile)).metadataChangeTime().secsTo(QDateTime::currentDateTime()) >= 3;
    };
    QTRY_VERIFY_WITH_TIMEOUT(rested(), 10000);
    for (int round = 0; round < 2; ++round) {
      for (int i = 0; i < 600; ++i) QCOMPARE(database.FindRecord(call(i)), i % 2 == 0 ? i / 2 + 1 : 0);
    }
    // Another program writes the same file, in place and of the same size.
    folder.Put(kFile, odd);
    for (int i = 0; i < 600; ++i) QCOMPARE(database.FindRecord(call(i)), i % 2 == 1 ? i / 2 + 1 : 0);
    QTRY_VERIFY_WITH_TIMEOUT(rested(), 10000);
    QCOMPARE(database.FindRecord(call(299)), 150);
    QCOMPARE(database.DbCurrent.Name.Text(), u"second"_s);
    database.DbCurrent.Name = u"third"_s;
    QVERIFY(database.file.UpdateRecord(150, database.DbCurrent));
    QCOMPARE(database.FindRecord(call(299)), 150);
    QCOMPARE(database.DbCurrent.Name.Text(), u"third"_s);
    QVERIFY(database.file.DeleteRecord(call(1)).durable);
    QCOMPARE(database.FindRecord(call(299)), 149);
  }

  void AnswersWhenAChangeIsOnTheDisk() {
    const TestFolder folder;
    CallDatabase database(folder.path());
    QObject context;
    QStringList answers;
    const auto save = [&](const QString& call, int version) {
      database.SaveStation(call, VersionOf(call, version), &context,
                           [&, call](bool durable) { answers += call + (durable ? u'+' : u'-'); });
    };
    const auto version = [&](const QString& call) {
      return database.FindRecord(call) > 0 ? Version(database.DbCurrent) : 0;
    };
    save(u"ZZ2"_s, 1);
    save(u"ZZ1"_s, 2);
    save(u"ZZ2"_s, 3);
    QTRY_COMPARE(answers, QStringList({u"ZZ2+"_s, u"ZZ1+"_s, u"ZZ2+"_s}));
    QCOMPARE(version(u"ZZ1"_s) * 10 + version(u"ZZ2"_s), 23);
    QCOMPARE(database.FindRecord(u"ZZ2"_s), 2);  // as if sorted
    QVERIFY(folder.Bytes(kFile).startsWith("ZZ2"));
    QTRY_VERIFY(folder.Bytes(kFile).startsWith("ZZ1"));

    // Another file in its place, while a record is not yet sorted into the old one.
    save(u"ZZ0"_s, 4);
    QTRY_COMPARE(answers.size(), 4);
    folder.Put(u"copy"_s, Stored("ZZ7") + Stored("ZZ8"));
    QVERIFY(QFile::rename(folder.filePath(u"copy"_s), folder.filePath(u"other"_s)) &&
            ::rename(qPrintable(folder.filePath(u"other"_s)), qPrintable(folder.filePath(kFile))) == 0);
    QCOMPARE(version(u"ZZ0"_s), 0);
    save(u"ZZ5"_s, 5);
    QVERIFY(database.Finish());
    QCOMPARE(folder.Bytes(kFile).size(), 3 * kRecordSize);
    QCOMPARE(database.FindRecord(u"ZZ8"_s), 3);
    QCOMPARE(folder.Files(), QStringList{kFile});

    // Many: changed, added, twice in the list, and one that is too long to be found.
    QList<StationRecord> stations;
    for (int i = 0; i < 1100; ++i) {
      const QString call = u"K%1"_s.arg(i % 1090, 4, 10, QChar(u'0'));
      stations.append({call, VersionOf(call, i)});
    }
    stations.append({u"ZZ8"_s, VersionOf(u"ZZ8"_s, 7)});
    stations.append({u"K000312"_s, VersionOf(u"K000312"_s, 8)});
    database.SaveStations(stations);
    QVERIFY(database.Finish());
    QCOMPARE(database.RecordCount(), 1090 + 3 + 1);
    QCOMPARE(version(u"K0005"_s) + version(u"ZZ8"_s), 1095 + 7);
    // One by one, beyond the longest tail.
    for (int i = 0; i < 1100; ++i) save(u"A%1"_s.arg(i * 7 % 1100, 4, 10, QChar(u'0')), i);
    QTRY_VERIFY_WITH_TIMEOUT(answers.contains(u"A1093+"_s), 60000);
    QCOMPARE(database.FindRecord(u"A0693"_s), 694);
  }

  // A disk that takes a part of a record, and a redo file that cannot be written.
  void LeavesTheFileAsItIsWhenItCannotWrite() {
    const TestFolder folder;
    Files database(folder.path());
    QVERIFY(database.file.SaveStation(u"ZZ2"_s, VersionOf(u"ZZ2"_s, 1)));
    const QByteArray before = folder.Bytes(kFile);
    rlimit limit{};
    QCOMPARE(::getrlimit(RLIMIT_FSIZE, &limit), 0);
    const auto former = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit full{450, limit.rlim_max};  // the redo record fits, and a part of a third record
    for (const QString& call : {u"ZZ3"_s, u"ZZ4"_s}) {
      QCOMPARE(::setrlimit(RLIMIT_FSIZE, &full), 0);
      const bool saved = database.file.SaveStation(call, VersionOf(call, 1));
      QCOMPARE(::setrlimit(RLIMIT_FSIZE, &limit), 0);
      QCOMPARE(saved, call == u"ZZ3"_s);
    }
    std::signal(SIGXFSZ, former);
    QCOMPARE(folder.Bytes(kFile).size(), 2 * kRecordSize);
    QVERIFY(folder.Bytes(kFile).startsWith(before) && database.FindRecord(u"ZZ4"_s) == 0);
    QVERIFY(database.file.Close());
    folder.PutFolder(u"Omni-Perch-DB.redo"_s);
    QVERIFY(!database.file.SaveStation(u"ZZ4"_s, VersionOf(u"ZZ4"_s, 1)));
    QCOMPARE(folder.Bytes(kFile).size(), 2 * kRecordSize);
  }

  // The demo's file is written by other code than reads it; repeated it is longer than what FillCallList reads at once.
  void ListsTheDemo() {
    const TestFolder folder;
    folder.Put(kFile, DemoDatabase().repeated(60));
    Files database(folder.path());
    const CallList calls(database.file.FillCallList().value());
    QCOMPARE(calls.Count(), DemoDatabase().size() / kRecordSize * 60);
    QCOMPARE(calls.Call(calls.Count() - 1), calls.Call(calls.Count() / 60 - 1));
    folder.Put(kFile, DemoDatabase());
    QCOMPARE(CallDatabase(folder.path()).LookupTargetLocation(u"VK2QFW"_s).TargetLat, -33.9);
  }
};

OMNI_TEST(TestCallDatabase)
#include "test_call_database.moc"
