// SPDX-License-Identifier: GPL-3.0-or-later
#include "callbook/redo_record.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QIODevice>

namespace {

constexpr QByteArrayView kMark = "Omni-Perch redo 1\n";
constexpr qsizetype kChecksum = 20;

QByteArray Checksum(QByteArrayView bytes) {
  QCryptographicHash hash(QCryptographicHash::Sha1);
  hash.addData(bytes);
  return hash.result();
}

}  // namespace

QByteArray RedoRecord::Bytes() const {
  QByteArray bytes = kMark.toByteArray();
  QDataStream stream(&bytes, QIODevice::Append);
  stream.setVersion(QDataStream::Qt_6_0);
  stream << inode << size << offset << before << after;
  return bytes + Checksum(bytes);
}

std::optional<RedoRecord> RedoRecord::Of(const QByteArray& bytes) {
  if (!bytes.startsWith(kMark)) return {};
  QDataStream stream(bytes);
  stream.setVersion(QDataStream::Qt_6_0);
  stream.skipRawData(static_cast<int>(kMark.size()));
  RedoRecord record;
  stream >> record.inode >> record.size >> record.offset >> record.before >> record.after;
  const qint64 end = stream.device()->pos();
  // A shorter record leaves the end of a longer one behind it.
  if (stream.status() != QDataStream::Ok || bytes.size() < end + kChecksum) return {};
  if (Checksum(QByteArrayView(bytes).first(end)) != QByteArrayView(bytes).sliced(end, kChecksum)) return {};
  return record;
}

bool RedoRecord::MayRepair(QByteArrayView present) const {
  // A disk that has the new length but not yet the bytes shows NULs.
  for (qsizetype i = 0; i < present.size(); ++i) {
    const char old = before.isEmpty() ? '\0' : before.at(i);
    if (present[i] != after.at(i) && present[i] != old) return false;
  }
  return before.isEmpty() || present.size() == after.size();
}
