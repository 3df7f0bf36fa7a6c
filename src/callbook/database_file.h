// SPDX-License-Identifier: GPL-3.0-or-later
// The file of the local call database: one flat file of records sorted by call, searched on the disk, with its told
// operations one by one. Only CallDatabase uses it.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <array>
#include <optional>
#include <vector>

#include "callbook/db_rec.h"

// A record that a search has found.
struct FoundRecord {
  int number = 0;  // from 1
  DbRec record;
};

class RecordReader;

// The database file. Each operation opens the file, does its work and closes it, so that the file may be copied or
// replaced in between. An operation that cannot read or write does nothing and leaves DbCurrent as it is. Bytes behind
// the last whole record belong to no record; they are kept at the end of the file. A file above 512 MiB can be searched
// and added to, but nothing is deleted from it, and it stays unsorted unless only its last record is out of order.
class DatabaseFile {
 public:
  explicit DatabaseFile(QString appDataDir);

  // Work record of all operations: what FindRecord found, what AddRecord and UpdateRecord write.
  DbRec DbCurrent;

  // Returns the record's number, from 1, and puts the record into DbCurrent; without a record returns 0 and clears
  // DbCurrent. Makes an empty file if there is none. A call of more than six characters is never found, because a
  // record holds six.
  int FindRecord(const QString& call);
  void ClearRecord() { DbCurrent = DbRec(); }
  // The writers return true if the file now is as they were asked to make it. To save a station use SaveStation.
  bool AddRecord();
  bool UpdateRecord(int number);
  bool SortDatabase();
  // Removes every record of the call. Afterwards DbCurrent holds the last record of the old file.
  bool DeleteRecord(const QString& call);
  // The file's length divided by that of a record, rounded to the nearest integer: half a record at the end counts, as
  // DeleteRecord counts it.
  int RecordCount() const;
  // Fills a list with the trimmed calls in the file's order; without a file leaves the list alone and returns false.
  // Leaves the last record in DbCurrent.
  bool FillCallList(QStringList& list);

  QString Path() const;
  // The record of a call and its number, by FindRecord.
  std::optional<FoundRecord> Find(const QString& call);
  // Saves a station: the record replaces the call's record, or is added and sorted in. A call that is too long for its
  // field is never found, and gets a further record each time.
  bool SaveStation(const QString& call, const DbRec& record);

 private:
  // A part of a new file: some bytes, followed by a stretch of the old file.
  struct Piece {
    QByteArrayView bytes;
    qint64 start = 0;
    qint64 size = 0;
  };

  // Replaces the file by the pieces, one after the other; on a failure the old file stays whole.
  bool Save(const QList<Piece>& pieces) const;

  // The records in the upper levels of the binary search, which every search passes. Valid while the file has the same
  // inode, size and times, and was last changed long enough ago for its times to show a later change.
  struct Beginning {
    std::array<qint64, 6> file{};  // device, inode, size, seconds and nanoseconds of the last change, number of records
    // By place in the tree of halves: 1 is the middle record, 2 and 3 the middles of the halves, ...
    std::vector<DbRec> records;
    std::vector<bool> known;  // whether that record has been read
  };
  // The remembered records of the file that is open here; nullptr if its times cannot be trusted yet.
  Beginning* BeginningOf(const RecordReader& file);

  QString appDataDir_;
  Beginning beginning_;
  QByteArray exactPath_;  // the file's path in its usual spelling, encoded for the system calls
};
