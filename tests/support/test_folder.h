// SPDX-License-Identifier: GPL-3.0-or-later
// A temporary folder whose files a test writes and reads whole.
#pragma once

#include <sys/stat.h>

#include "platform/text/text_file.h"
#include "test_suite.h"

// It goes with all that is in it.
struct TestFolder : QTemporaryDir {
  // Writes a whole file and returns its path.
  QString Put(const QString& name, const QByteArray& bytes) const {
    QString path = filePath(name);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) qFatal("A test file was not written.");
    return path;
  }
  // A whole file; "none" where it cannot be read.
  QByteArray Bytes(const QString& name) const { return ReadFileBytes(filePath(name)).value_or("none"_ba); }
  // The files of the folder itself, hidden ones too.
  QStringList Files() const { return QDir(path()).entryList(QDir::Files | QDir::Hidden); }
  // The rights of a file or folder, as chmod takes them; -1 where there is none.
  int Mode(const QString& name) const {
    struct stat info {};
    return stat(QFile::encodeName(filePath(name)).constData(), &info) == 0 ? static_cast<int>(info.st_mode & 07777)
                                                                           : -1;
  }
  // A folder where a program looks for a file: no user can open it as one, root included.
  void PutFolder(const QString& name) const {
    if (!QDir(path()).mkpath(name)) qFatal("A test folder was not made.");
  }
};
