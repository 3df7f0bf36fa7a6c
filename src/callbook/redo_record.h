// SPDX-License-Identifier: GPL-3.0-or-later
// The redo file of the call database. Before 167 bytes of the database are written in place, the redo file says which,
// so that a record that a loss of power tears can be made whole. DatabaseFile writes and repairs with it.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <optional>

// What is about to be written to the database.
struct RedoRecord {
  quint64 inode = 0;  // of the database file
  qint64 size = 0;    // of that file before the write
  qint64 offset = 0;  // where the record is written; equal to the size: it is added
  QByteArray before;  // the record's old bytes; empty if it is added
  QByteArray after;   // its new bytes; empty: nothing is about to be written

  // At most 512 bytes, which a disk writes whole or not at all, with a checksum.
  QByteArray Bytes() const;
  // Nothing if the bytes are not those of a record: its own writing was cut off, and the database is untouched.
  static std::optional<RedoRecord> Of(const QByteArray& bytes);
  // Whether `present`, which the file has at the offset (less than a record at its end), is the old or the new record
  // or a mixture of the two. Anything else was written by somebody else, and is not touched.
  bool MayRepair(QByteArrayView present) const;
};
