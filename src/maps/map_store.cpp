// SPDX-License-Identifier: GPL-3.0-or-later
#include "maps/map_store.h"

#include <QFileInfo>
#include <QImageReader>
#include <QPainter>

#include "platform/paths.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kKeptPictures = 2;
constexpr qint64 kKeptBytes = 96LL << 20;  // two ordinary maps; a huge one is kept alone
constexpr qint64 kMaxPixels = 32'000'000;  // what the reader's own limit of 128 MiB lets pass
constexpr int kMaxSide = 32'000;           // painting goes wrong beyond 16 bits

bool IsShowable(const QSize& size) {
  return size.width() <= kMaxSide && size.height() <= kMaxSide &&
         static_cast<qint64>(size.width()) * size.height() <= kMaxPixels;
}

QImage ReadPicture(const QString& path) {
  QImageReader reader(path);
  // A user's own picture may be of another type than its name says.
  reader.setDecideFormatFromContent(true);
  if (!IsShowable(reader.size())) return {};
  QImage picture = reader.read();
  if (picture.isNull() || !IsShowable(picture.size())) return {};
  if (!picture.hasAlphaChannel()) return std::move(picture).convertToFormat(QImage::Format_RGB32);
  QImage opaque(picture.size(), QImage::Format_RGB32);
  opaque.fill(Qt::white);
  QPainter(&opaque).drawImage(0, 0, picture);
  return opaque;
}

}  // namespace

MapStore::MapStore(QString appDataDir, QObject* parent) : QObject(parent), appDataDir_(std::move(appDataDir)) {}

void MapStore::Read(const QString& fileName, QObject* context, std::function<void(const QImage&)> then) {
  for (qsizetype i = 0; i < kept_.size(); ++i) {
    const QFileInfo file(kept_.at(i).path);
    if (kept_.at(i).fileName != fileName || file.size() != kept_.at(i).size ||
        file.lastModified() != kept_.at(i).changed) {
      continue;
    }
    kept_.move(i, 0);
    then(QImage(kept_.first().picture));
    return;
  }
  background_.Run<Kept>(
      this, [folder = appDataDir_, fileName]() { return Decode(folder, fileName); },
      [this, asker = QPointer<QObject>(context), then = std::move(then)](Kept read) {
        const QImage picture = read.picture;
        if (!picture.isNull()) Keep(std::move(read));
        if (asker) then(picture);
      });
}

MapStore::Kept MapStore::Decode(const QString& appDataDir, const QString& fileName) {
  Kept kept;
  kept.fileName = fileName;
  if (fileName.isEmpty()) return kept;
  kept.path = ResolvePath(appDataDir, u"Maps/"_s + fileName);
  // Before the read: a file that changes meanwhile is read again the next time.
  const QFileInfo file(kept.path);
  if (!file.isFile()) return kept;
  kept.size = file.size();
  kept.changed = file.lastModified();
  kept.picture = ReadPicture(kept.path);
  return kept;
}

void MapStore::Keep(Kept&& kept) {
  kept_.removeIf([&kept](const Kept& old) { return old.fileName == kept.fileName; });
  kept_.prepend(std::move(kept));
  qint64 bytes = 0;
  for (const Kept& each : std::as_const(kept_)) bytes += each.picture.sizeInBytes();
  while (kept_.size() > 1 && (kept_.size() > kKeptPictures || bytes > kKeptBytes)) {
    bytes -= kept_.takeLast().picture.sizeInBytes();
  }
}
