// SPDX-License-Identifier: GPL-3.0-or-later
// Searches the file of the call database, on the disk, without an index. CallDatabase is one for the event loop's
// thread; whoever looks up thousands of calls beside the event loop takes a CallReader of its own.
#pragma once

#include <QByteArray>
#include <QString>
#include <array>
#include <memory>
#include <optional>
#include <vector>

#include "callbook/db_rec.h"
#include "callbook/file_layout.h"

// Place, name and address of a station as the database has them; all empty if it does not have the call.
struct TargetLocation {
  bool InDatabase = false;
  double TargetLat = 0;  // degrees; exactly 0 is unknown
  double TargetLon = 0;
  QString Name;
  QString Add1;
  QString Add2;
  QString Ctry;
};

// A record that a search has found.
struct FoundRecord {
  int number = 0;  // from 1
  DbRec record;
};

class RecordReader;

// Each search opens the file, does its work and closes it, so that the file may be copied or replaced in between. It
// finds what was added but not yet sorted in, and counts as if it were. A search that cannot read the file finds
// nothing and leaves DbCurrent as it is. Bytes behind the last whole record belong to no record. One object serves one
// thread; copies search the same file.
class CallReader {
 public:
  CallReader(const QString& appDataDir, std::shared_ptr<const SharedLayout> layout);

  // Work record: what FindRecord found.
  DbRec DbCurrent;

  // Returns the record's number, from 1, and puts the record into DbCurrent; without a record returns 0 and clears
  // DbCurrent. Makes an empty file if there is none. A call of more than six characters is never found, because a
  // record holds six. A number holds until the next change.
  int FindRecord(const QString& call);
  void ClearRecord() { DbCurrent = DbRec(); }
  // The record of a call and its number, by FindRecord.
  std::optional<FoundRecord> Find(const QString& call);
  // The place of a call, whose zeros may be slashed. Uses FindRecord.
  TargetLocation LookupTargetLocation(const QString& call);
  // The file's length divided by that of a record, rounded to the nearest integer: half a record at the end counts, as
  // DeleteRecord counts it.
  int RecordCount() const;
  // The path of the file, in whatever case its name is spelled.
  QString Path() const;
  // Where in the file the record lies that FindRecord found, from 1.
  qint64 NumberInFile() const { return numberInFile_; }

 private:
  // The records in the upper levels of the binary search, which every search passes. Valid while the file has the same
  // inode, size and times, and was last changed long enough ago for its times to show a later change.
  struct Beginning {
    FileStamp file;
    qint64 count = 0;
    // By place in the tree of halves: 1 is the middle record, 2 and 3 the middles of the halves, ...
    std::vector<DbRec> records;
    std::vector<bool> known;  // whether that record has been read
  };
  // The remembered records of the file that is open here; nullptr if its times cannot be trusted yet.
  Beginning* BeginningOf(const RecordReader& file);
  // Looks for the call among the records behind the run. Number as if sorted; 0 if it is not there.
  int FindInTail(const RecordReader& file, const FileLayout& layout, quint64 key);
  // Bisects the run. Number in the run; 0 if it is not there.
  int FindInRun(const RecordReader& file, QByteArrayView call, QByteArrayView wanted);

  QString appDataDir_;
  std::shared_ptr<const SharedLayout> layout_;
  Beginning beginning_;
  qint64 numberInFile_ = 0;
  QByteArray exactPath_;  // the file's path in its usual spelling, encoded for the system calls
};
