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

// A pixel's value in one component.
int ValueOf(QRgb pixel, int component, const Jp2Form& form) {
  if (form.components == 1) return qGray(pixel);
  const std::array<int, 3> rgb{qRed(pixel), qGreen(pixel), qBlue(pixel)};
  if (form.colourStep == 1) return rgb.at(static_cast<std::size_t>(component)) << (form.precision - 8);
  const double brightness = 0.299 * rgb[0] + 0.587 * rgb[1] + 0.114 * rgb[2];
  if (component == 0) return qRound(brightness);
  const double colour = component == 1 ? (rgb[2] - brightness) / 1.772 : (rgb[0] - brightness) / 1.402;
  return qBound(0, qRound(colour + 128), 255);
}

std::unique_ptr<opj_image_t, decltype(&opj_image_destroy)> Components(const QImage& image, const Jp2Form& form) {
  std::array<opj_image_cmptparm_t, 3> parts{};
  for (std::size_t i = 0; i < parts.size(); ++i) {
    const auto step = static_cast<OPJ_UINT32>(i == 0 ? 1 : form.colourStep);
    parts[i].dx = parts[i].dy = step;
    parts[i].w = static_cast<OPJ_UINT32>(image.width()) / step;
    parts[i].h = static_cast<OPJ_UINT32>(image.height()) / step;
    parts[i].prec = static_cast<OPJ_UINT32>(form.precision);
  }
  const OPJ_COLOR_SPACE space = form.components == 1   ? OPJ_CLRSPC_GRAY
                                : form.colourStep == 1 ? OPJ_CLRSPC_SRGB
                                                       : OPJ_CLRSPC_SYCC;
  opj_image_t* result = opj_image_create(static_cast<OPJ_UINT32>(form.components), parts.data(), space);
  if (result == nullptr) return {nullptr, &opj_image_destroy};
  result->x1 = static_cast<OPJ_UINT32>(image.width());
  result->y1 = static_cast<OPJ_UINT32>(image.height());
  for (int component = 0; component < form.components; ++component) {
    const opj_image_comp_t& plane = result->comps[component];
    for (OPJ_UINT32 i = 0; i < plane.w * plane.h; ++i) {
      const QPoint at(static_cast<int>(i % plane.w * plane.dx), static_cast<int>(i / plane.w * plane.dy));
      plane.data[i] = ValueOf(image.pixel(at), component, form);
    }
  }
  return {result, &opj_image_destroy};
}

}  // namespace

QByteArray WriteJp2(const QImage& image, const Jp2Form& form) {
  const auto components = Components(image.convertToFormat(QImage::Format_RGB32), form);
  const std::unique_ptr<opj_codec_t, decltype(&opj_destroy_codec)> codec(
      opj_create_compress(form.codestreamOnly ? OPJ_CODEC_J2K : OPJ_CODEC_JP2), &opj_destroy_codec);
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
  settings.tcp_mct = form.components == 3 && form.colourStep == 1 ? 1 : 0;
  settings.tcp_numlayers = 1;
  settings.tcp_rates[0] = form.ratio;
  settings.cp_disto_alloc = 1;
  const bool done = opj_setup_encoder(codec.get(), &settings, components.get()) == OPJ_TRUE &&
                    opj_start_compress(codec.get(), components.get(), stream.get()) == OPJ_TRUE &&
                    opj_encode(codec.get(), stream.get()) == OPJ_TRUE &&
                    opj_end_compress(codec.get(), stream.get()) == OPJ_TRUE;
  return done ? sink.bytes : QByteArray();
}
