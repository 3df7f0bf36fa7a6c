// SPDX-License-Identifier: GPL-3.0-or-later
#include "callbook/file_layout.h"

#include <algorithm>

FileStamp FileStamp::Of(const struct stat& status) {
  return {static_cast<quint64>(status.st_dev), static_cast<quint64>(status.st_ino), status.st_size,
          status.st_ctim.tv_sec, status.st_ctim.tv_nsec};
}

bool FileLayout::Describes(const FileStamp& file) const {
  if (!writing) return file == stamp;
  return file.device == stamp.device && file.inode == stamp.inode && file.size >= stamp.size && file.size <= largest;
}

void FileLayout::Append(quint64 key) {
  const auto number = run + static_cast<qint64>(tail.size()) + 1;
  const auto place = std::upper_bound(tail.begin(), tail.end(), key,
                                      [](quint64 wanted, const TailRecord& record) { return wanted < record.key; });
  tail.insert(place, {key, number});
}
