// SPDX-License-Identifier: GPL-3.0-or-later
#include "jpeg2000.h"

#include <openjpeg.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>
#include <vector>

#include "platform/picture/picture_protocol.h"

namespace {

using CodecPtr = std::unique_ptr<opj_codec_t, decltype(&opj_destroy_codec)>;
using StreamPtr = std::unique_ptr<opj_stream_t, decltype(&opj_stream_destroy)>;
using ImagePtr = std::unique_ptr<opj_image_t, decltype(&opj_image_destroy)>;

// The bytes as the library's stream. Its callbacks are C, hence the void pointers.
struct MemoryStream {
  const char* data;
  qint64 size;
  qint64 at = 0;
};

OPJ_SIZE_T ReadSome(void* target, OPJ_SIZE_T count, void* user) {
  auto* stream = static_cast<MemoryStream*>(user);
  const qint64 given = std::min<qint64>(static_cast<qint64>(count), stream->size - stream->at);
  if (given <= 0) return static_cast<OPJ_SIZE_T>(-1);
  std::memcpy(target, stream->data + stream->at, static_cast<size_t>(given));
  stream->at += given;
  return static_cast<OPJ_SIZE_T>(given);
}

OPJ_OFF_T SkipSome(OPJ_OFF_T count, void* user) {
  auto* stream = static_cast<MemoryStream*>(user);
  const qint64 target = std::clamp<qint64>(stream->at + count, 0, stream->size);
  const qint64 skipped = target - stream->at;
  stream->at = target;
  return skipped == 0 && count != 0 ? -1 : skipped;
}

OPJ_BOOL SeekTo(OPJ_OFF_T position, void* user) {
  auto* stream = static_cast<MemoryStream*>(user);
  if (position < 0 || position > stream->size) return OPJ_FALSE;
  stream->at = position;
  return OPJ_TRUE;
}

StreamPtr OpenStream(MemoryStream& memory) {
  StreamPtr stream(opj_stream_default_create(OPJ_TRUE), &opj_stream_destroy);
  if (!stream) return stream;
  opj_stream_set_user_data(stream.get(), &memory, nullptr);
  opj_stream_set_user_data_length(stream.get(), static_cast<OPJ_UINT64>(memory.size));
  opj_stream_set_read_function(stream.get(), &ReadSome);
  opj_stream_set_skip_function(stream.get(), &SkipSome);
  opj_stream_set_seek_function(stream.get(), &SeekTo);
  return stream;
}

// How often the size can be halved and still covers the wanted size.
int HalvedTimes(QSize size, QSize wanted, int levels) {
  int times = 0;
  while (times < levels && (size.width() >> (times + 1)) >= wanted.width() &&
         (size.height() >> (times + 1)) >= wanted.height()) {
    ++times;
  }
  return times;
}

ImagePtr Decode(const QByteArray& bytes, const PictureHeader& header, int halved) {
  ImagePtr nothing(nullptr, &opj_image_destroy);
  const CodecPtr codec(opj_create_decompress(header.jpeg2000.boxed ? OPJ_CODEC_JP2 : OPJ_CODEC_J2K),
                       &opj_destroy_codec);
  MemoryStream memory{bytes.constData(), bytes.size()};
  const StreamPtr stream = OpenStream(memory);
  if (!codec || !stream) return nothing;
  opj_dparameters_t parameters;
  opj_set_default_decoder_parameters(&parameters);
  parameters.cp_reduce = static_cast<OPJ_UINT32>(halved);
  if (!opj_setup_decoder(codec.get(), &parameters)) return nothing;
  opj_decoder_set_strict_mode(codec.get(), OPJ_FALSE);  // a picture cut short shows what has arrived
  opj_image_t* raw = nullptr;
  if (!opj_read_header(stream.get(), codec.get(), &raw)) return nothing;
  ImagePtr image(raw, &opj_image_destroy);
  if (!opj_decode(codec.get(), stream.get(), image.get())) return nothing;
  return image;
}

// One component, read as 0 to 255 for each pixel of the whole picture, whatever the component's own size, depth and
// sign.
class Plane {
 public:
  Plane(const opj_image_comp_t& component, QSize size)
      : component_(component),
        offset_(component.sgnd ? 1 << (component.prec - 1) : 0),
        top_((1 << component.prec) - 1),
        columns_(static_cast<size_t>(size.width())),
        height_(size.height()) {
    for (int x = 0; x < size.width(); ++x) {
      columns_[static_cast<size_t>(x)] = static_cast<size_t>(qint64{x} * component.w / size.width());
    }
  }

  void ReadRow(int y, std::vector<int>& values) const {
    const auto row = static_cast<size_t>(qint64{y} * component_.h / height_);
    const OPJ_INT32* source = component_.data + row * component_.w;
    for (size_t x = 0; x < columns_.size(); ++x) {
      const int value = std::clamp(source[columns_[x]] + offset_, 0, top_);
      values[x] = top_ == 255 ? value : value * 255 / top_;
    }
  }

 private:
  const opj_image_comp_t& component_;
  int offset_;
  int top_;
  std::vector<size_t> columns_;
  int height_;
};

int Clamped(double value) {
  return std::clamp(qRound(value), 0, 255);
}

QRgb FromYcc(int y, int cb, int cr) {
  return qRgb(Clamped(y + 1.402 * (cr - 128)), Clamped(y - 0.344136 * (cb - 128) - 0.714136 * (cr - 128)),
              Clamped(y + 1.772 * (cb - 128)));
}

QRgb FromCmyk(int c, int m, int y, int k) {
  return qRgb((255 - c) * (255 - k) / 255, (255 - m) * (255 - k) / 255, (255 - y) * (255 - k) / 255);
}

enum class Colours { Grey, Rgb, Ycc, Cmyk };

Colours ColoursOf(const opj_image_t& image) {
  if (image.numcomps >= 4 && image.color_space == OPJ_CLRSPC_CMYK) return Colours::Cmyk;
  if (image.numcomps < 3) return Colours::Grey;
  // Files without a stated colour space and with colour at a lower resolution are luminance and two differences.
  const bool subsampled = image.comps[1].dx > image.comps[0].dx && image.comps[2].dx > image.comps[0].dx;
  const bool stated = image.color_space == OPJ_CLRSPC_SRGB || image.color_space == OPJ_CLRSPC_GRAY;
  const bool ycc = image.color_space == OPJ_CLRSPC_SYCC || image.color_space == OPJ_CLRSPC_EYCC;
  return ycc || (subsampled && !stated) ? Colours::Ycc : Colours::Rgb;
}

// The component that holds opacity, or -1. A fourth component is not taken for it unless the file says so.
int AlphaOf(const opj_image_t& image) {
  for (OPJ_UINT32 i = 1; i < image.numcomps; ++i) {
    if (image.comps[i].alpha != 0) return static_cast<int>(i);
  }
  return -1;
}

bool Usable(const opj_image_t& image) {
  if (image.numcomps < 1 || image.numcomps > 4) return false;
  return std::all_of(image.comps, image.comps + image.numcomps, [](const opj_image_comp_t& component) {
    return component.data != nullptr && component.w > 0 && component.h > 0 && component.prec >= 1 &&
           component.prec <= 16;
  });
}

QRgb Colour(Colours colours, const std::array<std::vector<int>, 4>& rows, size_t x) {
  switch (colours) {
    case Colours::Grey:
      return qRgb(rows[0][x], rows[0][x], rows[0][x]);
    case Colours::Rgb:
      return qRgb(rows[0][x], rows[1][x], rows[2][x]);
    case Colours::Ycc:
      return FromYcc(rows[0][x], rows[1][x], rows[2][x]);
    case Colours::Cmyk:
      return FromCmyk(rows[0][x], rows[1][x], rows[2][x], rows[3][x]);
  }
  return 0;
}

QImage Assemble(const opj_image_t& image) {
  QSize size(0, 0);
  for (OPJ_UINT32 i = 0; i < image.numcomps; ++i) {
    size = size.expandedTo(QSize(static_cast<int>(image.comps[i].w), static_cast<int>(image.comps[i].h)));
  }
  if (qint64{size.width()} * size.height() * 4 > PictureLimits::kDecodedBytes) return {};
  const Colours colours = ColoursOf(image);
  const int alpha = colours == Colours::Cmyk ? -1 : AlphaOf(image);
  QImage result(size, alpha >= 0 ? QImage::Format_ARGB32 : QImage::Format_RGB32);
  if (result.isNull()) return {};
  std::vector<Plane> planes;
  std::array<std::vector<int>, 4> rows;
  for (OPJ_UINT32 i = 0; i < image.numcomps; ++i) {
    planes.emplace_back(image.comps[i], size);
    rows[i].resize(static_cast<size_t>(size.width()));
  }
  for (int y = 0; y < size.height(); ++y) {
    for (size_t i = 0; i < planes.size(); ++i) planes[i].ReadRow(y, rows[i]);
    auto* line = reinterpret_cast<QRgb*>(result.scanLine(y));
    for (size_t x = 0; x < rows[0].size(); ++x) {
      const QRgb colour = Colour(colours, rows, x);
      const int opacity = alpha >= 0 ? rows[static_cast<size_t>(alpha)][x] : 255;
      line[x] = qRgba(qRed(colour), qGreen(colour), qBlue(colour), opacity);
    }
  }
  return result;
}

}  // namespace

QImage DecodeJpeg2000(const QByteArray& bytes, const PictureHeader& header, QSize wanted) {
  const int halved = HalvedTimes(header.size, wanted, header.jpeg2000.levels);
  const qint64 width = header.size.width() >> halved;
  const qint64 height = header.size.height() >> halved;
  if (width * height * 4 > PictureLimits::kDecodedBytes) return {};
  const ImagePtr image = Decode(bytes, header, halved);
  return image && Usable(*image) ? Assemble(*image) : QImage();
}
