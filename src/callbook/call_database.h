// SPDX-License-Identifier: GPL-3.0-or-later
// The local call database: one flat file of records sorted by call, searched on the disk. Whoever places or greets a
// station reads here first; the lookup, the editor and the site windows write.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <array>
#include <optional>
#include <vector>

#include "callbook/db_rec.h"

// Where a station is, as far as the database knows; all empty where it does not.
struct TargetLocation {
  bool InDatabase = false;
  double TargetLat = 0;  // degrees; exactly 0 is unknown
  double TargetLon = 0;
  QString Name;
  QString Add1;
  QString Add2;
  QString Ctry;
};

// A record of the file as a search has found it.
struct FoundRecord {
  int number = 0;  // from 1
  DbRec record;
};

// Each operation opens the file, does its work and closes it, so that the file may be copied or replaced in between.
// One that cannot read or write is passed over and leaves DbCurrent as it stands. Bytes behind the last whole record
// are nobody's; they stay where they are, behind all records. A file above 512 MiB can be searched and added to, but
// nothing is deleted there, and one that is unsorted beyond its last record stays so.
class RecordReader;

class CallDatabase {
 public:
  explicit CallDatabase(QString appDataDir);

  // Work record of all operations: what FindRecord found, what AddRecord and UpdateRecord write.
  DbRec DbCurrent;

  // Record number from 1, the record in DbCurrent; 0 where there is none, DbCurrent cleared. Makes an empty file where
  // there was none. A call of more than six characters is never found, as its record holds six.
  int FindRecord(const QString& call);
  void ClearRecord() { DbCurrent = DbRec(); }
  // The writers answer whether the file now is as they want it. To save a station there is SaveStation.
  bool AddRecord();
  bool UpdateRecord(int number);
  bool SortDatabase();
  // Removes every record of the call; DbCurrent holds the last record of the old file.
  bool DeleteRecord(const QString& call);
  // Of the file's length, rounded to the nearest: half a record at the end counts, as DeleteRecord counts it.
  int RecordCount() const;
  // Trimmed calls in the file's order; without a file the list stays as it is. Leaves the last record in DbCurrent.
  bool FillCallList(QStringList& list);

  // The record of a call and its number, by FindRecord.
  std::optional<FoundRecord> Find(const QString& call);
  // The usual sequence of all who save a station: the record takes the place of the call's, or is sorted in. A call
  // that is too long for its field is never found, and gets a further record each time. May be called beside the event
  // loop; DbCurrent stays as it is.
  bool SaveStation(const QString& call, const DbRec& record) const;

  // By FindRecord; a zero may be slashed.
  TargetLocation LookupTargetLocation(const QString& call);

 private:
  // A part of a new file: bytes at hand, and behind them a stretch of the old file.
  struct Piece {
    QByteArrayView bytes;
    qint64 start = 0;
    qint64 size = 0;
  };

  QString Path() const;
  // Writes the pieces one behind the other: the new file or the old one, never a torn one.
  bool Save(const QList<Piece>& pieces) const;

  // The records that every search begins with, as long as the file is the one that they were read from: a file that has
  // its inode, size and times, and has rested long enough for its times to tell.
  struct Beginning {
    std::array<qint64, 6> file{};  // device, inode, size, seconds and nanoseconds of its change, records
    std::vector<DbRec> records;    // by place in the tree of halves: 1, then 2 and 3, ...
    std::vector<bool> known;       // whether that record has been read
  };
  // The beginning of the tree for the file open here; nullptr where it may not be trusted.
  Beginning* BeginningOf(const RecordReader& file);

  QString appDataDir_;
  Beginning beginning_;
  QByteArray exactPath_;  // of the usual spelling, as the system takes it
};
