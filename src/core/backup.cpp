// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/backup.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSaveFile>
#include <array>
#include <cerrno>
#include <utility>

#include "platform/paths.h"

using namespace Qt::StringLiterals;

namespace {

// The copies of one backup replace those of the one before. The weather list has a capital S here: a name is looked up
// without regard to case, so that it replaces a copy of either spelling.
constexpr std::array kMainFiles = {"Omni-Perch-DB.db"_L1, "Omni-Perch.cfg"_L1, "Omni-Perch.lst"_L1, "WxSites.lst"_L1};
// What a dated copy has beside these. Cookies are never copied: whoever has them is signed in as the user.
constexpr std::array kMoreFiles = {"Nicknames.txt"_L1, "settings.ini"_L1, "hosts.ini"_L1};

constexpr int kKept = 10;
constexpr int kKeptBeforeUpdates = 3;
constexpr qint64 kBlock = 1024 * 1024;

constexpr QLatin1StringView kPartPrefix = ".part-"_L1;

// Empty, or why the copy could not be made. A file that the user does not have is no failure.
QString CopyFile(const QString& from, const QString& to) {
  QFile source(from);
  if (!source.exists()) return {};
  if (!source.open(QIODevice::ReadOnly)) return source.errorString();
  QSaveFile copy(to);
  if (!copy.open(QIODevice::WriteOnly)) return copy.errorString();
  while (!source.atEnd()) {
    const QByteArray block = source.read(kBlock);
    if (block.isEmpty()) return source.errorString();
    // commit() alone would not see that what it flushes does not fit on the disk.
    if (copy.write(block) != block.size() || !copy.flush()) return qt_error_string(errno);
  }
  return copy.commit() ? QString() : copy.errorString();
}

// A name below folder that is not taken: a second copy of the same day, or second, gets the time, or a number, too. The
// plain name is taken while any longer one is there, so that the order of the names is that of the copies.
QString FreeName(const QDir& folder, const QString& name, const QString& further) {
  if (folder.entryList({name + u'*'}, QDir::Dirs).isEmpty()) return name;
  QString free = name + further;
  for (int number = 2; folder.exists(free); ++number) free = name + further + u'-' + QString::number(number);
  return free;
}

}  // namespace

// One backup, as the background thread makes it. Everything in it is a value.
struct Backup::Job {
  QString data;
  QString backups;
  bool mainFiles = false;
  QString name;             // of the dated folder
  QString further;          // to be added if that name is taken
  QRegularExpression kind;  // names of the dated folders of this kind
  int kept = 0;
  BackupResult result;

  void Run() {
    QDir folder(backups);
    if (!folder.mkpath(u"."_s)) return Fail(backups, tr("The folder cannot be made."));
    if (mainFiles) {
      for (const QLatin1StringView file : kMainFiles) Copy(file, backups, backups);
    }
    CopyDated(folder);
    if (!result.folder.isEmpty()) RemoveOlder(folder);
  }

  void Fail(const QString& path, const QString& reason) { result.failed.append(path + u": "_s + reason); }

  // shown: the folder that a message names in place of to.
  void Copy(const QString& file, const QString& to, const QString& shown) {
    const QString reason = CopyFile(ResolvePath(data, file), ResolvePath(to, file));
    if (!reason.isEmpty()) Fail(shown + u'/' + file, reason);
  }

  // Under a hidden name until it is complete: a folder with a date is a whole copy.
  void CopyDated(QDir& folder) {
    for (const QString& left : folder.entryList({kPartPrefix + u'*'}, QDir::Dirs | QDir::Hidden | QDir::NoSymLinks)) {
      QDir(folder.filePath(left)).removeRecursively();
    }
    const QString whole = folder.filePath(FreeName(folder, name, further));
    const QString part = folder.filePath(kPartPrefix + name);
    if (!folder.mkpath(part)) return Fail(whole, tr("The folder cannot be made."));
    const qsizetype failures = result.failed.size();
    for (const QLatin1StringView file : kMainFiles) Copy(file, part, whole);
    for (const QLatin1StringView file : kMoreFiles) Copy(file, part, whole);
    if (result.failed.size() == failures && folder.rename(part, whole)) {
      result.folder = whole;
    } else {
      QDir(part).removeRecursively();
    }
  }

  // The newest are kept, by name. The one just made stays even if the clock was set back since the others.
  void RemoveOlder(const QDir& folder) const {
    QStringList names = folder.entryList(QDir::Dirs | QDir::NoSymLinks | QDir::NoDotAndDotDot, QDir::Name).filter(kind);
    names.removeAll(QDir(result.folder).dirName());
    while (names.size() >= kept) QDir(folder.filePath(names.takeFirst())).removeRecursively();
  }
};

Backup::Backup(Dependencies dependencies, QObject* parent) : QObject(parent), deps_(std::move(dependencies)) {}

QString Backup::Folder() const {
  return ResolvePath(deps_.appDataDir, u"Backups"_s);
}

void Backup::Make(QObject* context, const Done& done) {
  static const QRegularExpression kNames(u"^\\d{4}-\\d\\d-\\d\\d-\\d{6}(-\\d+)?$"_s);
  Job job;
  job.mainFiles = true;
  job.name = deps_.clock.Now().toString(u"yyyy-MM-dd-HHmmss"_s);
  job.kind = kNames;
  job.kept = kKept;
  Begin(job, context, done);
}

void Backup::MakeBeforeUpdate(QObject* context, const Done& done) {
  static const QRegularExpression kNames(u"^before-update-\\d{4}-\\d\\d-\\d\\d(-\\d+)*$"_s);
  const QDateTime now = deps_.clock.Now();
  Job job;
  job.name = u"before-update-"_s + now.toString(u"yyyy-MM-dd"_s);
  job.further = now.toString(u"-HHmmss"_s);
  job.kind = kNames;
  job.kept = kKeptBeforeUpdates;
  Begin(job, context, done);
}

// One after another: two at once would replace each other's files, and the state is written once for both.
void Backup::Begin(const Job& job, QObject* context, const Done& done) {
  const auto start = [this, job, guard = QPointer<QObject>(context), done]() { Start(job, guard, done); };
  if (running_) return waiting_.enqueue(start);
  start();
}

void Backup::Start(Job job, const QPointer<QObject>& context, const Done& done) {
  running_ = true;
  job.data = deps_.appDataDir;
  job.backups = Folder();
  deps_.saveState([this, job, context, done](const QStringList& failed) {
    Job saved = job;
    saved.result.failed = failed;
    deps_.mergeDatabase([this, saved, context, done]() { Copy(saved, context, done); });
  });
}

void Backup::Copy(const Job& job, const QPointer<QObject>& context, const Done& done) {
  const auto run = [job]() {
    Job mine = job;
    mine.Run();
    return mine.result;
  };
  deps_.background.Run<BackupResult>(this, run, [this, context, done](const BackupResult& result) {
    running_ = false;
    if (context != nullptr) done(result);
    if (!running_ && !waiting_.isEmpty()) waiting_.dequeue()();
  });
}
