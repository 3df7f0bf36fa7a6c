// SPDX-License-Identifier: GPL-3.0-or-later
// The call database when power goes or the process is killed: what was acknowledged is there, whole, and nothing else
// is.
#include <QProcess>

#include "crash_disk.h"
#include "database_files.h"

class TestDatabaseCrashes : public QObject {
  Q_OBJECT

  inline static const QString kFile = u"Omni-Perch-DB.db"_s;
  inline static const QString kRedo = u"Omni-Perch-DB.redo"_s;

  // Calls and the versions of their records.
  using Versions = std::map<QString, int>;

  static QString CallOf(int number) { return u"ZZ%1"_s.arg(number, 3, 10, QChar(u'0')); }
  static Versions First() {
    Versions versions;
    for (int i = 0; i < 40; i += 2) versions[CallOf(i)] = 1;
    return versions;
  }
  static void Put(const TestFolder& folder, const Versions& versions) {
    QByteArray bytes;
    for (const auto& [call, version] : versions) {
      const DbRec record = VersionOf(call, version);
      bytes.append(reinterpret_cast<const char*>(&record), kRecordSize);
    }
    folder.Put(kFile, bytes);
  }

  // One change: of the model, and of the file.
  struct Change {
    std::function<void(Versions&)> model;
    std::function<bool(DatabaseFile&)> file;
  };
  static Change Save(int call, int version) {
    return {[=](Versions& versions) { versions[CallOf(call)] = version; },
            [=](DatabaseFile& file) { return file.SaveStation(CallOf(call), VersionOf(CallOf(call), version)); }};
  }
  static Change Delete(int call) {
    return {[=](Versions& versions) { versions.erase(CallOf(call)); },
            [=](DatabaseFile& file) { return file.DeleteRecord(CallOf(call)).durable; }};
  }
  static Change SaveMany(int from, int version) {
    return {[=](Versions& versions) {
              for (int i = from; i < from + 70; ++i) versions[CallOf(i)] = version;
            },
            [=](DatabaseFile& file) {
              QList<StationRecord> stations;
              for (int i = from; i < from + 70; ++i) stations.append({CallOf(i), VersionOf(CallOf(i), version)});
              return file.SaveStations(stations);
            }};
  }
  static Change Only(bool (DatabaseFile::*operation)()) {
    return {[](Versions&) {}, [=](DatabaseFile& file) { return (file.*operation)(); }};
  }
  static QList<Change> Changes() {
    return {Save(3, 2), Save(4, 2),     Save(4, 3), Save(3, 3),  Only(&DatabaseFile::SortDatabase),
            Save(1, 2), Save(99, 2),    Delete(99), Save(5, 2),  Save(98, 2),
            Delete(0),  SaveMany(6, 4), Save(6, 5), Save(97, 5), Only(&DatabaseFile::Close),
            Save(0, 6)};
  }

  static QString AnyCall(int number) { return u"K%1"_s.arg(number, 4, 10, QChar(u'0')); }

  // What the file holds; a record that nobody has written so is -1.
  static Versions Stored(Files& files, const TestFolder& folder) {
    Versions versions;
    const QByteArray bytes = folder.Bytes(kFile);
    for (qsizetype i = 0; i < bytes.size(); i += kRecordSize) {
      DbRec record;
      std::memcpy(static_cast<void*>(&record), bytes.constData() + i,
                  static_cast<std::size_t>(std::min(kRecordSize, bytes.size() - i)));
      const QString call = record.Call.Text();
      versions[call] = versions.contains(call) || i + kRecordSize > bytes.size() ? -1 : Version(record);
      // The search finds it as well, whether it is sorted in or not.
      if (files.FindRecord(call) == 0 || std::memcmp(&files.DbCurrent, &record, sizeof record) != 0)
        versions[call] = -1;
    }
    return versions;
  }

 private Q_SLOTS:
  void KeepWhatWasAcknowledgedWhenPowerGoes() {
    const QList<Change> changes = Changes();
    QRandomGenerator random(7);
    int step = 0;
    for (bool ended = true; ended;) {
      ++step;
      for (const Unsynced unsynced : {Unsynced::Forgotten, Unsynced::Kept, Unsynced::Torn, Unsynced::Torn}) {
        const TableRow row(qPrintable(u"step %1, %2"_s.arg(step).arg(static_cast<int>(unsynced))));
        const TestFolder folder;
        Versions before = First();
        Put(folder, before);
        const auto disk = std::make_shared<CrashDisk>(folder, step);
        Versions after = before;
        {
          Files files(folder.path(), disk);
          for (const Change& change : changes) {
            change.model(after);
            if (!change.file(files.file)) break;
            before = after;
          }
        }
        ended = disk->HasEnded();
        disk->Restart(unsynced, random);
        if (QTest::currentTestFailed()) return;
        // Power may go again while the next start repairs and sorts.
        const auto second = std::make_shared<CrashDisk>(folder, random.bounded(1, 12));
        if (Files files(folder.path(), second); files.file.Know()) files.file.Close();
        second->Restart(unsynced, random);

        Files files(folder.path());
        QVERIFY(files.file.Know());
        for (const bool sorted : {false, true}) {
          const Versions stored = Stored(files, folder);
          QVERIFY(stored == before || stored == after);
          if (!sorted) QVERIFY(files.file.Close());
        }
        QCOMPARE(folder.Files(), QStringList{kFile});
      }
    }
    QVERIFY(step > 60);
  }

  // The whole database in a process of its own, killed after a time that is another one each time.
  void KeepsWhatWasAcknowledgedWhenKilled() {
    const TestFolder folder;
    Versions before;
    for (int i = 0; i < 3000; ++i) before[AnyCall(i)] = 1;
    Put(folder, before);
    QRandomGenerator random(QRandomGenerator::securelySeeded());
    for (int kill = 0; kill < 20; ++kill) {
      QProcess writer;
      const QString version = QString::number(2 + kill * 10000);
      writer.start(QStringLiteral(DATABASE_WRITER), {folder.path(), version, QString::number(random.generate())});
      const int lines = random.bounded(1, 400);
      QByteArray said;
      while (said.count('\n') < lines && writer.waitForReadyRead(10000)) said += writer.readAll();
      writer.kill();
      QVERIFY(writer.waitForFinished(10000));
      said += writer.readAll();
      QVERIFY(said.count('\n') >= lines);
      // Each line: "do", a call and a version, 0 for a deletion; "done" when that is acknowledged.
      Versions after = before;
      for (const QByteArray& line : said.first(said.lastIndexOf('\n')).split('\n')) {
        const QList<QByteArray> words = line.split(' ');
        if (words.size() == 1) {
          before = after;
        } else if (const QString call = QString::fromLatin1(words[1]); words[2].toInt() == 0) {
          after.erase(call);
        } else {
          after[call] = words[2].toInt();
        }
      }
      Files files(folder.path());
      QVERIFY(files.file.Know());
      const Versions stored = Stored(files, folder);
      QVERIFY(stored == before || stored == after);
      before = stored;
      QVERIFY(QDir(folder.path()).entryList(QDir::Files).size() <= 2);
    }
  }
};

OMNI_TEST(TestDatabaseCrashes)
#include "test_database_crashes.moc"
