// SPDX-License-Identifier: GPL-3.0-or-later
#include "callbook/record_reader.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <limits>

RecordReader::RecordReader(const QByteArray& path)
    : file_(::open(path.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {
  struct stat status {};
  if (file_ < 0 || ::fstat(file_, &status) != 0 || !S_ISREG(status.st_mode)) return;
  readable_ = true;
  stamp_ = FileStamp::Of(status);
  count_ = std::min<qint64>(stamp_.size / kRecordSize, std::numeric_limits<int>::max());
}

RecordReader::~RecordReader() {
  if (file_ >= 0) ::close(file_);
}

void RecordReader::Follow(const FileLayout& layout) {
  layout_ = &layout;
  count_ = layout.run;
}

DbRec RecordReader::Read(qint64 number) const {
  DbRec record;
  ReadBlock(number, std::span(&record, 1));
  return record;
}

std::size_t RecordReader::ReadBlock(qint64 first, std::span<DbRec> block) const {
  const ssize_t got = ::pread(file_, block.data(), block.size_bytes(), (first - 1) * kRecordSize);
  // A record that the file ends in the middle of does not count.
  const auto whole = static_cast<std::size_t>(std::max<ssize_t>(got, 0) / kRecordSize);
  std::memset(static_cast<void*>(block.data() + whole), 0, (block.size() - whole) * sizeof(DbRec));
  if (layout_ == nullptr || !layout_->beingWritten) return whole;
  const qint64 place = *layout_->beingWritten - first;
  if (place >= 0 && place < static_cast<qint64>(block.size()))
    block[static_cast<std::size_t>(place)] = layout_->written;
  return whole;
}

bool RecordReader::ReadBytes(qint64 offset, QByteArray& bytes) const {
  return ::pread(file_, bytes.data(), static_cast<std::size_t>(bytes.size()), offset) == bytes.size();
}
