// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/picture_bytes.h"

#include <zlib.h>

#include <QBuffer>
#include <QPainter>
#include <QtEndian>
#include <cstring>

namespace {

constexpr qint64 kCompressedPixels = 2'000'000;  // takes about 0.2 s; twelve million would take more than one
constexpr qsizetype kLengthOfCompress = 4;       // what qCompress puts in front of the bytes

QByteArray Number(quint32 number) {
  QByteArray bytes(4, Qt::Uninitialized);
  qToBigEndian(number, bytes.data());
  return bytes;
}

void AddChunk(QByteArray& file, const char* kind, QByteArrayView content) {
  auto sum = static_cast<quint32>(crc32(0, reinterpret_cast<const Bytef*>(kind), 4));
  // Of no bytes at all crc32 begins anew.
  if (!content.isEmpty()) {
    const auto* bytes = reinterpret_cast<const Bytef*>(content.data());
    sum = static_cast<quint32>(crc32(sum, bytes, static_cast<uInt>(content.size())));
  }
  file += Number(static_cast<quint32>(content.size())) + QByteArray(kind, 4);
  file.append(content);
  file += Number(sum);
}

}  // namespace

QByteArray BmpOf(const QImage& image) {
  QImage opaque = image;
  if (image.hasAlphaChannel()) {
    opaque = QImage(image.size(), QImage::Format_RGB32);
    opaque.fill(Qt::white);
    QPainter(&opaque).drawImage(0, 0, image);
  }
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  return opaque.save(&buffer, "BMP") ? bytes : QByteArray();
}

// Qt's writer tries five ways to foretell each row, which takes most of its time even where nothing is compressed.
QByteArray PngOf(const QImage& image) {
  if (image.isNull()) return {};
  const bool alpha = image.hasAlphaChannel();
  const QImage plain = image.convertToFormat(alpha ? QImage::Format_RGBA8888 : QImage::Format_RGB888);
  const qsizetype row = qsizetype{plain.width()} * (alpha ? 4 : 3);
  QByteArray rows((row + 1) * plain.height(), Qt::Uninitialized);
  for (int y = 0; y < plain.height(); ++y) {
    char* to = rows.data() + y * (row + 1);
    *to = 0;  // the row is stored as it is
    std::memcpy(to + 1, plain.constScanLine(y), static_cast<size_t>(row));
  }
  const bool compressed = qint64{plain.width()} * plain.height() <= kCompressedPixels;
  const QByteArray packed = qCompress(rows, compressed ? 1 : 0);
  QByteArray head = Number(static_cast<quint32>(plain.width())) + Number(static_cast<quint32>(plain.height()));
  head += QByteArray::fromRawData(alpha ? "\x08\x06\0\0\0" : "\x08\x02\0\0\0", 5);
  QByteArray file;
  file.reserve(packed.size() + 100);
  file += "\x89PNG\r\n\x1a\n";
  AddChunk(file, "IHDR", head);
  AddChunk(file, "IDAT", QByteArrayView(packed).sliced(kLengthOfCompress));
  AddChunk(file, "IEND", {});
  return file;
}
