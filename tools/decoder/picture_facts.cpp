// SPDX-License-Identifier: GPL-3.0-or-later
#include "picture_facts.h"

#include <QImage>
#include <QStringDecoder>
#include <QtEndian>
#include <algorithm>
#include <bitset>
#include <cmath>
#include <memory>
#include <utility>

#include "decode.h"
#include "platform/picture/picture_protocol.h"
#include "platform/text/ansi_text.h"

namespace {

constexpr qsizetype kMostText = 4 * 1024 * 1024;  // bytes of comments and creators, read and written
constexpr double kInchesInMetre = 1 / 0.0254;

// The facts of one file as they are found.
class Facts {
 public:
  void SetDpi(double across, double down) {
    constexpr double kMost = 100'000;
    if (!dpi_.isEmpty() || !(across >= 1 && down >= 1 && across <= kMost && down <= kMost)) return;
    dpi_ = "dpi " + QByteArray::number(std::lround(across)) + ' ' + QByteArray::number(std::lround(down)) + '\n';
  }
  // A text of several lines becomes several facts, because a fact is a line.
  void AddText(const char* word, const QByteArray& bytes) {
    const QByteArray taken = bytes.left(kMostText - read_);
    read_ += taken.size();
    const QString text = TextOf(taken);
    qsizetype from = 0;
    while (from < text.size() && texts_.size() < kMostText) {
      qsizetype end = from;
      while (end < text.size() && !IsBreak(text.at(end))) ++end;
      const QString line = text.sliced(from, end - from).trimmed();
      if (!line.isEmpty()) texts_ += QByteArray(word) + ' ' + line.toUtf8() + '\n';
      from = end + 1;
    }
  }
  QByteArray Lines() const { return dpi_ + texts_; }

 private:
  static bool IsBreak(QChar c) {
    return c.unicode() < 0x20 || c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
  }
  static QString TextOf(const QByteArray& bytes) {
    QStringDecoder utf8(QStringDecoder::Utf8);
    QString text = utf8.decode(bytes);
    return utf8.hasError() ? AnsiText(bytes) : text;
  }

  QByteArray dpi_;
  QByteArray texts_;
  qsizetype read_ = 0;
};

quint16 Big16(const QByteArray& bytes, qsizetype at) {
  return at >= 0 && at + 2 <= bytes.size() ? qFromBigEndian<quint16>(bytes.constData() + at) : quint16{0};
}

quint32 Big32(const QByteArray& bytes, qsizetype at) {
  return at >= 0 && at + 4 <= bytes.size() ? qFromBigEndian<quint32>(bytes.constData() + at) : quint32{0};
}

// The first directory of an Exif segment, in either order of bytes. An offset that points behind the end reads as 0.
class Exif {
 public:
  explicit Exif(const QByteArray& tiff) : tiff_(tiff), little_(tiff.startsWith("II")) {}

  void Read(Facts& facts) const {
    const qsizetype start = U32(4);
    const int entries = U16(start);
    double across = 0;
    double down = 0;
    int unit = 2;
    bool hasCreator = false;
    for (int entry = 0; entry < entries; ++entry) {
      const qsizetype at = start + 2 + 12 * qsizetype{entry};
      if (at + 12 > tiff_.size()) break;
      switch (U16(at)) {
        case 0x011A:
          across = Ratio(U32(at + 8));
          break;
        case 0x011B:
          down = Ratio(U32(at + 8));
          break;
        case 0x0128:
          unit = U16(at + 8);
          break;
        case 0x013B:
          // The first alone: thousands of entries may name the same 64 KB.
          if (!std::exchange(hasCreator, true)) facts.AddText("creator", Text(at));
          break;
        default:
          break;
      }
    }
    const double perInch = unit == 3 ? 2.54 : 1;
    facts.SetDpi(across * perInch, down * perInch);
  }

 private:
  quint16 U16(qsizetype at) const {
    if (at < 0 || at + 2 > tiff_.size()) return 0;
    return little_ ? qFromLittleEndian<quint16>(tiff_.constData() + at) : Big16(tiff_, at);
  }
  quint32 U32(qsizetype at) const {
    if (at < 0 || at + 4 > tiff_.size()) return 0;
    return little_ ? qFromLittleEndian<quint32>(tiff_.constData() + at) : Big32(tiff_, at);
  }
  double Ratio(qsizetype at) const { return U32(at + 4) == 0 ? 0 : static_cast<double>(U32(at)) / U32(at + 4); }
  // Of up to four bytes, the text stands in the entry itself.
  QByteArray Text(qsizetype entry) const {
    const qsizetype count = U32(entry + 4);
    return tiff_.mid(count <= 4 ? entry + 8 : qsizetype{U32(entry + 8)}, count);
  }

  const QByteArray tiff_;
  const bool little_;
};

void ReadSegment(quint8 marker, const QByteArray& content, Facts& facts) {
  if (marker == 0xFE) facts.AddText("comment", content);
  if (marker == 0xE0 && content.startsWith(QByteArray::fromRawData("JFIF\0", 5)) && content.size() >= 12) {
    const int unit = static_cast<quint8>(content.at(7));
    const double perInch = unit == 1 ? 1 : unit == 2 ? 2.54 : 0;  // 0: only the shape of a pixel is told
    facts.SetDpi(Big16(content, 8) * perInch, Big16(content, 10) * perInch);
  }
  if (marker == 0xE1 && content.startsWith(QByteArray::fromRawData("Exif\0\0", 6))) Exif(content.mid(6)).Read(facts);
}

// All segments in front of the pixels. A file may have thousands; each byte is looked at once.
void ReadJpegFacts(const QByteArray& bytes, Facts& facts) {
  qsizetype at = 2;
  while (at + 4 <= bytes.size()) {
    const auto first = static_cast<quint8>(bytes.at(at));
    const auto marker = static_cast<quint8>(bytes.at(at + 1));
    if (first != 0xFF || marker == 0xFF) {
      ++at;
    } else if (marker == 0x00 || marker == 0x01 || (marker >= 0xD0 && marker <= 0xD8)) {
      at += 2;
    } else if (marker == 0xD9 || marker == 0xDA) {
      return;
    } else {
      const int length = std::max<int>(2, Big16(bytes, at + 2));
      ReadSegment(marker, bytes.mid(at + 4, length - 2), facts);
      at += 2 + length;
    }
  }
}

void ReadPngFacts(const QByteArray& bytes, Facts& facts) {
  qsizetype at = 8;
  while (at + 12 <= bytes.size()) {
    const QByteArray kind = bytes.mid(at + 4, 4);
    if (kind == "IDAT") return;
    if (kind == "pHYs" && bytes.size() > at + 16 && bytes.at(at + 16) == 1) {
      facts.SetDpi(Big32(bytes, at + 8) / kInchesInMetre, Big32(bytes, at + 12) / kInchesInMetre);
    }
    at += 12 + qsizetype{Big32(bytes, at)};
  }
}

void ReadBmpFacts(const QByteArray& bytes, Facts& facts) {
  if (bytes.size() < 46) return;
  const auto perMetre = [&bytes](qsizetype at) { return qFromLittleEndian<quint32>(bytes.constData() + at); };
  facts.SetDpi(perMetre(38) / kInchesInMetre, perMetre(42) / kInchesInMetre);
}

// Bits a pixel as the file stores them.
int DepthOf(const QByteArray& bytes, const PictureHeader& header) {
  const auto at = [&bytes](qsizetype place) { return place < bytes.size() ? static_cast<quint8>(bytes.at(place)) : 0; };
  switch (header.kind) {
    case PictureKind::Png: {
      const int kind = at(25);
      const int samples = kind == 2 ? 3 : kind == 4 ? 2 : kind == 6 ? 4 : 1;
      return at(24) * samples;
    }
    case PictureKind::Gif:
      return (at(10) & 7) + 1;
    case PictureKind::Bmp:
      return at(28);
    default:
      return header.depth;
  }
}

// A bit for each of the 16 million colours; see-through pixels count by the colour that they are sent with.
qint64 CountColors(const QImage& image) {
  auto seen = std::make_unique<std::bitset<1 << 24>>();
  for (int y = 0; y < image.height(); ++y) {
    const auto* line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
    for (int x = 0; x < image.width(); ++x) seen->set(line[x] & 0xFFFFFFU);
  }
  return static_cast<qint64>(seen->count());
}

}  // namespace

QByteArray ReadFacts(const QByteArray& bytes, const PictureHeader& header) {
  Facts facts;
  if (header.kind == PictureKind::Jpeg) ReadJpegFacts(bytes, facts);
  if (header.kind == PictureKind::Png) ReadPngFacts(bytes, facts);
  if (header.kind == PictureKind::Bmp) ReadBmpFacts(bytes, facts);
  QByteArray lines = facts.Lines();
  const int depth = DepthOf(bytes, header);
  if (depth > 0) lines += "depth " + QByteArray::number(depth) + '\n';
  const QImage image = WithinLimits(header) ? DecodeStill(bytes, header, header.size) : QImage();
  if (!image.isNull()) lines += "colors " + QByteArray::number(CountColors(image)) + '\n';
  return lines;
}
