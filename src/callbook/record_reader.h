// SPDX-License-Identifier: GPL-3.0-or-later
// Reads records of the call database's file by number. Searches and the writer use it, each for one operation.
#pragma once

#include <QByteArray>
#include <span>

#include "callbook/db_rec.h"
#include "callbook/file_layout.h"

// The open file. Unbuffered: a buffer would turn a few small reads into larger, slower ones.
class RecordReader {
 public:
  explicit RecordReader(const QByteArray& path);
  ~RecordReader();
  RecordReader(const RecordReader&) = delete;
  RecordReader& operator=(const RecordReader&) = delete;

  bool IsReadable() const { return readable_; }
  const FileStamp& Stamp() const { return stamp_; }
  // Whole records.
  qint64 Count() const { return count_; }
  // Takes the layout into account, which must be that of the file and stay unchanged meanwhile: the file then has as
  // many records, and one that is just being replaced is read as the new one.
  void Follow(const FileLayout& layout);
  // Beyond the end of the file gives a record of NULs, which equals no call.
  DbRec Read(qint64 number) const;
  // Fills block with the records from number `first` on; beyond the end of the file with NULs. Returns how many are
  // records of the file.
  std::size_t ReadBlock(qint64 first, std::span<DbRec> block) const;
  // Fills bytes from the offset on; false if the file has not that many.
  bool ReadBytes(qint64 offset, QByteArray& bytes) const;

 private:
  int file_;
  bool readable_ = false;
  FileStamp stamp_;
  qint64 count_ = 0;
  const FileLayout* layout_ = nullptr;
};
