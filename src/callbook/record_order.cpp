// SPDX-License-Identifier: GPL-3.0-or-later
#include "callbook/record_order.h"

#include <algorithm>
#include <cstring>
#include <numeric>

namespace {

constexpr qsizetype kCallWidth = 6;
constexpr double kShrink = 0.65;

void Append(QByteArray& bytes, std::span<const DbRec> records) {
  bytes.append(reinterpret_cast<const char*>(records.data()), static_cast<qsizetype>(records.size_bytes()));
}

}  // namespace

int CompareBytes(QByteArrayView a, QByteArrayView b) {
  const auto common = static_cast<std::size_t>(std::min(a.size(), b.size()));
  const int order = common == 0 ? 0 : std::memcmp(a.data(), b.data(), common);
  if (order != 0) return order;
  return a.size() < b.size() ? -1 : static_cast<int>(a.size() > b.size());
}

quint64 CallKey(QByteArrayView call) {
  const QByteArrayView trimmed = BlanksTrimmed(call.first(std::min(call.size(), kCallWidth)));
  quint64 key = 0;
  for (qsizetype i = 0; i < kCallWidth; ++i) {
    key = key << 8 | (i < trimmed.size() ? static_cast<unsigned char>(trimmed[i]) : 0U);
  }
  // The last byte is the length, which distinguishes a call from the same call with NULs behind it.
  return key << 8 | static_cast<quint64>(trimmed.size());
}

std::optional<quint64> CallKeyOf(QByteArrayView call) {
  if (call.size() > kCallWidth) return {};
  return CallKey(call);
}

void AppendCallKeys(QByteArrayView records, std::vector<quint64>& keys) {
  for (qsizetype i = 0; i + kRecordSize <= records.size(); i += kRecordSize) keys.push_back(CallKey(records.sliced(i)));
}

QByteArray SortRecords(QByteArrayView records, std::vector<quint64> keys) {
  std::vector<std::size_t> order(keys.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  const auto smaller = [](std::size_t gap) { return static_cast<std::size_t>(static_cast<double>(gap + 1) * kShrink); };
  for (std::size_t gap = smaller(keys.size()); gap > 1; gap = smaller(gap)) {
    for (std::size_t i = 0; i + gap < keys.size(); ++i) {
      if (keys[i] <= keys[i + gap]) continue;
      std::swap(keys[i], keys[i + gap]);
      std::swap(order[i], order[i + gap]);
    }
  }
  // The comb sort ends with passes at gap 1 until nothing is swapped, which keeps the order of equal calls. A stable
  // sort gives the same result, but its time does not depend on the order in the file.
  std::vector<std::size_t> places(keys.size());
  std::iota(places.begin(), places.end(), std::size_t{0});
  std::stable_sort(places.begin(), places.end(), [&keys](std::size_t a, std::size_t b) { return keys[a] < keys[b]; });

  QByteArray sorted(records.size(), Qt::Uninitialized);
  char* to = sorted.data();
  for (const std::size_t place : places) {
    std::memcpy(to, records.data() + static_cast<qsizetype>(order[place]) * kRecordSize, kRecordSize);
    to += kRecordSize;
  }
  return sorted;
}

RecordMerge::RecordMerge(std::vector<DbRec> added) : added_(std::move(added)) {
  std::stable_sort(added_.begin(), added_.end(),
                   [](const DbRec& a, const DbRec& b) { return CallKey(a.Call.Bytes()) < CallKey(b.Call.Bytes()); });
}

QByteArray RecordMerge::Take(std::span<const DbRec> block) {
  QByteArray bytes;
  bytes.reserve(static_cast<qsizetype>(block.size_bytes()) + kRecordSize);
  for (; next_ < added_.size() && !block.empty(); ++next_) {
    const auto smaller = [](quint64 key, const DbRec& record) { return key < CallKey(record.Call.Bytes()); };
    const auto place = std::upper_bound(block.begin(), block.end(), CallKey(added_[next_].Call.Bytes()), smaller);
    // It may go behind records of the next block, too.
    if (place == block.end()) break;
    const auto before = static_cast<std::size_t>(place - block.begin());
    Append(bytes, block.first(before));
    Append(bytes, std::span(added_).subspan(next_, 1));
    block = block.subspan(before);
  }
  Append(bytes, block);
  return bytes;
}

QByteArray RecordMerge::Rest() {
  QByteArray bytes;
  Append(bytes, std::span(added_).subspan(next_));
  next_ = added_.size();
  return bytes;
}
