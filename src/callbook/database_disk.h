// SPDX-License-Identifier: GPL-3.0-or-later
// How the call database writes to the disk: the few steps whose order decides what a loss of power leaves. DatabaseFile
// writes through it; a test puts a disk in its place that ends the writer at one of the steps.
#pragma once

#include <QByteArrayView>
#include <QString>
#include <memory>

#include "callbook/file_layout.h"

// A file that is written in place. Each step returns false if it failed or was done in part only.
class DiskFile {
 public:
  virtual ~DiskFile() = default;
  virtual bool Write(qint64 offset, QByteArrayView bytes) = 0;
  virtual bool Resize(qint64 size) = 0;
  virtual bool Sync() = 0;
  virtual FileStamp Stamp() const = 0;
};

// A new file that takes the place of another when it is complete; without Commit it goes again.
class ReplacingFile {
 public:
  virtual ~ReplacingFile() = default;
  virtual bool Write(QByteArrayView bytes) = 0;
  virtual bool Sync() = 0;
  virtual FileStamp Stamp() const = 0;
  // Renames it. On the disk that counts only when the folder has been synced.
  virtual bool Commit() = 0;
};

// The steps on files of one folder.
class DatabaseDisk {
 public:
  virtual ~DatabaseDisk() = default;
  // nullptr if it is no file or cannot be written; create: makes it if it is missing.
  virtual std::unique_ptr<DiskFile> Open(const QString& path, bool create) = 0;
  virtual std::unique_ptr<ReplacingFile> Replace(const QString& path) = 0;
  virtual bool Remove(const QString& path) = 0;
  // Puts the names in the folder of the file on the disk.
  virtual bool SyncFolderOf(const QString& path) = 0;

  // The disk of the machine.
  static std::shared_ptr<DatabaseDisk> Real();
};
