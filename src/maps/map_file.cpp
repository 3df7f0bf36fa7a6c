// SPDX-License-Identifier: GPL-3.0-or-later
#include "maps/map_file.h"

#include <QBuffer>
#include <QFile>
#include <QImageReader>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kMaxBytes = 256LL << 20;
constexpr qint64 kMaxPixels = 32'000'000;  // four bytes each: QImageReader refuses more than 128 MiB
constexpr int kMaxSide = 32'000;           // of the decoded picture: QPainter's coordinates end at 16 bits
constexpr int kMaxShownSide = 1'000'000;   // of the size that the file's header tells

// Reads a picture's bytes one after the other; Next() is -1 behind the end.
class ByteWalk {
 public:
  explicit ByteWalk(const QByteArray& bytes) : bytes_(bytes) {}
  int Next() { return at_ < bytes_.size() ? static_cast<uchar>(bytes_.at(at_++)) : -1; }
  void Skip(qsizetype count) { at_ += count; }
  bool IsOver() const { return at_ > bytes_.size(); }

 private:
  const QByteArray& bytes_;
  qsizetype at_ = 0;
};

// Walks from segment to segment to the end-of-image marker (0xff 0xd9). Inside the compressed data 0xff is followed by
// 0 or by a restart number, so 0xff with any other byte begins the next segment.
bool IsWholeJpeg(const QByteArray& bytes) {
  ByteWalk walk(bytes);
  walk.Skip(2);
  int next = walk.Next();
  while (next >= 0) {
    if (next != 0xff) {
      next = walk.Next();
      continue;
    }
    next = walk.Next();
    if (next == 0xd9) return true;
    const bool bare = next == 0 || next == 0xff || next == 0x01 || (next >= 0xd0 && next <= 0xd7);
    if (bare) continue;
    const int high = walk.Next();
    const int low = walk.Next();
    if (low < 0) return false;
    walk.Skip(high * 256 + low - 2);
    next = walk.Next();
  }
  return false;
}

// Skips the data blocks of a GIF: a length byte and that many bytes each, the last of length 0. False where the file
// ends before.
bool SkipGifBlocks(ByteWalk& walk) {
  for (int length = walk.Next(); length > 0; length = walk.Next()) walk.Skip(length);
  return !walk.IsOver();
}

// Bytes of the colour table that a flag byte announces; 0 without a table.
qsizetype GifTableBytes(int flags) {
  return (flags & 0x80) != 0 ? 3LL << ((flags & 7) + 1) : 0;
}

// Walks to the end of the first frame; only that frame is shown.
bool IsWholeGif(const QByteArray& bytes) {
  ByteWalk walk(bytes);
  walk.Skip(10);
  const int flags = walk.Next();
  if (flags < 0) return false;
  walk.Skip(2 + GifTableBytes(flags));
  for (int kind = walk.Next(); kind == '!' || kind == ','; kind = walk.Next()) {
    if (kind == '!') {
      walk.Skip(1);
      if (!SkipGifBlocks(walk)) return false;
      continue;
    }
    walk.Skip(8);
    const int local = walk.Next();
    if (local < 0) return false;
    walk.Skip(GifTableBytes(local) + 1);
    return SkipGifBlocks(walk);
  }
  return false;
}

// Decoders fill the missing rest of a truncated JPEG or GIF with grey; those of other types report an error themselves.
bool IsWhole(const QByteArray& bytes, const QByteArray& format) {
  if (format == "jpeg") return IsWholeJpeg(bytes);
  if (format == "gif") return IsWholeGif(bytes);
  return true;
}

// The size to decode at: the picture's own, or as many eighths of it as the limits allow, since a JPEG is decoded in
// eighths without its whole size ever being in memory.
QSize DecodedSize(const QSize& size) {
  for (int eighths = 8; eighths > 0; --eighths) {
    // Rounded down: for one pixel more the decoder would take the next larger eighth.
    const QSize reduced(std::max(1, size.width() * eighths / 8), std::max(1, size.height() * eighths / 8));
    const qint64 pixels = static_cast<qint64>(reduced.width()) * reduced.height();
    if (reduced.width() <= kMaxSide && reduced.height() <= kMaxSide && pixels <= kMaxPixels) return reduced;
  }
  return {};
}

QImage Opaque(QImage picture) {
  if (!picture.hasAlphaChannel()) return std::move(picture).convertToFormat(kMapFormat);
  QImage opaque(picture.size(), kMapFormat);
  opaque.fill(Qt::white);
  QPainter(&opaque).drawImage(0, 0, picture);
  return opaque;
}

}  // namespace

MapPicture ReadMapFile(const QString& path) {
  MapPicture failed;
  failed.failed = true;
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly) || file.size() > kMaxBytes) return failed;
  // Read the whole file at once: while a file is still being copied, IsWhole() and the decoder then see the same bytes.
  QByteArray bytes = file.readAll();
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::ReadOnly);
  QImageReader reader(&buffer);
  // A user's own picture may be of another type than its name says.
  reader.setDecideFormatFromContent(true);
  const QSize size = reader.size();
  if (size.isEmpty() || size.width() > kMaxShownSide || size.height() > kMaxShownSide) return failed;
  const QSize decoded = DecodedSize(size);
  if (decoded.isEmpty() || !IsWhole(bytes, reader.format())) return failed;
  if (decoded != size) reader.setScaledSize(decoded);
  QImage picture = reader.read();
  if (picture.isNull()) return failed;
  return {Opaque(std::move(picture)), size, false};
}
