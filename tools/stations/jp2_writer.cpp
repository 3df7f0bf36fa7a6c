// SPDX-License-Identifier: GPL-3.0-or-later
#include "jp2_writer.h"

#include <openjpeg.h>

#include <array>
#include <cstring>
#include <memory>

namespace {

// The file as the library's stream.
struct Sink {
  QByteArray bytes;
  qsizetype at = 0;
};

OPJ_SIZE_T SinkWrite(void* from, OPJ_SIZE_T count, void* user) {
  auto* sink = static_cast<Sink*>(user);
  const auto size = static_cast<qsizetype>(count);
  if (sink->bytes.size() < sink->at + size) sink->bytes.resize(sink->at + size);
  std::memcpy(sink->bytes.data() + sink->at, from, count);
  sink->at += size;
  return count;
}

OPJ_OFF_T SinkSkip(OPJ_OFF_T count, void* user) {
  static_cast<Sink*>(user)->at += count;
  return count;
}

OPJ_BOOL SinkSeek(OPJ_OFF_T to, void* user) {
  static_cast<Sink*>(user)->at = to;
  return OPJ_TRUE;
}

std::unique_ptr<opj_image_t, decltype(&opj_image_destroy)> Components(const QImage& image) {
  std::array<opj_image_cmptparm_t, 3> parts{};
  for (opj_image_cmptparm_t& part : parts) {
    part.dx = 1;
    part.dy = 1;
    part.w = static_cast<OPJ_UINT32>(image.width());
    part.h = static_cast<OPJ_UINT32>(image.height());
    part.prec = 8;
  }
  opj_image_t* result = opj_image_create(3, parts.data(), OPJ_CLRSPC_SRGB);
  if (result != nullptr) {
    result->x1 = static_cast<OPJ_UINT32>(image.width());
    result->y1 = static_cast<OPJ_UINT32>(image.height());
    qsizetype at = 0;
    for (int y = 0; y < image.height(); ++y) {
      const auto* row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
      for (int x = 0; x < image.width(); ++x, ++at) {
        result->comps[0].data[at] = qRed(row[x]);
        result->comps[1].data[at] = qGreen(row[x]);
        result->comps[2].data[at] = qBlue(row[x]);
      }
    }
  }
  return {result, &opj_image_destroy};
}

}  // namespace

QByteArray WriteJp2(const QImage& image, bool codestreamOnly, float ratio) {
  const auto components = Components(image.convertToFormat(QImage::Format_RGB32));
  const std::unique_ptr<opj_codec_t, decltype(&opj_destroy_codec)> codec(
      opj_create_compress(codestreamOnly ? OPJ_CODEC_J2K : OPJ_CODEC_JP2), &opj_destroy_codec);
  const std::unique_ptr<opj_stream_t, decltype(&opj_stream_destroy)> stream(opj_stream_default_create(OPJ_FALSE),
                                                                            &opj_stream_destroy);
  if (!components || !codec || !stream) return {};
  Sink sink;
  opj_stream_set_write_function(stream.get(), SinkWrite);
  opj_stream_set_skip_function(stream.get(), SinkSkip);
  opj_stream_set_seek_function(stream.get(), SinkSeek);
  opj_stream_set_user_data(stream.get(), &sink, nullptr);

  opj_cparameters_t settings;
  opj_set_default_encoder_parameters(&settings);
  settings.irreversible = 1;
  settings.tcp_mct = 1;
  settings.tcp_numlayers = 1;
  settings.tcp_rates[0] = ratio;
  settings.cp_disto_alloc = 1;
  const bool done = opj_setup_encoder(codec.get(), &settings, components.get()) == OPJ_TRUE &&
                    opj_start_compress(codec.get(), components.get(), stream.get()) == OPJ_TRUE &&
                    opj_encode(codec.get(), stream.get()) == OPJ_TRUE &&
                    opj_end_compress(codec.get(), stream.get()) == OPJ_TRUE;
  return done ? sink.bytes : QByteArray();
}
