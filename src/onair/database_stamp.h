// SPDX-License-Identifier: GPL-3.0-or-later
// Tells whether the call database may have changed, so that what was found in it, and what was not, can be remembered.
// The lists of this folder ask it before they look their stations up anew.
#pragma once

#include <QDateTime>
#include <QString>

// One asker's memory of the file. Serves one thread.
class DatabaseStamp {
 public:
  // Whether the file is another than at the last call, or was written too short a time before it to tell.
  bool HasChanged(const QString& appDataDir);

 private:
  QDateTime changed_;  // invalid: the file may change without a trace
  qint64 size_ = 0;
};
