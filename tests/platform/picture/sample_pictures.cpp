// SPDX-License-Identifier: GPL-3.0-or-later
#include "sample_pictures.h"

#include <openjpeg.h>

#include <QBuffer>
#include <QFile>
#include <QImageWriter>
#include <QTemporaryDir>
#include <QtEndian>
#include <array>

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

struct PlaneLayout {
  int components = 3;
  int precision = 8;
  int colourStep = 1;  // 2: colour components at half the size
  OPJ_CODEC_FORMAT codec = OPJ_CODEC_JP2;
};

int PlaneValue(QRgb pixel, int component, const PlaneLayout& layout) {
  const std::array<int, 3> rgb{qRed(pixel), qGreen(pixel), qBlue(pixel)};
  if (layout.colourStep == 1) {
    return layout.components == 1 ? qGray(pixel) : rgb.at(static_cast<size_t>(component)) << (layout.precision - 8);
  }
  const double luminance = 0.299 * rgb[0] + 0.587 * rgb[1] + 0.114 * rgb[2];
  if (component == 0) return qRound(luminance);
  return component == 1 ? qBound(0, qRound((rgb[2] - luminance) / 1.772 + 128), 255)
                        : qBound(0, qRound((rgb[0] - luminance) / 1.402 + 128), 255);
}

QByteArray Jpeg2000(const QImage& picture, const PlaneLayout& layout) {
  std::array<opj_image_cmptparm_t, 3> planes = {};
  for (size_t i = 0; i < planes.size(); ++i) {
    const auto step = static_cast<OPJ_UINT32>(i == 0 ? 1 : layout.colourStep);
    planes[i].dx = planes[i].dy = step;
    planes[i].w = static_cast<OPJ_UINT32>(picture.width()) / step;
    planes[i].h = static_cast<OPJ_UINT32>(picture.height()) / step;
    planes[i].prec = static_cast<OPJ_UINT32>(layout.precision);
  }
  opj_image_t* image = opj_image_create(static_cast<OPJ_UINT32>(layout.components), planes.data(),
                                        layout.components == 1   ? OPJ_CLRSPC_GRAY
                                        : layout.colourStep == 1 ? OPJ_CLRSPC_SRGB
                                                                 : OPJ_CLRSPC_SYCC);
  image->x1 = static_cast<OPJ_UINT32>(picture.width());
  image->y1 = static_cast<OPJ_UINT32>(picture.height());
  for (int c = 0; c < layout.components; ++c) {
    const opj_image_comp_t& plane = image->comps[c];
    for (OPJ_UINT32 i = 0; i < plane.w * plane.h; ++i) {
      const auto x = static_cast<int>(i % plane.w * plane.dx);
      const auto y = static_cast<int>(i / plane.w * plane.dy);
      plane.data[i] = PlaneValue(picture.pixel(x, y), c, layout);
    }
  }
  opj_cparameters_t parameters;
  opj_set_default_encoder_parameters(&parameters);
  parameters.tcp_numlayers = 1;
  parameters.cp_disto_alloc = 1;
  parameters.tcp_rates[0] = 4;
  parameters.tcp_mct = layout.components == 3 && layout.colourStep == 1 ? 1 : 0;
  opj_codec_t* codec = opj_create_compress(layout.codec);
  opj_setup_encoder(codec, &parameters, image);
  const QTemporaryDir folder;
  const QString path = folder.filePath(u"picture"_s);
  opj_stream_t* stream = opj_stream_create_default_file_stream(QFile::encodeName(path).constData(), OPJ_FALSE);
  const bool ok =
      opj_start_compress(codec, image, stream) && opj_encode(codec, stream) && opj_end_compress(codec, stream);
  opj_stream_destroy(stream);
  opj_destroy_codec(codec);
  opj_image_destroy(image);
  QFile file(path);
  return ok && file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Codes of 9 bits with the table cleared so often that they never grow: GIF data without any compression.
QByteArray GifData(qsizetype pixels, quint8 colour) {
  QByteArray packed;
  quint32 bits = 0;
  int count = 0;
  const auto put = [&](quint32 code) {
    bits |= code << count;
    for (count += 9; count >= 8; count -= 8, bits >>= 8) packed += static_cast<char>(bits & 0xFF);
  };
  for (qsizetype i = 0; i < pixels; ++i) {
    if (i % 200 == 0) put(256);
    put(colour);
  }
  put(257);
  if (count > 0) packed += static_cast<char>(bits & 0xFF);
  QByteArray blocks(1, '\x08');
  for (qsizetype at = 0; at < packed.size(); at += 255) {
    const QByteArray block = packed.mid(at, 255);
    blocks += static_cast<char>(block.size()) + block;
  }
  return blocks + '\0';
}

QByteArray Segment(quint16 marker, const QByteArray& content) {
  return Big(marker) + Big(static_cast<quint16>(content.size() + 2)) + content;
}

}  // namespace

QImage Quarters(QSize size) {
  QImage image(size, QImage::Format_RGB32);
  for (int y = 0; y < size.height(); ++y) {
    for (int x = 0; x < size.width(); ++x) {
      const bool right = x >= size.width() / 2;
      const bool low = y >= size.height() / 2;
      image.setPixel(x, y, low ? (right ? 0xFFFFFFFF : 0xFF0000FF) : (right ? 0xFF00FF00 : 0xFFFF0000));
    }
  }
  return image;
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
  if (kind == "jp2"_L1) return Jpeg2000(picture, {});
  if (kind == "j2k"_L1) return Jpeg2000(picture, {.codec = OPJ_CODEC_J2K});
  if (kind == "grey.jp2"_L1) return Jpeg2000(picture, {.components = 1});
  if (kind == "deep.jp2"_L1) return Jpeg2000(picture, {.precision = 12});
  if (kind == "ycc.jp2"_L1) return Jpeg2000(picture, {.colourStep = 2});
  return {};
}

QByteArray AnimatedGif(QSize size, const QList<QPair<QRgb, int>>& frames) {
  const QByteArray sides = Little(static_cast<quint16>(size.width())) + Little(static_cast<quint16>(size.height()));
  QByteArray file = "GIF89a" + sides + QByteArray::fromHex("f70000");
  for (int i = 0; i < 256; ++i) {
    const QRgb colour = i < frames.size() ? frames.at(i).first : 0;
    for (const int part : {qRed(colour), qGreen(colour), qBlue(colour)}) file += static_cast<char>(part);
  }
  for (qsizetype i = 0; i < frames.size(); ++i) {
    file += QByteArray::fromHex("21f90400") + Little(static_cast<quint16>(frames.at(i).second)) + QByteArray(2, '\0');
    file += ',' + QByteArray(4, '\0') + sides + '\0';
    file += GifData(qsizetype{size.width()} * size.height(), static_cast<quint8>(i));
  }
  return file + ';';
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
    quint32 sum = 0xFFFFFFFF;
    for (const char byte : file.mid(12, 17)) {
      sum ^= static_cast<quint8>(byte);
      for (int bit = 0; bit < 8; ++bit) sum = (sum >> 1) ^ ((sum & 1) != 0 ? 0xEDB88320 : 0);
    }
    file.replace(29, 4, Big(~sum));
  } else if (kind == "bmp"_L1) {
    file.replace(18, 8, Little(width) + Little(height));
  } else if (kind == "gif"_L1) {
    const QByteArray sides = Little(static_cast<quint16>(width)) + Little(static_cast<quint16>(height));
    file.replace(6, 4, sides);
    file.replace(file.lastIndexOf(',', 13 + 768 + 20) + 5, 4, sides);
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
