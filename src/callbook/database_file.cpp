// SPDX-License-Identifier: GPL-3.0-or-later
#include "callbook/database_file.h"

#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <cmath>
#include <cstring>
#include <mutex>

#include "callbook/record_order.h"
#include "callbook/record_reader.h"
#include "platform/paths.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kLargestInMemory = 512LL * 1024 * 1024;
constexpr std::size_t kMostTail = 1024;
constexpr qsizetype kFew = 64;         // so many records are saved sooner one by one than with a new file
constexpr std::size_t kAtOnce = 1024;  // records read at once from front to end
constexpr qint64 kLargestRedo = 512;
constexpr qsizetype kCallSize = 6;
constexpr int kAttempts = 3;  // while other programs change the file

QByteArrayView RecordBytes(const DbRec& record) {
  return {reinterpret_cast<const char*>(&record), kRecordSize};
}

std::optional<QByteArray> WholeFile(const QString& path, qint64 largest) {
  QFile file(path);
  if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) return {};
  if (file.size() > largest) return {};
  QByteArray bytes = file.readAll();
  if (file.error() != QFileDevice::NoError) return {};
  return bytes;
}

quint64 KeyOf(const DbRec& record) {
  return CallKey(record.Call.Bytes());
}

}  // namespace

DatabaseFile::DatabaseFile(const QString& appDataDir, std::shared_ptr<SharedLayout> layout,
                           std::shared_ptr<DatabaseDisk> disk)
    : appDataDir_(appDataDir), shared_(layout), disk_(std::move(disk)), reader_(appDataDir, std::move(layout)) {}

void DatabaseFile::Forget() {
  layout_.reset();
  folderSynced_ = false;
  Publish();
}

void DatabaseFile::Publish(const FileLayout* next) {
  std::vector<FileLayout> layouts;
  if (layout_) layouts.push_back(*layout_);
  if (next != nullptr) layouts.push_back(*next);
  const std::unique_lock lock(shared_->mutex);
  shared_->layouts = std::move(layouts);
}

bool DatabaseFile::WasInterrupted() const {
  return QFileInfo::exists(RedoPath());
}

void DatabaseFile::Recover() {
  if (std::exchange(recovered_, true)) return;
  Forget();
  const std::optional<QByteArray> bytes = WholeFile(RedoPath(), kLargestRedo);
  redo_ = resuming_ = WasInterrupted();
  const std::optional<RedoRecord> redo = bytes ? RedoRecord::Of(*bytes) : std::nullopt;
  if (redo && !redo->after.isEmpty()) Repair(*redo);
}

void DatabaseFile::Repair(const RedoRecord& redo) {
  const RecordReader file(QFile::encodeName(reader_.Path()));
  const qint64 size = file.Stamp().size;
  const bool added = redo.before.isEmpty();
  const bool fits = added ? redo.offset == redo.size && size >= redo.size && size <= redo.size + kRecordSize
                          : size >= redo.offset + kRecordSize;
  if (!file.IsReadable() || file.Stamp().inode != redo.inode || !fits || redo.after.size() != kRecordSize) return;
  QByteArray present(std::min(kRecordSize, size - redo.offset), '\0');
  if (!file.ReadBytes(redo.offset, present) || !redo.MayRepair(present)) return;
  const std::unique_ptr<DiskFile> database = disk_->Open(reader_.Path(), false);
  if (database == nullptr || database->Stamp().inode != redo.inode) return;
  if (!database->Write(redo.offset, redo.after) || !database->Sync()) recovered_ = false;
}

bool DatabaseFile::Know() {
  Recover();
  const RecordReader file(QFile::encodeName(reader_.Path()));
  if (!file.IsReadable()) {
    Forget();
    return false;
  }
  if (!layout_ || !layout_->Describes(file.Stamp())) Read(file);
  return true;
}

void DatabaseFile::Read(const RecordReader& file) {
  Forget();
  FileLayout layout{.stamp = file.Stamp(),
                    .largest = file.Stamp().size,
                    .run = file.Count(),
                    .tail = {},
                    .beingWritten = {},
                    .written = {}};
  std::vector<DbRec> block(kAtOnce);
  std::vector<quint64> behind;  // keys from the first on that is out of order
  quint64 last = 0;
  for (qint64 first = 1; first <= file.Count(); first += static_cast<qint64>(kAtOnce)) {
    const std::size_t got = file.ReadBlock(first, block);
    for (std::size_t i = 0; i < got; ++i) {
      const quint64 key = KeyOf(block[i]);
      if (!behind.empty() || key < last) behind.push_back(key);
      last = key;
    }
  }
  // An earlier run of this program leaves a short tail. What others left out of order is sorted as a whole, unless the
  // file is too large for that.
  const bool large = layout.stamp.size > kLargestInMemory;
  ordered_ = behind.empty() || large;
  if (!behind.empty() && behind.size() <= kMostTail && (resuming_ || large)) {
    ordered_ = true;
    layout.run -= static_cast<qint64>(behind.size());
    for (const quint64 key : behind) layout.Append(key);
  }
  resuming_ = false;
  layout_ = layout;
  Publish();
}

bool DatabaseFile::KnowOrMake() {
  const QString path = reader_.Path();
  if (!QFileInfo::exists(path)) disk_->Open(path, true);
  return Know();
}

bool DatabaseFile::SaveStation(const QString& call, const DbRec& record) {
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    if (!KnowOrMake() || !Order()) return false;
    const bool found = reader_.FindRecord(call) > 0;
    if (found ? Update(reader_.NumberInFile(), record) : Add(record)) return true;
    if (layout_) return false;
  }
  return false;
}

bool DatabaseFile::SaveStations(const QList<StationRecord>& stations) {
  if (stations.size() <= kFew) {
    bool all = true;
    for (const StationRecord& station : stations) all = SaveStation(station.call, station.record) && all;
    return all;
  }
  if (!KnowOrMake() || !Order()) return false;
  std::vector<DbRec> added;
  std::map<quint64, std::size_t> addedAt;
  Changes changes;
  for (const StationRecord& station : stations) {
    const QByteArray call = AnsiBytes(station.call);
    const std::optional<quint64> key = CallKeyOf(BlanksTrimmed(call));
    const auto mine = key ? addedAt.find(*key) : addedAt.end();
    if (mine != addedAt.end()) {
      added[mine->second] = station.record;
      continue;
    }
    if (reader_.FindRecord(station.call) > 0) {
      std::optional<DbRec>& change = changes[reader_.NumberInFile()];
      change.reset();
      if (KeyOf(reader_.DbCurrent) == KeyOf(station.record)) {
        change = station.record;
        continue;
      }
    }
    if (key == KeyOf(station.record)) addedAt[*key] = added.size();
    added.push_back(station.record);
  }
  return Rewrite(added, changes);
}

bool DatabaseFile::PutBack(const QList<DbRec>& removed) {
  return KnowOrMake() && Order() && Rewrite({removed.begin(), removed.end()}, {});
}

bool DatabaseFile::AddRecord(const DbRec& record) {
  return Know() && Add(record);
}

bool DatabaseFile::UpdateRecord(qint64 numberInFile, const DbRec& record) {
  return Know() && Update(numberInFile, record);
}

bool DatabaseFile::Add(const DbRec& record) {
  // A record that was cut off lies where the next one would: only a new file can keep both.
  if (layout_->stamp.size % kRecordSize != 0) return Order() && Rewrite({record}, {});
  if (layout_->tail.size() >= kMostTail && !SortDatabase()) return false;
  const qint64 size = layout_->stamp.size;
  return WriteInPlace({layout_->stamp.inode, size, size, {}, RecordBytes(record).toByteArray()});
}

bool DatabaseFile::Update(qint64 numberInFile, const DbRec& record) {
  const RecordReader file(QFile::encodeName(reader_.Path()));
  if (numberInFile < 1 || numberInFile > file.Count()) return false;
  const DbRec before = file.Read(numberInFile);
  // Under another call it lies elsewhere.
  if (KeyOf(before) != KeyOf(record)) return ordered_ && Rewrite({record}, {{numberInFile, std::nullopt}});
  return WriteInPlace({layout_->stamp.inode, layout_->stamp.size, (numberInFile - 1) * kRecordSize,
                       RecordBytes(before).toByteArray(), RecordBytes(record).toByteArray()});
}

// The order of the syncs: the redo record, then the bytes that it tells of. Only one record is under way at a time, so
// that the redo file may be overwritten as soon as those bytes are on the disk.
bool DatabaseFile::WriteInPlace(const RedoRecord& redo) {
  const std::unique_ptr<DiskFile> file = disk_->Open(reader_.Path(), false);
  if (file == nullptr) return false;
  if (!layout_->Describes(file->Stamp())) {
    Forget();
    return false;
  }
  if (!PutRedo(redo)) return false;
  layout_->writing = true;
  layout_->largest = redo.size + kRecordSize;
  if (!redo.before.isEmpty()) {
    layout_->beingWritten = redo.offset / kRecordSize + 1;
    std::memcpy(static_cast<void*>(&layout_->written), redo.after.constData(), kRecordSize);
  }
  Publish();
  const bool written = file->Write(redo.offset, redo.after) && file->Sync();
  if (!written) TakeBack(*file, redo);
  layout_->writing = false;
  layout_->beingWritten.reset();
  layout_->stamp = file->Stamp();
  if (written && redo.before.isEmpty()) layout_->Append(CallKey(redo.after));
  Publish();
  return written;
}

void DatabaseFile::TakeBack(DiskFile& file, const RedoRecord& redo) {
  const bool back = redo.before.isEmpty() ? file.Resize(redo.size) : file.Write(redo.offset, redo.before);
  // Otherwise the next operation, or the next start, makes the record whole.
  if (!back || !file.Sync() || !PutRedo({})) recovered_ = false;
}

bool DatabaseFile::PutRedo(const RedoRecord& redo) {
  const std::unique_ptr<DiskFile> file = disk_->Open(RedoPath(), true);
  if (file == nullptr || !file->Write(0, redo.Bytes()) || !file->Sync()) return false;
  if (!std::exchange(redo_, true)) folderSynced_ = false;
  if (!folderSynced_) folderSynced_ = disk_->SyncFolderOf(reader_.Path());
  return folderSynced_;
}

bool DatabaseFile::SortDatabase() {
  return Know() && Order() && (layout_->tail.empty() || Rewrite({}, {}));
}

bool DatabaseFile::Close() {
  if (!redo_) return true;
  const bool sorted = SortDatabase();
  // Without a database there is nothing to be repaired.
  if (!sorted && QFileInfo::exists(reader_.Path())) return false;
  redo_ = !disk_->Remove(RedoPath());
  return sorted;
}

bool DatabaseFile::Rewrite(const std::vector<DbRec>& added, const Changes& changes) {
  const RecordReader file(QFile::encodeName(reader_.Path()));
  if (!file.IsReadable() || !layout_->Describes(file.Stamp())) {
    Forget();
    return false;
  }
  const std::unique_ptr<ReplacingFile> to = disk_->Replace(reader_.Path());
  if (to == nullptr) return false;
  return CopyMerged(file, added, changes, [&to](QByteArrayView bytes) { return to->Write(bytes); }) && Commit(*to);
}

bool DatabaseFile::CopyMerged(const RecordReader& file, const std::vector<DbRec>& added, const Changes& changes,
                              const Sink& to) {
  std::vector<DbRec> moved;
  for (qint64 number = layout_->run + 1; number <= file.Count(); ++number) {
    const auto change = changes.find(number);
    const std::optional<DbRec> record = change == changes.end() ? file.Read(number) : change->second;
    if (record) moved.push_back(*record);
  }
  moved.insert(moved.end(), added.begin(), added.end());
  RecordMerge merge(std::move(moved));
  std::vector<DbRec> block;
  for (qint64 first = 1; first <= layout_->run; first += static_cast<qint64>(kAtOnce)) {
    block.resize(static_cast<std::size_t>(std::min<qint64>(kAtOnce, layout_->run - first + 1)));
    // Shorter by now: somebody else writes the file, too.
    if (file.ReadBlock(first, block) != block.size()) return false;
    const auto from = changes.lower_bound(first);
    const auto till = changes.lower_bound(first + static_cast<qint64>(block.size()));
    for (auto change = from; change != till; ++change) {
      if (change->second) block[static_cast<std::size_t>(change->first - first)] = *change->second;
    }
    // From the back, so that the numbers hold.
    for (auto change = till; change != from;) {
      --change;
      if (!change->second) block.erase(block.begin() + (change->first - first));
    }
    if (!to(merge.Take(block))) return false;
  }
  QByteArray rest(file.Stamp().size % kRecordSize, '\0');
  return file.ReadBytes(file.Stamp().size - rest.size(), rest) && to(merge.Rest() + rest);
}

bool DatabaseFile::SortAll() {
  const std::optional<QByteArray> old = WholeFile(reader_.Path(), kLargestInMemory);
  if (!old) return false;
  std::vector<quint64> keys;
  AppendCallKeys(*old, keys);
  const auto size = static_cast<qsizetype>(keys.size()) * kRecordSize;
  const QByteArray sorted = SortRecords(QByteArrayView(*old).first(size), std::move(keys));
  return ReplaceBy({sorted, QByteArrayView(*old).sliced(size)});
}

Deletion DatabaseFile::DeleteRecord(const QString& call) {
  Deletion deletion;
  if (!Know() || (!layout_->tail.empty() && !SortDatabase())) return deletion;
  const std::optional<QByteArray> old = WholeFile(reader_.Path(), kLargestInMemory);
  if (!old) return deletion;
  const QByteArray bytes = AnsiBytes(call);
  const QByteArrayView unwanted = BlanksTrimmed(bytes);
  // Halves to even.
  const qint64 count = std::llrint(static_cast<double>(old->size()) / static_cast<double>(kRecordSize));
  QByteArray kept;
  kept.reserve(old->size());
  for (qint64 i = 0; i < count; ++i) {
    DbRec record;
    const QByteArrayView stored = QByteArrayView(*old).sliced(i * kRecordSize);
    std::memcpy(static_cast<void*>(&record), stored.data(),
                static_cast<std::size_t>(std::min(stored.size(), kRecordSize)));
    if (BlanksTrimmed(record.Call.Bytes()) != unwanted) {
      kept += RecordBytes(record);
    } else {
      deletion.removed += record;
    }
  }
  // Records pass through temp.db in the data folder. If an earlier failure has left a longer one there, the records
  // behind the present ones are taken into the database: they may be all that is left of them.
  const QString temporary = ResolvePath(appDataDir_, u"temp.db"_s);
  const QByteArray left = WholeFile(temporary, kLargestInMemory).value_or(QByteArray());
  const QByteArray rest = old->mid(count * kRecordSize);
  deletion.durable = ReplaceBy({kept, QByteArrayView(left).sliced(std::min(kept.size(), left.size())), rest});
  // What was taken in need not be in order.
  Forget();
  if (!deletion.durable) {
    deletion.removed.clear();
  } else if (QFileInfo(temporary).isFile()) {
    disk_->Remove(temporary);
  }
  return deletion;
}

bool DatabaseFile::ReplaceBy(const QList<QByteArrayView>& pieces) {
  const std::unique_ptr<ReplacingFile> file = disk_->Replace(reader_.Path());
  if (file == nullptr) return false;
  for (const QByteArrayView piece : pieces) {
    if (!piece.isEmpty() && !file->Write(piece)) return false;
  }
  return Commit(*file);
}

bool DatabaseFile::Commit(ReplacingFile& file) {
  if (!file.Sync()) return false;
  // A later file may get the number of this one, and the redo file would then tell of a wrong place in it.
  if (redo_ && !PutRedo({})) return false;
  const RecordReader old(QFile::encodeName(reader_.Path()));
  if (!old.IsReadable() || !layout_->Describes(old.Stamp())) {
    Forget();
    return false;
  }
  FileLayout next{.stamp = file.Stamp(),
                  .largest = file.Stamp().size,
                  .writing = true,
                  .tail = {},
                  .beingWritten = {},
                  .written = {}};
  next.run = next.stamp.size / kRecordSize;
  // Losing its name changes the times of the old file, which a search may just have opened.
  layout_->writing = true;
  Publish(&next);
  if (!file.Commit()) {
    Forget();
    return false;
  }
  layout_ = next;
  ordered_ = true;
  layout_->writing = false;
  layout_->stamp = RecordReader(QFile::encodeName(reader_.Path())).Stamp();
  Publish();
  return folderSynced_ = disk_->SyncFolderOf(reader_.Path());
}

std::optional<QByteArray> DatabaseFile::FillCallList() {
  if (!Know()) return {};
  const RecordReader file(QFile::encodeName(reader_.Path()));
  QByteArray calls;
  calls.reserve(file.Count() * kCallSize);
  const auto take = [&calls](QByteArrayView bytes) {
    for (qsizetype i = 0; i + kRecordSize <= bytes.size(); i += kRecordSize) calls += bytes.sliced(i, kCallSize);
    return true;
  };
  if (!file.IsReadable() || !CopyMerged(file, {}, {}, take)) return {};
  return calls;
}
