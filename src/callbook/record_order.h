// SPDX-License-Identifier: GPL-3.0-or-later
// The order of the call database's records, in memory: sort keys of calls, the sorting of a whole file, and the merging
// of added records into a sorted one. Only the database calls it.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <optional>
#include <span>
#include <vector>

#include "callbook/db_rec.h"

// Negative, 0 or positive, by plain comparison of bytes; a text is smaller than a longer one that begins with it.
int CompareBytes(QByteArrayView a, QByteArrayView b);

// The sort key of a record's call or of a record that begins with it; keys compare as the trimmed calls do.
quint64 CallKey(QByteArrayView call);
// The same of a trimmed call; nothing if it is too long for a record.
std::optional<quint64> CallKeyOf(QByteArrayView call);
// Appends a sort key for each whole record.
void AppendCallKeys(QByteArrayView records, std::vector<quint64>& keys);
// The records sorted by key. Records of one call come in the order in which the comb sort of earlier versions left
// them.
QByteArray SortRecords(QByteArrayView records, std::vector<quint64> keys);

// Merges added records into records in order, block by block. A record goes behind those of the same call.
class RecordMerge {
 public:
  explicit RecordMerge(std::vector<DbRec> added);

  // The bytes of the next records in order, with the added ones between them.
  QByteArray Take(std::span<const DbRec> block);
  // The bytes of the added records that go behind all others.
  QByteArray Rest();

 private:
  std::vector<DbRec> added_;
  std::size_t next_ = 0;
};
