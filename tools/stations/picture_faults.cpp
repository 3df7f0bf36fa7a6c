// SPDX-License-Identifier: GPL-3.0-or-later
#include "picture_faults.h"

#include <QBuffer>
#include <QImage>
#include <QtEndian>
#include <array>

namespace {

constexpr quint32 kSide = 60000;

void PutBig16(QByteArray& bytes, qsizetype at) {
  qToBigEndian(static_cast<quint16>(kSide), bytes.data() + at);
}
void PutBig32(QByteArray& bytes, qsizetype at) {
  qToBigEndian(kSide, bytes.data() + at);
}

quint32 Crc32(const QByteArray& bytes) {
  quint32 crc = 0xffffffffU;
  for (const char byte : bytes) {
    crc ^= static_cast<quint8>(byte);
    for (int bit = 0; bit < 8; ++bit) crc = (crc & 1U) != 0U ? (crc >> 1U) ^ 0xedb88320U : crc >> 1U;
  }
  return ~crc;
}

QByteArray JpegBomb(QByteArray bytes) {
  qsizetype at = 2;
  while (at + 9 < bytes.size()) {
    const auto marker = static_cast<quint8>(bytes.at(at + 1));
    if (marker >= 0xc0 && marker <= 0xc2) {
      PutBig16(bytes, at + 5);
      PutBig16(bytes, at + 7);
      break;
    }
    at += 2 + qFromBigEndian<quint16>(bytes.constData() + at + 2);
  }
  return bytes;
}

QByteArray PngBomb(QByteArray bytes) {
  PutBig32(bytes, 16);
  PutBig32(bytes, 20);
  qToBigEndian(Crc32(bytes.mid(12, 17)), bytes.data() + 29);
  return bytes;
}

// Claims the size for the screen and for the first frame, because readers go by the one or the other.
QByteArray GifBomb(QByteArray bytes) {
  const auto claim = [&bytes](qsizetype at) {
    qToLittleEndian(static_cast<quint16>(kSide), bytes.data() + at);
    qToLittleEndian(static_cast<quint16>(kSide), bytes.data() + at + 2);
  };
  claim(6);
  const auto flags = static_cast<quint8>(bytes.at(10));
  qsizetype at = 13 + ((flags & 0x80U) != 0U ? 3LL << ((flags & 7U) + 1U) : 0);
  while (at + 9 < bytes.size() && bytes.at(at) == '\x21') {  // extensions: blocks of bytes up to an empty one
    at += 2;
    while (at < bytes.size() && bytes.at(at) != '\0') at += 1 + static_cast<quint8>(bytes.at(at));
    ++at;
  }
  if (at + 9 < bytes.size() && bytes.at(at) == '\x2c') claim(at + 5);
  return bytes;
}

QByteArray BmpBomb(QByteArray bytes) {
  qToLittleEndian(kSide, bytes.data() + 18);
  qToLittleEndian(kSide, bytes.data() + 22);
  return bytes;
}

// The claim stands twice in a JP2 file: in its "ihdr" box and in the codestream's size segment.
QByteArray Jp2Bomb(QByteArray bytes) {
  const qsizetype box = bytes.indexOf("ihdr");
  if (box > 0) {
    PutBig32(bytes, box + 4);
    PutBig32(bytes, box + 8);
  }
  const qsizetype size = bytes.indexOf("\xff\x4f\xff\x51");
  constexpr std::array kFields{8, 12, 24, 28};  // width, height, tile width, tile height
  for (const int field : kFields) PutBig32(bytes, size + field);
  return bytes;
}

QByteArray SmallPng() {
  QImage image(8, 8, QImage::Format_RGB32);
  image.fill(Qt::darkGray);
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  image.save(&buffer, "PNG");
  return bytes;
}

}  // namespace

QByteArray AsBomb(const QByteArray& picture) {
  if (picture.startsWith("\xff\xd8")) return JpegBomb(picture);
  if (picture.startsWith("\x89PNG")) return PngBomb(picture);
  if (picture.startsWith("GIF8")) return GifBomb(picture);
  if (picture.startsWith("BM") && picture.size() > 26) return BmpBomb(picture);
  if (picture.contains("\xff\x4f\xff\x51")) return Jp2Bomb(picture);
  return PngBomb(SmallPng());
}
