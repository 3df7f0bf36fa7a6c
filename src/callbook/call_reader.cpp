// SPDX-License-Identifier: GPL-3.0-or-later
#include "callbook/call_reader.h"

#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <cmath>
#include <ctime>
#include <limits>
#include <span>

#include "callbook/record_order.h"
#include "callbook/record_reader.h"
#include "platform/paths.h"

using namespace Qt::StringLiterals;

namespace {

constexpr std::size_t kBeginning = 4096;  // remembered records: the first twelve steps of a search
constexpr qint64 kBlock = 31;             // records read at once for the last five steps of a search
constexpr qint64 kRest = 2;               // seconds without a change before a file's times are trusted

QString FileName() {
  return u"Omni-Perch-DB.db"_s;
}

// How many records of the run have at most this key.
qint64 RankInRun(const RecordReader& file, quint64 key) {
  qint64 low = 0;
  qint64 high = file.Count();
  while (low < high) {
    const qint64 middle = low + (high - low) / 2;
    if (CallKey(file.Read(middle + 1).Call.Bytes()) <= key) {
      low = middle + 1;
    } else {
      high = middle;
    }
  }
  return low;
}

auto FirstOf(const FileLayout& layout, quint64 key) {
  return std::lower_bound(layout.tail.begin(), layout.tail.end(), key,
                          [](const TailRecord& record, quint64 wanted) { return record.key < wanted; });
}

}  // namespace

CallReader::CallReader(const QString& appDataDir, std::shared_ptr<const SharedLayout> layout)
    : appDataDir_(appDataDir),
      layout_(std::move(layout)),
      exactPath_(QFile::encodeName(appDataDir_ + u'/' + FileName())) {}

QString CallReader::Path() const {
  return ResolvePath(appDataDir_, FileName());
}

CallReader::Beginning* CallReader::BeginningOf(const RecordReader& file) {
  timespec now{};
  ::clock_gettime(CLOCK_REALTIME_COARSE, &now);
  // Two changes within one tick of the system's clock leave the same time, so what was read from a file that young is
  // not remembered.
  if (now.tv_sec - file.Stamp().seconds < kRest) return nullptr;
  if (beginning_.file != file.Stamp() || beginning_.count != file.Count()) {
    beginning_.file = file.Stamp();
    beginning_.count = file.Count();
    beginning_.records.assign(kBeginning, DbRec());
    beginning_.known.assign(kBeginning, false);
  }
  return &beginning_;
}

int CallReader::FindRecord(const QString& call) {
  // Held for the whole search, so that no record is overwritten while it is read. The writer takes it only to say what
  // it is about to write, never while it writes.
  const std::shared_lock lock(layout_->mutex);
  std::optional<RecordReader> file(exactPath_);
  if (!file->IsReadable()) {
    QFile other(Path());
    if (!other.exists() && !other.open(QIODevice::NewOnly)) return 0;
    file.emplace(QFile::encodeName(other.fileName()));
    if (!file->IsReadable()) return 0;
  }
  const QByteArray bytes = AnsiBytes(call);
  const QByteArrayView wanted = BlanksTrimmed(bytes);
  const auto layout = std::find_if(layout_->layouts.begin(), layout_->layouts.end(),
                                   [&file](const FileLayout& known) { return known.Describes(file->Stamp()); });
  int before = 0;  // records of the tail that sort before the call
  if (layout != layout_->layouts.end()) {
    file->Follow(*layout);
    if (const std::optional<quint64> key = CallKeyOf(wanted)) {
      if (const int number = FindInTail(*file, *layout, *key)) return number;
      before = static_cast<int>(FirstOf(*layout, *key) - layout->tail.begin());
    }
  }
  if (const int number = FindInRun(*file, bytes, wanted)) return number + before;
  ClearRecord();
  return 0;
}

int CallReader::FindInTail(const RecordReader& file, const FileLayout& layout, quint64 key) {
  const auto found = FirstOf(layout, key);
  if (found == layout.tail.end() || found->key != key) return 0;
  const DbRec record = file.Read(found->number);
  // A change by another program may have left the times of the file as they were.
  if (CallKey(record.Call.Bytes()) != key) return 0;
  DbCurrent = record;
  numberInFile_ = found->number;
  return static_cast<int>(RankInRun(file, key) + (found - layout.tail.begin()) + 1);
}

int CallReader::FindInRun(const RecordReader& file, QByteArrayView call, QByteArrayView wanted) {
  Beginning* const beginning = BeginningOf(file);
  qint64 low = 1;
  qint64 high = std::max<qint64>(file.Count(), 1);
  std::array<DbRec, kBlock> block;
  qint64 blockFirst = 0;  // number of its first record; 0: not read
  for (std::size_t place = 1; low <= high;) {
    const qint64 middle = (low + high) / 2;
    if (blockFirst > 0) {
      DbCurrent = block[static_cast<std::size_t>(middle - blockFirst)];
    } else if (place >= kBeginning && high - low < kBlock) {
      blockFirst = low;
      file.ReadBlock(low, std::span(block).first(static_cast<std::size_t>(high - low + 1)));
      DbCurrent = block[static_cast<std::size_t>(middle - blockFirst)];
    } else if (beginning == nullptr || place >= kBeginning) {
      DbCurrent = file.Read(middle);
    } else {
      if (!beginning->known[place]) beginning->records[place] = file.Read(middle);
      beginning->known[place] = true;
      DbCurrent = beginning->records[place];
    }
    const QByteArrayView found = DbCurrent.Call.Bytes();
    if (BlanksTrimmed(found) == wanted) {
      numberInFile_ = middle;
      return static_cast<int>(middle);
    }
    // Compare with the blanks of both: a call that the caller did not trim sorts elsewhere and is found only where its
    // path happens to meet the record.
    const bool above = CompareBytes(call, found) > 0;
    place = std::min(place * 2 + (above ? 1 : 0), kBeginning);
    if (above) {
      low = middle + 1;
    } else {
      high = middle - 1;
    }
  }
  return 0;
}

std::optional<FoundRecord> CallReader::Find(const QString& call) {
  const int number = FindRecord(call);
  if (number == 0) return std::nullopt;
  return FoundRecord{number, DbCurrent};
}

TargetLocation CallReader::LookupTargetLocation(const QString& call) {
  if (FindRecord(QString(call).replace(u'Ø', u'0')) == 0) return {};
  return {true,
          Coordinate(DbCurrent.Lat.Text()),
          Coordinate(DbCurrent.Lon.Text()),
          DbCurrent.Name.Text(),
          DbCurrent.Add1.Text(),
          DbCurrent.Add2.Text(),
          DbCurrent.Ctry.Text()};
}

int CallReader::RecordCount() const {
  const QFileInfo file(Path());
  if (!file.isFile()) return 0;
  const double records = static_cast<double>(file.size()) / static_cast<double>(kRecordSize);
  // Halves to even.
  return static_cast<int>(std::min<qint64>(std::llrint(records), std::numeric_limits<int>::max()));
}
