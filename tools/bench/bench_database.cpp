// SPDX-License-Identifier: GPL-3.0-or-later
// Look-ups and changes in the local call database against SQLite on the same calls. One job a process, so that
// scripts/bench can time both from a cold start: omni-perch-bench-database JOB FOLDER RECORDS.
#include <sqlite3.h>

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QRandomGenerator>
#include <cstdio>
#include <cstring>

#include "bench_calls.h"
#include "callbook/call_database.h"
#include "core/program.h"
#include "page/hover_tip.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kLookUps = 10000;
constexpr int kChanges = 1000;
constexpr int kTips = 200;

// Every second number is a record of the database, the others are misses.
QStringList Calls(int records) {
  QRandomGenerator random(42);
  QStringList calls;
  for (int i = 0; i < kLookUps; ++i) calls.append(CallOf(random.bounded(static_cast<quint32>(records) * 2)));
  return calls;
}

DbRec Record(quint32 number) {
  DbRec record;
  record.Call = CallOf(number);
  record.Name = u"Operator"_s;
  record.Ctry = u"Nowhere"_s;
  record.Lat = u"50.5"_s;
  record.Lon = u"10.25"_s;
  return record;
}

// The peer's database in a file of the folder.
class Sqlite {
 public:
  explicit Sqlite(const QString& folder) {
    sqlite3_open(QFile::encodeName(folder + u"/peer.sqlite"_s).constData(), &db_);
  }
  ~Sqlite() { sqlite3_close(db_); }
  Sqlite(const Sqlite&) = delete;
  Sqlite& operator=(const Sqlite&) = delete;

  void Run(const char* statement) const { sqlite3_exec(db_, statement, nullptr, nullptr, nullptr); }
  sqlite3_stmt* Prepare(const char* text) const {
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(db_, text, -1, &statement, nullptr);
    return statement;
  }
  static int Step(sqlite3_stmt* statement, const QString& call) {
    const QByteArray key = call.toLatin1();
    sqlite3_bind_text(statement, 1, key.constData(), static_cast<int>(key.size()), SQLITE_TRANSIENT);
    const int result = sqlite3_step(statement);
    sqlite3_reset(statement);
    return result;
  }

 private:
  sqlite3* db_ = nullptr;
};

constexpr const char* kInsert =
    "INSERT INTO station VALUES (?1, 'Operator', '', '', 'Nowhere', '50.5', '10.25', '', '')";

// Writes both databases, with every second number as a record.
void Make(const QString& folder, int records) {
  QDir().mkpath(folder);
  QFile own(folder + u"/Omni-Perch-DB.db"_s);
  if (!own.open(QIODevice::WriteOnly)) return;
  for (int i = 0; i < records; ++i) {
    const DbRec record = Record(static_cast<quint32>(i) * 2);
    own.write(reinterpret_cast<const char*>(&record), sizeof(record));
  }
  // Closed before the peer's database is made, because a user's file has rested as well when it is searched.
  own.close();
  QFile::remove(folder + u"/peer.sqlite"_s);
  const Sqlite peer(folder);
  peer.Run(
      "CREATE TABLE station (call TEXT, name TEXT, add1 TEXT, add2 TEXT, ctry TEXT, lat TEXT, lon TEXT, class TEXT, "
      "born TEXT)");
  peer.Run("BEGIN");
  sqlite3_stmt* insert = peer.Prepare(kInsert);
  for (int i = 0; i < records; ++i) Sqlite::Step(insert, CallOf(static_cast<quint32>(i) * 2));
  sqlite3_finalize(insert);
  peer.Run("COMMIT");
  peer.Run("CREATE INDEX station_call ON station (call)");
}

int FindOwn(const QString& folder, int records) {
  CallDatabase database(folder);
  int found = 0;
  for (const QString& call : Calls(records)) found += database.FindRecord(call) > 0 ? 1 : 0;
  return found;
}

int FindPeer(const QString& folder, int records) {
  const Sqlite peer(folder);
  sqlite3_stmt* select = peer.Prepare("SELECT * FROM station WHERE call = ?1");
  int found = 0;
  for (const QString& call : Calls(records)) found += Sqlite::Step(select, call) == SQLITE_ROW ? 1 : 0;
  sqlite3_finalize(select);
  return found;
}

// What On Air Now asks of a station: its position.
int PlacesOwn(const QString& folder, int records) {
  CallDatabase database(folder);
  int placed = 0;
  for (const QString& call : Calls(records)) placed += database.LookupTargetLocation(call).TargetLat != 0 ? 1 : 0;
  return placed;
}

int PlacesPeer(const QString& folder, int records) {
  const Sqlite peer(folder);
  sqlite3_stmt* select = peer.Prepare("SELECT name, add1, add2, ctry, lat, lon FROM station WHERE call = ?1");
  int placed = 0;
  for (const QString& call : Calls(records)) {
    const QByteArray key = call.toLatin1();
    sqlite3_bind_text(select, 1, key.constData(), static_cast<int>(key.size()), SQLITE_TRANSIENT);
    if (sqlite3_step(select) == SQLITE_ROW) {
      TargetLocation place;
      const auto text = [select](int column) {
        return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(select, column)));
      };
      place.Name = text(0);
      place.Add1 = text(1);
      place.Add2 = text(2);
      place.Ctry = text(3);
      place.TargetLat = sqlite3_column_double(select, 4);
      place.TargetLon = sqlite3_column_double(select, 5);
      placed += place.TargetLat != 0 ? 1 : 0;
    }
    sqlite3_reset(select);
  }
  sqlite3_finalize(select);
  return placed;
}

// Calls that the database does not have, or has.
QStringList ChangedCalls(int records, bool added) {
  QRandomGenerator random(7);
  QStringList calls;
  for (int i = 0; i < kChanges; ++i) {
    calls += CallOf(random.bounded(static_cast<quint32>(records)) * 2 + (added ? 1 : 0));
  }
  return calls;
}

// An event loop that knows for how long an event has held it.
class TimedApplication : public QCoreApplication {
 public:
  using QCoreApplication::QCoreApplication;
  qint64 longest = 0;  // nanoseconds

  bool notify(QObject* receiver, QEvent* event) override {
    QElapsedTimer timer;
    timer.start();
    const bool result = QCoreApplication::notify(receiver, event);
    longest = std::max(longest, timer.nsecsElapsed());
    return result;
  }
};

// Looks up and saves one station after the other, each when the one before has been acknowledged, then sorts.
class Saver : public QObject {
 public:
  Saver(const QString& folder, const QStringList& calls) : database_(folder), calls_(calls) {}

  // Returns what it came to, as a line of the program's output.
  QByteArray Run(TimedApplication& app) {
    QElapsedTimer all;
    all.start();
    QMetaObject::invokeMethod(this, &Saver::Next, Qt::QueuedConnection);
    QCoreApplication::exec();
    const auto ms = [](qint64 nanoseconds) {
      return QByteArray::number(static_cast<double>(nanoseconds) / 1e6, 'f', 2);
    };
    return "ms=" + ms(all.nsecsElapsed()) + " count=" + QByteArray::number(saved_) + " slowest=" + ms(slowest_) +
           " loop=" + ms(app.longest);
  }

 private:
  void Next() {
    if (calls_.isEmpty()) return database_.SortDatabase(this, [](bool) { QCoreApplication::quit(); });
    const QString call = calls_.takeFirst();
    DbRec record = Record(0);
    record.Call = call;
    asked_.start();
    if (database_.FindRecord(call) > 0) record.Name = u"Another"_s;
    database_.SaveStation(call, record, this, [this](bool durable) {
      slowest_ = std::max(slowest_, asked_.nsecsElapsed());
      saved_ += durable ? 1 : 0;
      Next();
    });
  }

  CallDatabase database_;
  QStringList calls_;
  QElapsedTimer asked_;
  qint64 slowest_ = 0;
  int saved_ = 0;
};

int ChangePeer(const QString& folder, int records, bool added) {
  const Sqlite peer(folder);
  peer.Run("PRAGMA synchronous=FULL");
  sqlite3_stmt* select = peer.Prepare("SELECT * FROM station WHERE call = ?1");
  sqlite3_stmt* change = peer.Prepare(added ? kInsert : "UPDATE station SET name = 'Another' WHERE call = ?1");
  int changed = 0;
  for (const QString& call : ChangedCalls(records, added)) {
    Sqlite::Step(select, call);
    changed += Sqlite::Step(change, call) == SQLITE_DONE ? 1 : 0;
  }
  sqlite3_finalize(select);
  sqlite3_finalize(change);
  return changed;
}

int AddPeer(const QString& folder, int records) {
  return ChangePeer(folder, records, true);
}

int UpdatePeer(const QString& folder, int records) {
  return ChangePeer(folder, records, false);
}

// The longest time from the pointer's arrival on a cell to the tip's text.
void Tip(const QString& folder, int records) {
  Program program;
  program.AppDataDir = folder;
  program.config.MyLat = 52;
  program.config.MyLon = 5;
  CallDatabase database(folder);
  HoverTip tip(program, database);
  QRandomGenerator random(3);
  qint64 longest = 0;
  for (int i = 0; i < kTips; ++i) {
    program.page.Field(i % 2, Caller) = CallOf(random.bounded(static_cast<quint32>(records)) * 2);
    QElapsedTimer timer;
    timer.start();
    tip.Enter(i % 2, TipPart::Picture);
    longest = std::max(longest, timer.nsecsElapsed());
  }
  std::printf("tip_ms=%.3f\n", static_cast<double>(longest) / 1e6);
}

}  // namespace

int main(int argc, char** argv) {
  TimedApplication app(argc, argv);
  const QStringList arguments = QCoreApplication::arguments();
  if (arguments.size() != 4) return 2;
  const QString& job = arguments.at(1);
  const QString& folder = arguments.at(2);
  const int records = arguments.at(3).toInt();
  if (job == "make"_L1) {
    Make(folder, records);
    return 0;
  }
  if (job == "tip"_L1) {
    Tip(folder, records);
    return 0;
  }
  if (job == "add"_L1 || job == "update"_L1) {
    Saver saver(folder, ChangedCalls(records, job == "add"_L1));
    std::printf("%s\n", saver.Run(app).constData());
    return 0;
  }
  QElapsedTimer timer;
  timer.start();
  const QHash<QString, int (*)(const QString&, int)> jobs{{u"find"_s, FindOwn},     {u"find-peer"_s, FindPeer},
                                                          {u"places"_s, PlacesOwn}, {u"places-peer"_s, PlacesPeer},
                                                          {u"add-peer"_s, AddPeer}, {u"update-peer"_s, UpdatePeer}};
  if (!jobs.contains(job)) return 2;
  const int count = jobs.value(job)(folder, records);
  std::printf("ms=%.1f count=%d\n", static_cast<double>(timer.nsecsElapsed()) / 1e6, count);
  return 0;
}
