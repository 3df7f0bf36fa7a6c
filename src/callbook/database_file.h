// SPDX-License-Identifier: GPL-3.0-or-later
// Writes the file of the call database. Only CallDatabase uses it, on one worker thread: each operation returns when
// what it has done is on the disk.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "callbook/call_reader.h"
#include "callbook/database_disk.h"
#include "callbook/db_rec.h"
#include "callbook/file_layout.h"
#include "callbook/redo_record.h"

// A record to be saved, and the call under which it is searched first.
struct StationRecord {
  QString call;
  DbRec record;
};

// What a deletion came to.
struct Deletion {
  bool durable = false;  // the file on the disk no longer has the call
  QList<DbRec> removed;  // in the order of the file
};

// The file is the only truth: a copy of it holds every record at any time. It is a sorted run and, behind it, a tail of
// added records that are not yet sorted in. A record is added or replaced in place: what is about to be written goes to
// the redo file first, so that a loss of power in the middle tears nothing. All else writes a new file and renames it.
// Each operation opens the files, does its work and closes them. Bytes behind the last whole record are kept at the end
// of the file. A file above 512 MiB can be searched, added to and sorted in, but nothing is deleted from it, and what
// others left out of order in it stays so. The operations return true if the file on the disk is now as they were asked
// to make it.
class DatabaseFile {
 public:
  DatabaseFile(const QString& appDataDir, std::shared_ptr<SharedLayout> layout, std::shared_ptr<DatabaseDisk> disk);

  // Repairs what an earlier run left when it was ended in the middle of a write, and learns how the records lie. Done
  // before the first change at the latest. False: there is no file.
  bool Know();
  // Whether an earlier run was ended before it had closed the file.
  bool WasInterrupted() const;
  // Sorts, and removes the redo file.
  bool Close();

  // The record replaces the call's record, or is added. A call that is too long for its field is never found, and gets
  // a further record each time. Makes the file if there is none.
  bool SaveStation(const QString& call, const DbRec& record);
  // Saves one by one if they are few, otherwise all or none of them, with one new file.
  bool SaveStations(const QList<StationRecord>& stations);

  // Adds records that a deletion has removed, several of one call, too, which SaveStations would make one.
  bool PutBack(const QList<DbRec>& removed);
  // Adds a record behind the last.
  bool AddRecord(const DbRec& record);
  // Replaces the record with that number in the file, from 1.
  bool UpdateRecord(qint64 numberInFile, const DbRec& record);
  bool SortDatabase();
  // Removes every record of the call.
  Deletion DeleteRecord(const QString& call);
  // The calls of all records, six bytes each, in the order of the sorted file; nothing if it cannot be read.
  std::optional<QByteArray> FillCallList();

 private:
  // Records by their number in the file, and what they become; nothing: they go.
  using Changes = std::map<qint64, std::optional<DbRec>>;
  // Takes bytes, one piece after the other; false: it failed.
  using Sink = std::function<bool(QByteArrayView)>;

  QString RedoPath() const { return appDataDir_ + QStringLiteral("/Omni-Perch-DB.redo"); }
  void Recover();
  // The layout of a file that is new here, or that somebody else has changed.
  void Read(const RecordReader& file);
  // Makes the file if it is missing; then as Know.
  bool KnowOrMake();
  // Sorts what others left out of order.
  bool Order() { return ordered_ || SortAll(); }
  void Forget();
  // Tells the readers, before a rename of the next layout, too.
  void Publish(const FileLayout* next = nullptr);

  bool Add(const DbRec& record);
  bool Update(qint64 numberInFile, const DbRec& record);
  bool WriteInPlace(const RedoRecord& redo);
  void TakeBack(DiskFile& file, const RedoRecord& redo);
  bool PutRedo(const RedoRecord& redo);
  void Repair(const RedoRecord& redo);

  // A new file: the run with changes, the tail and the added records in their places.
  bool Rewrite(const std::vector<DbRec>& added, const Changes& changes);
  bool CopyMerged(const RecordReader& file, const std::vector<DbRec>& added, const Changes& changes, const Sink& to);
  // What others left out of order, in the order in which earlier versions sorted it.
  bool SortAll();
  bool ReplaceBy(const QList<QByteArrayView>& pieces);
  // Puts a new file, whose records are in order, in place of the file that layout_ describes.
  bool Commit(ReplacingFile& file);

  QString appDataDir_;
  std::shared_ptr<SharedLayout> shared_;
  std::shared_ptr<DatabaseDisk> disk_;
  CallReader reader_;
  std::optional<FileLayout> layout_;  // nothing: unknown
  bool ordered_ = true;               // the run is in order; false: others left it otherwise
  bool recovered_ = false;
  bool resuming_ = false;      // an earlier run was ended before it had sorted
  bool redo_ = false;          // there is a redo file
  bool folderSynced_ = false;  // the names of both files are on the disk
};
