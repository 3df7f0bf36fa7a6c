// SPDX-License-Identifier: GPL-3.0-or-later
#include "gif_writer.h"

#include <QHash>

namespace {

constexpr int kCodeBits = 8;
constexpr int kClear = 1 << kCodeBits;
constexpr int kEnd = kClear + 1;
constexpr int kMaxCode = 4096;
constexpr qsizetype kBlock = 255;

void Put16(QByteArray& out, int value) {
  out += static_cast<char>(value & 0xff);
  out += static_cast<char>((value >> 8) & 0xff);
}

// Codes of growing width, lowest bit first.
class BitWriter {
 public:
  void Put(int code, int width) {
    bits_ |= static_cast<quint32>(code) << count_;
    count_ += static_cast<quint32>(width);
    while (count_ >= 8) {
      bytes_ += static_cast<char>(bits_ & 0xffU);
      bits_ >>= 8U;
      count_ -= 8;
    }
  }
  QByteArray Finish() {
    if (count_ > 0) bytes_ += static_cast<char>(bits_ & 0xffU);
    return bytes_;
  }

 private:
  QByteArray bytes_;
  quint32 bits_ = 0;
  quint32 count_ = 0;
};

QByteArray Compressed(const QImage& indexed) {
  BitWriter writer;
  QHash<int, int> codes;  // code of a known string and the byte behind it, to the code of both
  int next = kEnd + 1;
  int width = kCodeBits + 1;
  int known = -1;
  writer.Put(kClear, width);
  for (int y = 0; y < indexed.height(); ++y) {
    const uchar* row = indexed.constScanLine(y);
    for (int x = 0; x < indexed.width(); ++x) {
      const int byte = row[x];
      if (known < 0) {
        known = byte;
        continue;
      }
      const int key = (known << 8) | byte;
      const auto longer = codes.constFind(key);
      if (longer != codes.constEnd()) {
        known = *longer;
        continue;
      }
      writer.Put(known, width);
      known = byte;
      if (next == kMaxCode) {
        writer.Put(kClear, width);
        codes.clear();
        next = kEnd + 1;
        width = kCodeBits + 1;
        continue;
      }
      if (next == 1 << width) ++width;
      codes.insert(key, next++);
    }
  }
  writer.Put(known, width);
  if (next == 1 << width && width < 12) ++width;
  writer.Put(kEnd, width);
  return writer.Finish();
}

void PutFrame(QByteArray& out, const QImage& frame, int hundredths) {
  const QImage indexed = frame.convertToFormat(QImage::Format_Indexed8, Qt::DiffuseDither);
  out += QByteArrayView("\x21\xf9\x04\x04", 4);
  Put16(out, hundredths);
  out += QByteArrayView("\0\0", 2);
  out += '\x2c';
  Put16(out, 0);
  Put16(out, 0);
  Put16(out, indexed.width());
  Put16(out, indexed.height());
  out += '\x87';  // a colour table of its own, 256 entries
  const QList<QRgb> table = indexed.colorTable();
  for (qsizetype i = 0; i < 256; ++i) {
    const QRgb colour = table.value(i, qRgb(0, 0, 0));
    for (const int part : {qRed(colour), qGreen(colour), qBlue(colour)}) out += static_cast<char>(part);
  }
  out += static_cast<char>(kCodeBits);
  const QByteArray data = Compressed(indexed);
  for (qsizetype at = 0; at < data.size(); at += kBlock) {
    const QByteArray block = data.mid(at, kBlock);
    out += static_cast<char>(block.size());
    out += block;
  }
  out += '\0';
}

}  // namespace

QByteArray WriteGif(const QList<QImage>& frames, const QList<int>& hundredths) {
  if (frames.isEmpty()) return {};
  QByteArray out = "GIF89a";
  Put16(out, frames.first().width());
  Put16(out, frames.first().height());
  out += QByteArrayView("\x70\0\0", 3);
  if (frames.size() > 1) {  // for ever
    out += QByteArrayView("\x21\xff\x0bNETSCAPE2.0\x03\x01\0\0\0", 19);
  }
  for (qsizetype i = 0; i < frames.size(); ++i) {
    PutFrame(out, frames.at(i).scaled(frames.first().size()), hundredths.value(i));
  }
  out += '\x3b';
  return out;
}
