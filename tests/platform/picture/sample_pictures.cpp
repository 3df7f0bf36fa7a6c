// SPDX-License-Identifier: GPL-3.0-or-later
#include "sample_pictures.h"

#include <zlib.h>

#include <QBuffer>
#include <QImageWriter>
#include <QtEndian>

#include "gif_writer.h"
#include "jp2_writer.h"

using namespace Qt::StringLiterals;

namespace {

QByteArray Written(const QImage& image, const char* format) {
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  QImageWriter writer(&buffer, format);
  writer.setQuality(95);
  return writer.write(image) ? buffer.data() : QByteArray();
}

template <typename Number>
QByteArray Big(Number number) {
  QByteArray bytes(sizeof(Number), '\0');
  qToBigEndian(number, bytes.data());
  return bytes;
}

template <typename Number>
QByteArray Little(Number number) {
  QByteArray bytes(sizeof(Number), '\0');
  qToLittleEndian(number, bytes.data());
  return bytes;
}

// No writer of the system makes a JPEG of four components: a baseline one with each component a flat 8x8 block of the
// middle value. Every block is "difference 0, end of block" with one-entry code tables: two zero bits.
QByteArray CmykJpeg(QSize size) {
  QByteArray file = QByteArray::fromHex("ffd8");
  file += QByteArray::fromHex("ffdb004300") + QByteArray(64, '\x01');
  file += QByteArray::fromHex("ffc0001408") + Big(static_cast<quint16>(size.height())) +
          Big(static_cast<quint16>(size.width())) + QByteArray::fromHex("04011100021100031100041100");
  const QByteArray codeLengths = QByteArray::fromHex("01") + QByteArray(15, '\0') + QByteArray(1, '\0');
  file += QByteArray::fromHex("ffc4001400") + codeLengths + QByteArray::fromHex("ffc4001410") + codeLengths;
  file += QByteArray::fromHex("ffda000e0401000200030004000 03f00");
  const int blocks = ((size.width() + 7) / 8) * ((size.height() + 7) / 8);
  return file + QByteArray(blocks, '\0') + "\xFF\xD9";
}

QByteArray Segment(quint16 marker, const QByteArray& content) {
  return Big(marker) + Big(static_cast<quint16>(content.size() + 2)) + content;
}

}  // namespace

QImage Quarters(QSize size) {
  QImage image(2, 2, QImage::Format_RGB32);
  image.setPixel(0, 0, 0xFFFF0000);
  image.setPixel(1, 0, 0xFF00FF00);
  image.setPixel(0, 1, 0xFF0000FF);
  image.setPixel(1, 1, 0xFFFFFFFF);
  return image.scaled(size);
}

QByteArray SamplePicture(const QString& kind, QSize size) {
  const QImage picture = Quarters(size);
  if (kind == "jpg"_L1) return Written(picture, "jpeg");
  if (kind == "grey.jpg"_L1) return Written(picture.convertToFormat(QImage::Format_Grayscale8), "jpeg");
  if (kind == "cmyk.jpg"_L1) return CmykJpeg(size);
  if (kind == "png"_L1) return Written(picture, "png");
  if (kind == "bmp"_L1) return Written(picture, "bmp");
  if (kind == "upside.bmp"_L1) {
    QByteArray bytes = Written(picture.mirrored(), "bmp");
    qToLittleEndian<qint32>(-size.height(), bytes.data() + 22);
    return bytes;
  }
  if (kind == "gif"_L1) return AnimatedGif(size, {{qRgb(255, 0, 0), 0}});
  if (kind == "clear.png"_L1) {
    QImage clear(size, QImage::Format_ARGB32);
    clear.fill(Qt::transparent);
    return Written(clear, "png");
  }
  if (kind == "jp2"_L1) return WriteJp2(picture, {.ratio = 4});
  if (kind == "j2k"_L1) return WriteJp2(picture, {.ratio = 4, .codestreamOnly = true});
  if (kind == "grey.jp2"_L1) return WriteJp2(picture, {.ratio = 4, .components = 1});
  if (kind == "deep.jp2"_L1) return WriteJp2(picture, {.ratio = 4, .precision = 12});
  if (kind == "ycc.jp2"_L1) return WriteJp2(picture, {.ratio = 4, .colourStep = 2});
  return {};
}

QByteArray AnimatedGif(QSize size, const QList<QPair<QRgb, int>>& frames) {
  QList<QImage> images;
  QList<int> delays;
  for (const auto& [colour, delay] : frames) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(colour);
    images += image;
    delays += delay;
  }
  return WriteGif(images, delays);
}

QByteArray Claim(const QString& kind, quint32 width, quint32 height, quint32 tileSide) {
  QByteArray codestream =
      QByteArray::fromHex("ff4f") +
      Segment(0xFF51, Big(quint16{0}) + Big(width) + Big(height) + QByteArray(8, '\0') + Big(tileSide) + Big(tileSide) +
                          QByteArray(8, '\0') + Big(quint16{3}) + QByteArray::fromHex("070101070101070101")) +
      Segment(0xFF52, QByteArray::fromHex("00000001010504040001")) +
      Segment(0xFF5C, QByteArray::fromHex("40") + QByteArray(16, '\x48')) +
      QByteArray::fromHex("ff90000a0000000000000001ff93") + QByteArray(600, '\x5A');
  if (kind == "j2k"_L1) return codestream;
  if (kind == "jp2"_L1) {
    const QByteArray imageHeader =
        QByteArray::fromHex("0000001669686472") + Big(height) + Big(width) + QByteArray::fromHex("000307070000");
    const QByteArray colour = QByteArray::fromHex("0000000f636f6c7201000000000010");
    return QByteArray::fromHex("0000000c6a5020200d0a870a") + QByteArray::fromHex("0000001466747970") + "jp2 " +
           Big(quint32{0}) + "jp2 " + Big(static_cast<quint32>(8 + imageHeader.size() + colour.size())) + "jp2h" +
           imageHeader + colour + Big(quint32{0}) + "jp2c" + codestream;
  }
  QByteArray file = SamplePicture(kind, QSize(16, 16));
  if (kind == "jpg"_L1) {
    const qsizetype frame = file.indexOf(QByteArray::fromHex("ffc0001108"));
    file.replace(frame + 5, 4, Big(static_cast<quint16>(height)) + Big(static_cast<quint16>(width)));
  } else if (kind == "png"_L1) {
    file.replace(16, 8, Big(width) + Big(height));
    // The checksum has to be right, or the claim would not be believed.
    file.replace(29, 4, Big(static_cast<quint32>(crc32(0, reinterpret_cast<const Bytef*>(file.constData()) + 12, 17))));
  } else if (kind == "bmp"_L1) {
    file.replace(18, 8, Little(width) + Little(height));
  } else if (kind == "gif"_L1) {
    const QByteArray sides = Little(static_cast<quint16>(width)) + Little(static_cast<quint16>(height));
    file.replace(6, 4, sides);
    file.replace(file.indexOf(',') + 5, 4, sides);  // of the first frame
  }
  return file;
}

// Every scan goes through all blocks of the picture anew, and says about none of them anything.
QByteArray SlowJpeg() {
  constexpr int kScans = 16000;
  constexpr int kBlocksSide = 375;
  constexpr int kBlocksOfCode = 1 << 14;
  const QByteArray side = Big(static_cast<quint16>(kBlocksSide * 8));
  QByteArray jpeg = "\xFF\xD8" + Segment(0xFFDB, '\0' + QByteArray(64, '\1'));
  jpeg += Segment(0xFFC2, '\x08' + side + side + QByteArray::fromHex("03011100021100031100"));
  // One code of one bit: 16384 empty blocks and as many more as its fourteen bits say.
  jpeg += Segment(0xFFC4, "\x10\1" + QByteArray(15, '\0') + '\xE0');
  constexpr int kCodes = (kBlocksSide * kBlocksSide + kBlocksOfCode - 1) / kBlocksOfCode;
  const QByteArray scan =
      Segment(0xFFDA, QByteArray::fromHex("010100013f00")) + QByteArray((kCodes * 15 + 7) / 8, '\0');
  return jpeg + scan.repeated(kScans) + "\xFF\xD9";
}
