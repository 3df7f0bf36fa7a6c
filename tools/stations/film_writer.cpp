// SPDX-License-Identifier: GPL-3.0-or-later
#include "film_writer.h"

#include <QBuffer>
#include <QIODevice>
#include <QtEndian>

namespace {

constexpr quint32 kTicks = 1000;  // a second, in the film's own unit
constexpr quint32 kFrameTicks = 200;

QByteArray Word(quint32 value) {
  QByteArray bytes(4, '\0');
  qToBigEndian(value, bytes.data());
  return bytes;
}

QByteArray Half(int value) {
  return Word(static_cast<quint32>(value)).right(2);
}

QByteArray Box(const char* name, const QByteArray& content) {
  return Word(static_cast<quint32>(content.size()) + 8) + name + content;
}

// Version 0 and no flags, with which most boxes begin.
QByteArray Full(const char* name, const QByteArray& content, quint32 flags = 0) {
  return Box(name, Word(flags) + content);
}

const QByteArray& Matrix() {
  static const QByteArray upright =
      Word(0x10000) + QByteArray(12, '\0') + Word(0x10000) + QByteArray(12, '\0') + Word(0x40000000);
  return upright;
}

// Where the frames lie, and how long they are.
struct Samples {
  QList<quint32> offsets;
  QList<quint32> sizes;
  QSize size;
  quint32 Ticks() const { return static_cast<quint32>(offsets.size()) * kFrameTicks; }
};

QByteArray SampleTable(const Samples& samples) {
  const QByteArray entry = QByteArray(6, '\0') + Half(1) + QByteArray(16, '\0') + Half(samples.size.width()) +
                           Half(samples.size.height()) + Word(0x480000) + Word(0x480000) + Word(0) + Half(1) +
                           QByteArray(32, '\0') + Half(24) + Half(-1);
  const auto count = static_cast<quint32>(samples.offsets.size());
  QByteArray sizes = Word(0) + Word(count);
  QByteArray offsets = Word(count);
  for (const quint32 size : samples.sizes) sizes += Word(size);
  for (const quint32 offset : samples.offsets) offsets += Word(offset);
  return Box("stbl",
             Full("stsd", Word(1) + Box("jpeg", entry)) + Full("stts", Word(1) + Word(count) + Word(kFrameTicks)) +
                 Full("stsc", Word(1) + Word(1) + Word(1) + Word(1)) + Full("stsz", sizes) + Full("stco", offsets));
}

QByteArray Movie(const Samples& samples) {
  const QByteArray information =
      Box("minf", Full("vmhd", QByteArray(8, '\0'), 1) + Box("dinf", Full("dref", Word(1) + Full("url ", {}, 1))) +
                      SampleTable(samples));
  const QByteArray media =
      Box("mdia", Full("mdhd", Word(0) + Word(0) + Word(kTicks) + Word(samples.Ticks()) + Word(0)) +
                      Full("hdlr", Word(0) + "vide" + QByteArray(13, '\0')) + information);
  const QByteArray track =
      Full("tkhd",
           Word(0) + Word(0) + Word(1) + Word(0) + Word(samples.Ticks()) + QByteArray(16, '\0') + Matrix() +
               Half(samples.size.width()) + Half(0) + Half(samples.size.height()) + Half(0),
           3);
  const QByteArray header =
      Full("mvhd", Word(0) + Word(0) + Word(kTicks) + Word(samples.Ticks()) + Word(0x10000) + Half(0x100) +
                       QByteArray(10, '\0') + Matrix() + QByteArray(24, '\0') + Word(2));
  return Box("moov", header + Box("trak", track + media));
}

}  // namespace

QByteArray WriteFilm(const QList<QImage>& frames, int rounds) {
  QByteArray pictures;
  Samples samples;
  QList<quint32> starts;
  QList<quint32> sizes;
  for (const QImage& frame : frames) {
    QByteArray jpeg;
    QBuffer buffer(&jpeg);
    buffer.open(QIODevice::WriteOnly);
    frame.save(&buffer, "JPEG", 75);
    starts += static_cast<quint32>(pictures.size());
    sizes += static_cast<quint32>(jpeg.size());
    pictures += jpeg;
    samples.size = frame.size();
  }
  for (int round = 0; round < rounds; ++round) {
    samples.offsets += starts;
    samples.sizes += sizes;
  }
  const QByteArray type = Box("ftyp", "mp42" + Word(0) + "mp42isom");
  // The table stands before the frames and is as long whatever it says of their places.
  const auto before = static_cast<quint32>(type.size() + Movie(samples).size()) + 8;
  for (quint32& offset : samples.offsets) offset += before;
  return type + Movie(samples) + Box("mdat", pictures);
}
