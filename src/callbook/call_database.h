// SPDX-License-Identifier: GPL-3.0-or-later
// The local call database: one flat file of records sorted by call. Tips, maps and the lookup look a station up here
// first; the lookup, the database editor and the site windows write to it. Services owns the only one.
#pragma once

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QString>
#include <QThreadPool>
#include <QTimer>
#include <functional>

#include "callbook/call_reader.h"
#include "callbook/database_file.h"

// The calls of all records in the order of the file, six bytes each, so that 100,000 of them take little memory.
class CallList {
 public:
  CallList() = default;
  explicit CallList(QByteArray calls) : calls_(std::move(calls)) {}

  int Count() const { return static_cast<int>(calls_.size() / kCallSize); }
  // The trimmed call; index from 0.
  QString Call(int index) const;
  // Index of the first call that does not sort before the text; Count() if all do.
  int FirstNotBefore(const QString& text) const;

 private:
  static constexpr qsizetype kCallSize = 6;
  QByteArray calls_;
};

// The database. Searches are answered at once and see every change that has been acknowledged. Changes are carried out
// one after the other by a thread of their own. The answer says whether the change is on the disk, where no crash and
// no loss of power undoes it; it comes on the event loop of `context`, unless that is gone by then. A change without
// `then` is carried out all the same. Serves the event loop's thread.
class CallDatabase : public CallReader {
 public:
  explicit CallDatabase(const QString& appDataDir, const std::shared_ptr<DatabaseDisk>& disk = DatabaseDisk::Real());
  ~CallDatabase();  // carries out what has been asked for, and sorts

  // Repairs and sorts what an earlier run left when it was ended in the middle of a change. To be called once, when no
  // other instance can use the file.
  void Begin();
  // Waits until all that has been asked for is done and sorted; false if any change since the last call failed. Holds
  // the event loop: for closing, tests and benches.
  bool Finish();

  // Searches the same file, for another thread or for a long job beside the event loop; may outlive the database.
  CallReader Reader() const { return *this; }

  // What a change is answered with: whether it is on the disk.
  using Saved = std::function<void(bool durable)>;
  // Saves a station: the record replaces the call's record, or is added. A call that is too long for its field is never
  // found, and gets a further record each time.
  void SaveStation(const QString& call, const DbRec& record, QObject* context = nullptr, const Saved& then = {});
  // Saves many stations with one pass over the file.
  void SaveStations(const QList<StationRecord>& stations, QObject* context = nullptr, const Saved& then = {});
  // Removes every record of the call.
  void DeleteRecord(const QString& call, QObject* context = nullptr,
                    const std::function<void(const Deletion&)>& then = {});
  // Adds the records that a deletion has removed.
  void PutBack(const QList<DbRec>& removed, QObject* context = nullptr, const Saved& then = {});
  // Brings the file into order. Needed only before the file is copied: searches see it in order at any time.
  void SortDatabase(QObject* context = nullptr, const Saved& then = {});
  // The calls of all records; empty if the file cannot be read.
  void FillCallList(QObject* context, const std::function<void(const CallList&)>& then);

 private:
  // Runs work on the thread, then then(result) on the event loop of context.
  template <typename Result>
  void Run(const std::function<Result()>& work, QObject* context, const std::function<void(const Result&)>& then);
  // Runs a change, and remembers a failure for Finish.
  void Change(const std::function<bool()>& work, QObject* context, const Saved& then);

  CallDatabase(const QString& appDataDir, const std::shared_ptr<DatabaseDisk>& disk,
               const std::shared_ptr<SharedLayout>& layout);

  DatabaseFile file_;       // on the worker thread
  bool allWritten_ = true;  // on the worker thread
  QTimer rest_;             // runs since the last change
  QObject answers_;         // lives on the event loop; answers that come after it are dropped
  QThreadPool worker_;
};
