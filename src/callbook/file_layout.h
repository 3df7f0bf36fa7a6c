// SPDX-License-Identifier: GPL-3.0-or-later
// How the records lie in the file of the call database: a sorted run, behind it a tail of added records in order of
// arrival. The one writer (DatabaseFile) publishes it, the readers (CallReader) search by it, each on its own thread.
#pragma once

#include <sys/stat.h>

#include <optional>
#include <shared_mutex>
#include <vector>

#include "callbook/db_rec.h"

// Tells one file and one state of it from others.
struct FileStamp {
  quint64 device = 0;
  quint64 inode = 0;
  qint64 size = 0;
  qint64 seconds = 0;  // of the last change, of content or name
  qint64 nanoseconds = 0;

  static FileStamp Of(const struct stat& status);
  bool operator==(const FileStamp&) const = default;
};

// A record behind the sorted run.
struct TailRecord {
  quint64 key = 0;    // CallKey
  qint64 number = 0;  // in the file, from 1
};

// The layout of one file.
struct FileLayout {
  FileStamp stamp;
  qint64 largest = 0;                  // size that the file may reach in the write that is under way
  bool writing = false;                // the time of the last change and the size may be any from the stamp's on
  qint64 run = 0;                      // records in order, at the beginning of the file
  std::vector<TailRecord> tail;        // by key; equal keys in order of arrival
  std::optional<qint64> beingWritten;  // number in the file of a record whose bytes are just being replaced
  DbRec written;                       // what it is replaced by

  // Whether this is the layout of the file: nobody else has changed or replaced it.
  bool Describes(const FileStamp& file) const;
  // Adds a record to the tail.
  void Append(quint64 key);
};

// What readers know of the file. Of two layouts one is that of a new file which is just being renamed onto the old one.
struct SharedLayout {
  mutable std::shared_mutex mutex;  // never held during a write or a sync
  std::vector<FileLayout> layouts;
};
