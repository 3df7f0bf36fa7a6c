// SPDX-License-Identifier: GPL-3.0-or-later
#include "maps/map_store.h"

#include <QFileInfo>

#include "platform/paths.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kKeptPictures = 2;
constexpr qint64 kKeptBytes = 72LL << 20;  // two ordinary maps; a huge one is kept alone

}  // namespace

MapStore::MapStore(QString appDataDir, QObject* parent) : QObject(parent), appDataDir_(std::move(appDataDir)) {}

void MapStore::Read(const QString& fileName, QObject* context, std::function<void(const MapPicture&)> then) {
  for (qsizetype i = 0; i < kept_.size(); ++i) {
    if (kept_.at(i).fileName != fileName) continue;
    const QFileInfo file(kept_.at(i).path);
    if (file.size() != kept_.at(i).size || file.lastModified() != kept_.at(i).changed) continue;
    kept_.move(i, 0);
    then(MapPicture(kept_.first().picture));
    return;
  }
  background_.Run<Kept>(
      this, [folder = appDataDir_, fileName]() { return Load(folder, fileName); },
      [this, asker = QPointer<QObject>(context), then = std::move(then)](Kept read) {
        const MapPicture picture = Keep(std::move(read));
        if (asker) then(picture);
      });
}

MapStore::Kept MapStore::Load(const QString& appDataDir, const QString& fileName) {
  Kept read;
  read.fileName = fileName;
  read.picture.failed = true;
  if (fileName.isEmpty()) return read;
  read.path = ResolvePath(appDataDir, u"Maps/"_s + fileName);
  // Size and time are taken before the read, so that a file that changes during it is read again the next time.
  const QFileInfo file(read.path);
  if (!file.isFile()) return read;
  read.size = file.size();
  read.changed = file.lastModified();
  read.picture = ReadMapFile(read.path);
  return read;
}

MapPicture MapStore::Keep(Kept&& read) {
  const auto same = [&read](const Kept& old) { return old.fileName == read.fileName; };
  if (read.picture.failed) {
    const auto old = std::find_if(kept_.cbegin(), kept_.cend(), same);
    if (old == kept_.cend()) return read.picture;
    MapPicture before = old->picture;
    before.failed = true;
    return before;
  }
  kept_.removeIf(same);
  kept_.prepend(std::move(read));
  qint64 bytes = 0;
  for (const Kept& each : std::as_const(kept_)) bytes += each.picture.pixels.sizeInBytes();
  while (kept_.size() > 1 && (kept_.size() > kKeptPictures || bytes > kKeptBytes)) {
    bytes -= kept_.takeLast().picture.pixels.sizeInBytes();
  }
  return kept_.first().picture;
}
