// SPDX-License-Identifier: GPL-3.0-or-later
// Takes from a process the right to files, where the kernel has rules for that (Landlock). The sandboxes of the
// programs that handle strangers' bytes call it.
#pragma once

#include <QByteArray>
#include <QList>

// What stays allowed with one file, or with everything below one folder.
struct FileGrant {
  enum class Right { Read, ReadAndRun, Write };  // Write: read, write, create, remove, and control where it is a device
  QByteArray path;
  Right right = Right::Read;
};

// Refuses every other use of files, in the calling thread and in all threads and processes that it starts later. A
// second call can only take more. Paths that do not exist are passed over. False where the kernel has no such rules.
bool RestrictFiles(const QList<FileGrant>& grants);
