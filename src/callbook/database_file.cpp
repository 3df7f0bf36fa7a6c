// SPDX-License-Identifier: GPL-3.0-or-later
#include "callbook/database_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <limits>
#include <span>

#include "callbook/record_order.h"
#include "platform/paths.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kLargestRewritten = 512LL * 1024 * 1024;
constexpr std::size_t kBeginning = 4096;             // remembered records: the first twelve steps of a search
constexpr qint64 kBlock = 31;                        // records read at once for the last five steps of a search
constexpr time_t kRest = 2;                          // seconds without a change before a file's times are trusted
constexpr qint64 kBytesAtOnce = 1024 * kRecordSize;  // when a file is read from front to end

QString FileName() {
  return u"Omni-Perch-DB.db"_s;
}

std::optional<QByteArray> WholeFile(const QString& path) {
  QFile file(path);
  if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) return {};
  if (file.size() > kLargestRewritten) return {};
  QByteArray bytes = file.readAll();
  if (file.error() != QFileDevice::NoError) return {};
  return bytes;
}

// Copies in pieces that fit into the processor's cache; false if the old file is shorter by now.
bool Copy(QFile& from, qint64 start, qint64 size, QSaveFile& to) {
  if (!from.seek(start)) return false;
  while (size > 0) {
    const QByteArray bytes = from.read(std::min(size, kBytesAtOnce));
    if (bytes.isEmpty() || to.write(bytes) != bytes.size()) return false;
    size -= bytes.size();
  }
  return true;
}

// The sort keys of all whole records in the file's order; nothing if the file cannot be read.
std::optional<std::vector<quint64>> ReadKeys(const QString& path) {
  QFile file(path);
  if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) return {};
  std::vector<quint64> keys;
  QByteArray bytes;
  do {
    bytes = file.read(kBytesAtOnce);
    AppendCallKeys(bytes, keys);
  } while (bytes.size() == kBytesAtOnce);
  if (file.error() != QFileDevice::NoError) return {};
  return keys;
}

QByteArrayView RecordBytes(const DbRec& record) {
  return {reinterpret_cast<const char*>(&record), kRecordSize};
}

// Quotient rounded to the nearest integer, halves to even.
qint64 RoundedCount(qint64 size) {
  return std::llrint(static_cast<double>(size) / static_cast<double>(kRecordSize));
}

}  // namespace

// Reads single records for FindRecord, unbuffered: a buffered file would turn a few small reads into larger, slower
// ones.
class RecordReader {
 public:
  explicit RecordReader(const QByteArray& path) : file_(::open(path.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {
    struct stat status {};
    if (file_ < 0 || ::fstat(file_, &status) != 0 || !S_ISREG(status.st_mode)) return;
    readable_ = true;
    status_ = status;
    count_ = std::min<qint64>(status.st_size / kRecordSize, std::numeric_limits<int>::max());
  }
  ~RecordReader() {
    if (file_ >= 0) ::close(file_);
  }
  RecordReader(const RecordReader&) = delete;
  RecordReader& operator=(const RecordReader&) = delete;

  bool IsReadable() const { return readable_; }
  qint64 Count() const { return count_; }
  const struct stat& Status() const { return status_; }
  // Fills block with the records from number `first` on; beyond the end of the file with NULs.
  void ReadBlock(qint64 first, std::span<DbRec> block) const {
    std::memset(static_cast<void*>(block.data()), 0, block.size_bytes());
    const ssize_t got = ::pread(file_, block.data(), block.size_bytes(), (first - 1) * kRecordSize);
    // A record that the file ends in the middle of does not count.
    const auto whole = static_cast<std::size_t>(std::max<ssize_t>(got, 0) / kRecordSize);
    std::memset(static_cast<void*>(block.data() + whole), 0, (block.size() - whole) * sizeof(DbRec));
  }
  // Beyond the end of the file gives a record of NULs, which equals no call.
  DbRec Read(qint64 number) const {
    DbRec record;
    if (::pread(file_, &record, sizeof record, (number - 1) * kRecordSize) != kRecordSize) {
      std::memset(static_cast<void*>(&record), 0, sizeof record);
    }
    return record;
  }

 private:
  int file_;
  bool readable_ = false;
  struct stat status_ {};
  qint64 count_ = 0;
};

DatabaseFile::DatabaseFile(QString appDataDir)
    : appDataDir_(std::move(appDataDir)), exactPath_(QFile::encodeName(appDataDir_ + u'/' + FileName())) {}

QString DatabaseFile::Path() const {
  return ResolvePath(appDataDir_, FileName());
}

bool DatabaseFile::Save(const QList<Piece>& pieces) const {
  const QString path = Path();
  QFile old(path);
  QSaveFile file(path);
  if (!old.open(QIODevice::ReadOnly | QIODevice::Unbuffered) || !file.open(QIODevice::WriteOnly)) return false;
  for (const Piece& piece : pieces) {
    if (file.write(piece.bytes.data(), piece.bytes.size()) != piece.bytes.size()) return false;
    if (piece.size > 0 && !Copy(old, piece.start, piece.size, file)) return false;
  }
  return file.flush() && file.commit();
}

DatabaseFile::Beginning* DatabaseFile::BeginningOf(const RecordReader& file) {
  const struct stat& status = file.Status();
  timespec now{};
  ::clock_gettime(CLOCK_REALTIME_COARSE, &now);
  // Two changes within one tick of the system's clock leave the same time, so what was read from a file that young is
  // not remembered.
  if (now.tv_sec - status.st_ctim.tv_sec < kRest) return nullptr;
  const std::array<qint64, 6> present{static_cast<qint64>(status.st_dev),
                                      static_cast<qint64>(status.st_ino),
                                      status.st_size,
                                      status.st_ctim.tv_sec,
                                      status.st_ctim.tv_nsec,
                                      file.Count()};
  if (beginning_.file != present) {
    beginning_.file = present;
    beginning_.records.assign(kBeginning, DbRec());
    beginning_.known.assign(kBeginning, false);
  }
  return &beginning_;
}

int DatabaseFile::FindRecord(const QString& call) {
  std::optional<RecordReader> file(exactPath_);
  if (!file->IsReadable()) {
    QFile other(Path());
    if (!other.exists() && !other.open(QIODevice::NewOnly)) return 0;
    file.emplace(QFile::encodeName(other.fileName()));
    if (!file->IsReadable()) return 0;
  }
  const QByteArray bytes = AnsiBytes(call);
  const QByteArrayView wanted = BlanksTrimmed(bytes);
  Beginning* const beginning = BeginningOf(*file);
  qint64 low = 1;
  qint64 high = std::max<qint64>(file->Count(), 1);
  std::array<DbRec, kBlock> block;
  qint64 blockFirst = 0;  // number of its first record; 0: not read
  for (std::size_t place = 1; low <= high;) {
    const qint64 middle = (low + high) / 2;
    if (blockFirst > 0) {
      DbCurrent = block[static_cast<std::size_t>(middle - blockFirst)];
    } else if (place >= kBeginning && high - low < kBlock) {
      blockFirst = low;
      file->ReadBlock(low, std::span(block).first(static_cast<std::size_t>(high - low + 1)));
      DbCurrent = block[static_cast<std::size_t>(middle - blockFirst)];
    } else if (beginning == nullptr || place >= kBeginning) {
      DbCurrent = file->Read(middle);
    } else {
      if (!beginning->known[place]) beginning->records[place] = file->Read(middle);
      beginning->known[place] = true;
      DbCurrent = beginning->records[place];
    }
    const QByteArrayView found = DbCurrent.Call.Bytes();
    if (BlanksTrimmed(found) == wanted) return static_cast<int>(middle);
    // Compare with the blanks of both: a call that the caller did not trim sorts elsewhere and is found only where its
    // path happens to meet the record.
    const bool above = CompareBytes(bytes, found) > 0;
    place = std::min(place * 2 + (above ? 1 : 0), kBeginning);
    if (above) {
      low = middle + 1;
    } else {
      high = middle - 1;
    }
  }
  ClearRecord();
  return 0;
}

bool DatabaseFile::AddRecord() {
  QFile file(Path());
  const QByteArrayView record = RecordBytes(DbCurrent);
  if (!QFileInfo(file).isFile()) return false;
  const qint64 size = file.size();
  if (const qint64 rest = size % kRecordSize; rest != 0) {
    return Save({{{}, 0, size - rest}, {record}, {{}, size - rest, rest}});
  }
  // Appending cannot damage other records; a record that was written in part is cut off again.
  if (!file.open(QIODevice::Append | QIODevice::ExistingOnly | QIODevice::Unbuffered)) return false;
  if (file.write(record.data(), record.size()) == record.size()) return true;
  file.resize(size);
  return false;
}

bool DatabaseFile::UpdateRecord(int number) {
  const QFileInfo file(Path());
  const qint64 start = (number - qint64{1}) * kRecordSize;
  const qint64 rest = start + kRecordSize;
  if (!file.isFile() || number < 1 || rest > file.size()) return false;
  return Save({{{}, 0, start}, {RecordBytes(DbCurrent)}, {{}, rest, file.size() - rest}});
}

bool DatabaseFile::SortDatabase() {
  const std::optional<std::vector<quint64>> keys = ReadKeys(Path());
  if (!keys) return false;
  if (std::is_sorted(keys->begin(), keys->end())) return true;
  // The usual case is one call appended to a sorted file: move that record to its place and keep the order of the
  // others.
  if (const std::optional<qsizetype> place = PlaceOfLast(*keys)) {
    const qint64 at = *place * kRecordSize;
    const qint64 end = static_cast<qint64>(keys->size()) * kRecordSize;
    const qint64 last = end - kRecordSize;
    return Save({{{}, 0, at}, {{}, last, kRecordSize}, {{}, at, last - at}, {{}, end, QFileInfo(Path()).size() - end}});
  }
  const std::optional<QByteArray> old = WholeFile(Path());
  const auto size = static_cast<qsizetype>(keys->size()) * kRecordSize;
  if (!old || old->size() < size) return false;
  const QByteArray sorted = SortRecords(QByteArrayView(*old).first(size), *keys);
  return Save({{sorted}, {QByteArrayView(*old).sliced(size)}});
}

bool DatabaseFile::DeleteRecord(const QString& call) {
  const std::optional<QByteArray> old = WholeFile(Path());
  if (!old) return false;
  const QByteArray bytes = AnsiBytes(call);
  const QByteArrayView unwanted = BlanksTrimmed(bytes);
  const qint64 count = RoundedCount(old->size());
  QByteArray kept;
  kept.reserve(old->size());
  for (qint64 i = 0; i < count; ++i) {
    DbRec record;
    const QByteArrayView stored = QByteArrayView(*old).sliced(i * kRecordSize);
    std::memcpy(static_cast<void*>(&record), stored.data(),
                static_cast<std::size_t>(std::min(stored.size(), kRecordSize)));
    DbCurrent = record;
    if (BlanksTrimmed(record.Call.Bytes()) != unwanted) kept += RecordBytes(record);
  }
  // Records pass through temp.db in the data folder. If an earlier failure has left a longer one there, the records
  // behind the present ones are taken into the database: they may be all that is left of them.
  const QString temporary = ResolvePath(appDataDir_, u"temp.db"_s);
  const QByteArray left = WholeFile(temporary).value_or(QByteArray());
  const QByteArray rest = old->mid(count * kRecordSize);
  if (!Save({{kept}, {QByteArrayView(left).sliced(std::min(kept.size(), left.size()))}, {rest}})) return false;
  if (QFileInfo(temporary).isFile()) QFile::remove(temporary);
  return true;
}

int DatabaseFile::RecordCount() const {
  const QFileInfo file(Path());
  if (!file.isFile()) return 0;
  return static_cast<int>(std::min<qint64>(RoundedCount(file.size()), std::numeric_limits<int>::max()));
}

bool DatabaseFile::FillCallList(QStringList& list) {
  QFile file(Path());
  if (!QFileInfo(file).isFile() || !file.open(QIODevice::ReadOnly)) return false;
  list.clear();
  while (true) {
    const QByteArray bytes = file.read(kBytesAtOnce);
    const qsizetype count = bytes.size() / kRecordSize;
    for (qsizetype i = 0; i < count; ++i) {
      std::memcpy(static_cast<void*>(&DbCurrent), bytes.data() + i * kRecordSize, sizeof DbCurrent);
      list += DbCurrent.Call.Text();
    }
    if (bytes.size() < kBytesAtOnce) return true;
  }
}

std::optional<FoundRecord> DatabaseFile::Find(const QString& call) {
  const int number = FindRecord(call);
  if (number == 0) return std::nullopt;
  return FoundRecord{number, DbCurrent};
}

bool DatabaseFile::SaveStation(const QString& call, const DbRec& record) {
  const int number = FindRecord(call);
  DbCurrent = record;
  return number == 0 ? AddRecord() && SortDatabase() : UpdateRecord(number);
}
