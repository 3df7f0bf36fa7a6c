// SPDX-License-Identifier: GPL-3.0-or-later
#include "picture_header.h"

#include <QBuffer>
#include <QImageReader>
#include <QtEndian>
#include <algorithm>
#include <cstdlib>

#include "platform/picture/picture_protocol.h"

namespace {

constexpr int kMaxSide = 1 << 30;

// Big-endian numbers at any offset; 0 behind the end.
class Bytes {
 public:
  explicit Bytes(const QByteArray& bytes) : bytes_(bytes) {}
  qint64 Size() const { return bytes_.size(); }
  quint8 U8(qint64 at) const { return Has(at, 1) ? static_cast<quint8>(bytes_.at(at)) : quint8{0}; }
  quint16 U16(qint64 at) const { return Has(at, 2) ? qFromBigEndian<quint16>(bytes_.constData() + at) : quint16{0}; }
  quint32 U32(qint64 at) const { return Has(at, 4) ? qFromBigEndian<quint32>(bytes_.constData() + at) : 0; }
  quint64 U64(qint64 at) const { return Has(at, 8) ? qFromBigEndian<quint64>(bytes_.constData() + at) : 0; }

 private:
  bool Has(qint64 at, qint64 count) const { return at >= 0 && at + count <= bytes_.size(); }
  const QByteArray& bytes_;
};

bool IsJpegFrameMarker(quint8 marker) {
  return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

void ReadJpeg(const QByteArray& content, PictureHeader& header) {
  const Bytes bytes(content);
  qint64 at = 2;
  while (at + 4 <= bytes.Size()) {
    if (bytes.U8(at) != 0xFF) {  // garbage between segments is passed over, as decoders do
      ++at;
      continue;
    }
    const quint8 marker = bytes.U8(at + 1);
    if (marker == 0xFF) {
      ++at;
    } else if (marker == 0x00 || marker == 0x01 || (marker >= 0xD0 && marker <= 0xD8)) {
      at += 2;
    } else if (marker == 0xD9 || marker == 0xDA) {
      return;
    } else if (IsJpegFrameMarker(marker)) {
      header.size = QSize(bytes.U16(at + 7), bytes.U16(at + 5));
      header.depth = bytes.U8(at + 4) * bytes.U8(at + 9);
      return;
    } else {
      at += 2 + bytes.U16(at + 2);
    }
  }
}

// Offset of the codestream within a JP2 file's boxes; -1 where there is none.
qint64 FindCodestream(const Bytes& bytes) {
  constexpr quint32 kCodestreamBox = 0x6A703263;  // "jp2c"
  qint64 at = 0;
  while (at + 8 <= bytes.Size()) {
    quint64 length = bytes.U32(at);
    const bool wide = length == 1;
    const qint64 head = wide ? 16 : 8;
    if (bytes.U32(at + 4) == kCodestreamBox) return at + head;
    if (wide) length = bytes.U64(at + 8);
    if (length < static_cast<quint64>(head) || length > static_cast<quint64>(bytes.Size())) return -1;
    at += static_cast<qint64>(length);
  }
  return -1;
}

qint64 CeilDiv(qint64 number, qint64 divisor) {
  return (number + divisor - 1) / divisor;
}

// Reads the size segment; start is the offset of its length field. False where its claims make no sense.
bool ReadSizeSegment(const Bytes& bytes, qint64 start, PictureHeader& header) {
  const qint64 right = bytes.U32(start + 4);
  const qint64 bottom = bytes.U32(start + 8);
  const qint64 width = right - bytes.U32(start + 12);
  const qint64 height = bottom - bytes.U32(start + 16);
  const qint64 tileWidth = bytes.U32(start + 20);
  const qint64 tileHeight = bytes.U32(start + 24);
  if (width <= 0 || height <= 0 || width > kMaxSide || height > kMaxSide || tileWidth == 0 || tileHeight == 0) {
    return false;
  }
  header.size = QSize(static_cast<int>(width), static_cast<int>(height));
  header.jpeg2000.tiles = std::max<qint64>(1, CeilDiv(right - bytes.U32(start + 28), tileWidth)) *
                          std::max<qint64>(1, CeilDiv(bottom - bytes.U32(start + 32), tileHeight));
  header.jpeg2000.components = bytes.U16(start + 36);
  for (int i = 0; i < std::min(header.jpeg2000.components, 16); ++i) {
    const int precision = (bytes.U8(start + 38 + 3 * i) & 0x7F) + 1;
    header.depth += precision;
    header.jpeg2000.precision = std::max(header.jpeg2000.precision, precision);
  }
  return true;
}

void ReadJpeg2000(const QByteArray& content, qint64 codestream, PictureHeader& header) {
  const Bytes bytes(content);
  if (codestream < 0 || bytes.U16(codestream) != 0xFF4F || bytes.U16(codestream + 2) != 0xFF51) return;
  if (!ReadSizeSegment(bytes, codestream + 4, header)) return;
  // The lowest number of levels of any component is how far the size can be halved.
  int levels = 32;
  qint64 at = codestream + 2;
  while (at + 4 <= bytes.Size()) {
    const quint16 marker = bytes.U16(at);
    if (marker < 0xFF50 || marker == 0xFF90) break;  // the first tile
    if (marker == 0xFF52) levels = std::min<int>(levels, bytes.U8(at + 9));
    if (marker == 0xFF53) levels = std::min<int>(levels, bytes.U8(at + (header.jpeg2000.components < 257 ? 6 : 7)));
    at += 2 + bytes.U16(at + 2);
  }
  header.jpeg2000.levels = levels == 32 ? 0 : levels;
}

// The size of a PNG, GIF or BMP: their readers read no more than the header for it.
QSize ReaderSize(const QByteArray& content, const char* format) {
  QBuffer buffer;
  buffer.setData(content);
  QImageReader reader(&buffer, format);
  reader.setAutoDetectImageFormat(false);
  return reader.size();
}

}  // namespace

PictureHeader ReadPictureHeader(const QByteArray& bytes) {
  PictureHeader header;
  if (bytes.startsWith("\xFF\xD8\xFF")) {
    header.kind = PictureKind::Jpeg;
    ReadJpeg(bytes, header);
  } else if (bytes.startsWith("\x89PNG")) {
    header.kind = PictureKind::Png;
    header.size = ReaderSize(bytes, "png");
    header.depth = 8;
  } else if (bytes.startsWith("GIF8")) {
    header.kind = PictureKind::Gif;
    header.size = ReaderSize(bytes, "gif");
  } else if (bytes.startsWith("BM")) {
    header.kind = PictureKind::Bmp;
    // A height below zero says that the rows are stored from the top down.
    const QSize stored = ReaderSize(bytes, "bmp");
    if (stored.height() > -kMaxSide) header.size = QSize(stored.width(), std::abs(stored.height()));
    header.depth = 8;
  } else if (bytes.startsWith(QByteArray::fromRawData("\0\0\0\x0CjP  \r\n\x87\n", 12))) {
    header.kind = PictureKind::Jpeg2000;
    header.jpeg2000.boxed = true;
    ReadJpeg2000(bytes, FindCodestream(Bytes(bytes)), header);
  } else if (bytes.startsWith("\xFF\x4F\xFF\x51")) {
    header.kind = PictureKind::Jpeg2000;
    ReadJpeg2000(bytes, 0, header);
  }
  return header;
}

qint64 CountGifFrames(const QByteArray& content) {
  constexpr quint8 kExtension = 0x21;
  constexpr quint8 kImage = 0x2C;
  const Bytes bytes(content);
  const auto table = [](quint8 flags) { return (flags & 0x80) != 0 ? qint64{3} << ((flags & 7) + 1) : qint64{0}; };
  qint64 count = 0;
  qint64 at = 13 + table(bytes.U8(10));
  while (at < bytes.Size()) {
    const quint8 block = bytes.U8(at);
    if (block != kExtension && block != kImage) break;
    if (block == kImage) ++count;
    // The head of an image is ten bytes, its colours and one byte more; that of an extension two.
    at += block == kImage ? 11 + table(bytes.U8(at + 9)) : 2;
    while (bytes.U8(at) != 0) at += 1 + bytes.U8(at);
    ++at;
  }
  return count;
}

bool WithinLimits(const PictureHeader& header) {
  if (header.kind == PictureKind::Unknown || header.size.isEmpty()) return false;
  if (qint64{header.size.width()} * header.size.height() > PictureLimits::kPixels) return false;
  if (header.kind != PictureKind::Jpeg2000) return true;
  // The library reserves some 12 kB a tile before it has seen any of them.
  constexpr qint64 kMaxTiles = 4096;
  const Jpeg2000Facts& facts = header.jpeg2000;
  return facts.tiles <= kMaxTiles && facts.components >= 1 && facts.components <= 4 && facts.precision <= 16;
}
