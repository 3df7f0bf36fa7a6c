// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/picture_bytes.h"

#include <zlib.h>

#include <QBuffer>
#include <QPainter>
#include <QtEndian>
#include <algorithm>
#include <array>
#include <cstring>

namespace {

constexpr qint64 kCompressedPixels = 2'000'000;  // takes about 0.2 s; twelve million would take more than one
constexpr qsizetype kLengthOfCompress = 4;       // what qCompress puts in front of the bytes

QByteArray Number(quint32 number) {
  QByteArray bytes(4, Qt::Uninitialized);
  qToBigEndian(number, bytes.data());
  return bytes;
}

// What follows the length: kind and content, as they stand at the end of the file by now.
void CloseChunk(QByteArray& file, qsizetype kindAt) {
  qToBigEndian(static_cast<quint32>(file.size() - kindAt - 4), file.data() + kindAt - 4);
  const auto* bytes = reinterpret_cast<const Bytef*>(file.constData() + kindAt);
  file += Number(static_cast<quint32>(crc32(0, bytes, static_cast<uInt>(file.size() - kindAt))));
}

qsizetype OpenChunk(QByteArray& file, const char* kind) {
  file += Number(0) + QByteArray(kind, 4);
  return file.size() - 4;
}

// The bytes as a zlib stream that stores them as they are.
void AddStored(QByteArray& file, const QByteArray& bytes) {
  constexpr qsizetype kBlock = 65'535;
  file += "\x78\x01";
  for (qsizetype at = 0; at < bytes.size(); at += kBlock) {
    const auto length = static_cast<quint16>(std::min(kBlock, bytes.size() - at));
    std::array<char, 5> head{};
    head[0] = at + length == bytes.size() ? 1 : 0;
    qToLittleEndian(length, head.data() + 1);
    qToLittleEndian(static_cast<quint16>(~length), head.data() + 3);
    file.append(head.data(), head.size());
    file.append(bytes.constData() + at, length);
  }
  const auto* all = reinterpret_cast<const Bytef*>(bytes.constData());
  file += Number(static_cast<quint32>(adler32(1, all, static_cast<uInt>(bytes.size()))));
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
  QByteArray file;
  file.reserve(rows.size() + rows.size() / 1000 + 100);
  file += "\x89PNG\r\n\x1a\n";
  const qsizetype head = OpenChunk(file, "IHDR");
  file += Number(static_cast<quint32>(plain.width())) + Number(static_cast<quint32>(plain.height()));
  file.append(alpha ? "\x08\x06\0\0\0" : "\x08\x02\0\0\0", 5);
  CloseChunk(file, head);
  const qsizetype content = OpenChunk(file, "IDAT");
  if (qint64{plain.width()} * plain.height() <= kCompressedPixels) {
    file.append(QByteArrayView(qCompress(rows, 1)).sliced(kLengthOfCompress));
  } else {
    AddStored(file, rows);
  }
  CloseChunk(file, content);
  CloseChunk(file, OpenChunk(file, "IEND"));
  return file;
}
