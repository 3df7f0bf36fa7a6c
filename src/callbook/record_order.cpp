// SPDX-License-Identifier: GPL-3.0-or-later
#include "callbook/record_order.h"

#include <algorithm>
#include <cstring>
#include <numeric>

#include "callbook/db_rec.h"

namespace {

constexpr int kCallWidth = 6;
constexpr double kShrink = 0.65;

quint64 CallKey(const char* record) {
  const QByteArrayView call = BlanksTrimmed(QByteArrayView(record, kCallWidth));
  quint64 key = 0;
  for (qsizetype i = 0; i < kCallWidth; ++i) {
    key = key << 8 | (i < call.size() ? static_cast<unsigned char>(call[i]) : 0U);
  }
  // The last byte is the length, which distinguishes a call from the same call with NULs behind it.
  return key << 8 | static_cast<quint64>(call.size());
}

}  // namespace

int CompareBytes(QByteArrayView a, QByteArrayView b) {
  const auto common = static_cast<std::size_t>(std::min(a.size(), b.size()));
  const int order = common == 0 ? 0 : std::memcmp(a.data(), b.data(), common);
  if (order != 0) return order;
  return a.size() < b.size() ? -1 : static_cast<int>(a.size() > b.size());
}

void AppendCallKeys(QByteArrayView records, std::vector<quint64>& keys) {
  for (qsizetype i = 0; i + kRecordSize <= records.size(); i += kRecordSize)
    keys.push_back(CallKey(records.data() + i));
}

std::optional<qsizetype> PlaceOfLast(const std::vector<quint64>& keys) {
  if (keys.empty()) return {};
  const auto last = keys.end() - 1;
  if (std::adjacent_find(keys.begin(), last, std::greater_equal<>()) != last) return {};
  const auto place = std::lower_bound(keys.begin(), last, *last);
  if (place != last && *place == *last) return {};
  return place - keys.begin();
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
