// SPDX-License-Identifier: GPL-3.0-or-later
// The copies of the user's files: which files, under which names, how many, and what a full disk leaves of them.
#include <QSignalSpy>

#include "core/backup.h"
#include "no_room.h"
#include "test_folder.h"

namespace {

struct SteppingClock : Clock {
  QDateTime now = QDateTime(QDate(2026, 3, 15), QTime(12, 0));
  QDateTime Now() const override { return now; }
};

struct BackupFixture {
  TestFolder folder;
  SteppingClock clock;
  Background background;
  QStringList steps;
  Backup backup{{folder.path(), clock, background,
                 [this](const std::function<void(const QStringList&)>& then) {
                   steps.append(u"saved"_s);
                   folder.Put(u"Omni-Perch.cfg"_s, "state");
                   then({});
                 },
                 [this](const std::function<void()>& then) {
                   steps.append(u"merged"_s);
                   then();
                 }}};
  std::optional<BackupResult> result;

  void Take(const BackupResult& made) { result = made; }
  BackupResult Make() {
    result.reset();
    backup.Make(&backup, [this](const BackupResult& made) { Take(made); });
    return QTest::qWaitFor([this]() { return result.has_value(); }) ? *result : BackupResult{{}, {u"none"_s}};
  }
  QStringList Copies() const {
    return QDir(folder.filePath(u"Backups"_s)).entryList(QDir::Dirs | QDir::NoDotAndDotDot | QDir::Hidden);
  }
};

}  // namespace

class TestBackup : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  // The list is found under any spelling, and replaces a copy under any other.
  void CopiesStateListsAndSettingsButNoCookies() {
    BackupFixture f;
    for (const QString& name : {u"Omni-Perch-DB.db"_s, u"Omni-Perch.lst"_s, u"WXsites.lst"_s, u"nicknames.txt"_s,
                                u"settings.ini"_s, u"hosts.ini"_s, u"cookies.txt"_s}) {
      f.folder.Put(name, name.toLatin1());
    }
    f.folder.PutFolder(u"Backups"_s);
    f.folder.Put(u"Backups/wxsites.LST"_s, "old");
    const BackupResult result = f.Make();
    QCOMPARE(result.failed, QStringList());
    QCOMPARE(f.steps, (QStringList{u"saved"_s, u"merged"_s}));
    QDir backups(f.folder.filePath(u"Backups"_s));
    QCOMPARE(backups.entryList(QDir::Files, QDir::Name | QDir::IgnoreCase),
             (QStringList{u"Omni-Perch-DB.db"_s, u"Omni-Perch.cfg"_s, u"Omni-Perch.lst"_s, u"wxsites.LST"_s}));
    QCOMPARE(f.folder.Bytes(u"Backups/wxsites.LST"_s), "WXsites.lst"_ba);
    QCOMPARE(result.folder, backups.filePath(u"2026-03-15-120000"_s));
    QCOMPARE(QDir(result.folder).entryList(QDir::Files).size(), 7);
    QCOMPARE(f.folder.Bytes(u"Backups/2026-03-15-120000/Omni-Perch.cfg"_s), "state"_ba);
  }

  // Ten are kept, also if the clock was set back; a folder of another name is not ours to remove.
  void KeepsTheNewest() {
    BackupFixture f;
    f.folder.PutFolder(u"Backups/2026-01-01-mine"_s);
    for (int day = 0; day < 12; ++day) {
      QCOMPARE(f.Make().failed, QStringList());
      f.clock.now = f.clock.now.addDays(1);
    }
    QCOMPARE(f.Copies().size(), 11);
    QCOMPARE(f.Copies().value(1), u"2026-03-17-120000"_s);
    f.clock.now = QDateTime(QDate(1999, 1, 1), QTime(0, 0));
    f.Make();
    QCOMPARE(f.Copies().size(), 11);
    QCOMPARE(f.Copies().value(0), u"1999-01-01-000000"_s);
    for (int update = 0; update < 5; ++update) {
      f.result.reset();
      f.backup.MakeBeforeUpdate(&f.backup, [&f](const BackupResult& made) { f.Take(made); });
      QTRY_VERIFY(f.result.has_value());
      f.clock.now = f.clock.now.addSecs(60);
    }
    QCOMPARE(f.Copies().filter(u"before-update-1999-01-01-00"_s).size(), 3);
  }

  // The file is named, no half copy is left, and the former copies are whole.
  void TellsWhatAFullDiskRefused() {
    BackupFixture f;
    f.folder.Put(u"Omni-Perch.lst"_s, "first");
    QCOMPARE(f.Make().failed, QStringList());
    f.folder.Put(u"Omni-Perch.lst"_s, QByteArray(5000, 'x'));
    const BackupResult result = WithoutRoom([&f]() { return f.Make(); });
    QCOMPARE(result.failed.size(), 2);
    QVERIFY(result.failed.value(0).startsWith(f.folder.filePath(u"Backups/Omni-Perch.lst: "_s)));
    QVERIFY(!result.failed.value(0).contains(u"Unknown"_s));
    QVERIFY(result.folder.isEmpty());
    QCOMPARE(f.folder.Bytes(u"Backups/Omni-Perch.lst"_s), "first"_ba);
    QCOMPARE(f.Copies(), QStringList{u"2026-03-15-120000"_s});
  }
};

OMNI_TEST(TestBackup)
#include "test_backup.moc"
