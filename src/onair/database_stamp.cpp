// SPDX-License-Identifier: GPL-3.0-or-later
#include "onair/database_stamp.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

bool DatabaseStamp::HasChanged(const QString& appDataDir) {
  constexpr int kRestSeconds = 2;
  const QFileInfo file(appDataDir + u"/Omni-Perch-DB.db"_s);
  const QDateTime changed = file.lastModified();
  // A file that has just been written may be written again in the same tick of its clock.
  const bool rested = changed.isValid() && changed.addSecs(kRestSeconds) < QDateTime::currentDateTime();
  const bool same = rested && changed == changed_ && file.size() == size_;
  changed_ = rested ? changed : QDateTime();
  size_ = file.size();
  return !same;
}
