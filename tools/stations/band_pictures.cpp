// SPDX-License-Identifier: GPL-3.0-or-later
#include "band_pictures.h"

#include <QBuffer>
#include <QLocale>
#include <algorithm>
#include <array>

#include "film_writer.h"
#include "gif_writer.h"
#include "jp2_writer.h"
#include "overlay.h"
#include "scenes.h"

namespace {

constexpr qsizetype kTailLength = 60;

// Senders. Suffixes that begin with Q are given to nobody; none of the calls holds a word that names a mode.
const std::array kCallers{
    u"ZZ9QX"_s,  u"DL0QPA"_s, u"DK7QXB"_s, u"F4QYC"_s,  u"F8QZD"_s,  u"G0QBE"_s,  u"G4QVF"_s,  u"GM3QNG"_s, u"I2QRH"_s,
    u"IK4QSJ"_s, u"EA3QTL"_s, u"EA7QVM"_s, u"PA3QWN"_s, u"ON5QXO"_s, u"OZ1QYP"_s, u"SM6QZQ"_s, u"LA8QBR"_s, u"OH2QCS"_s,
    u"SP9QDT"_s, u"OK1QEU"_s, u"HA5QFV"_s, u"OE6QGW"_s, u"HB9QHX"_s, u"S52QIY"_s, u"9A4QJZ"_s, u"YO3QLA"_s, u"LZ2QMB"_s,
    u"CT1QNC"_s, u"EI7QOD"_s, u"K1QPE"_s,  u"W2QRF"_s,  u"N3QSG"_s,  u"KB4QTH"_s, u"W5QUJ"_s,  u"K6QVL"_s,  u"N7QWM"_s,
    u"WA8QXN"_s, u"K9QYO"_s,  u"N0QZP"_s,  u"VE3QBS"_s, u"VE7QCT"_s, u"JA1QDU"_s, u"JH3QEV"_s, u"VK2QFW"_s, u"VK5QGX"_s,
    u"ZL1QHY"_s, u"PY2QIZ"_s, u"LU4QJA"_s, u"ZS6QLB"_s, u"ZZ9BAY"_s, u"ZZ9FOX"_s, u"ZZ9SUN"_s};
const std::array kModes{u"EP"_s,  u"EP"_s,  u"EP"_s,   u"EPH"_s, u"EPH"_s, u"FT8"_s,
                        u"FT4"_s, u"JS8"_s, u"JT65"_s, u"PSK"_s, u"QK"_s};

QSize SizeBySeed(Rng& rng, PictureType type) {
  if (type == PictureType::Gif || type == PictureType::Bmp || type == PictureType::Mp4) return {320, 256};
  if (type == PictureType::AnimatedGif) return {200, 160};
  if (type == PictureType::Png) return {400, 300};
  const std::array sizes{QSize(640, 480), QSize(640, 480),  QSize(640, 480), QSize(640, 480), QSize(800, 600),
                         QSize(800, 600), QSize(1024, 768), QSize(320, 256), QSize(480, 640), QSize(960, 400)};
  return rng.Pick(sizes);
}

PictureType TypeBySeed(Rng& rng) {
  using enum PictureType;
  const std::array types{Jpeg, Jpeg, Jpeg, Jpeg, Jpeg, Jpeg, Jpeg,        Jp2, Jp2,          Jp2,
                         Jp2,  Jp2,  Jp2,  Png,  Png,  Gif,  AnimatedGif, Bmp, J2kCodestream};
  return rng.Pick(types);
}

// The recipe with nothing left open.
PictureRecipe Settled(PictureRecipe recipe) {
  Rng rng(recipe.seed);
  const PictureType type = TypeBySeed(rng);
  if (recipe.type == PictureType::Any) recipe.type = type;
  const QSize size = SizeBySeed(rng, recipe.type);
  if (recipe.size.isEmpty()) recipe.size = size;
  const QStringList scenes = SceneNames();
  // The last scene is for weather sites only.
  const QString& scene = scenes.at(rng.Int(0, static_cast<int>(scenes.size()) - 2));
  if (recipe.scene.isEmpty()) recipe.scene = scene;
  const QString caller = rng.Pick(kCallers);
  if (recipe.caller.isEmpty()) recipe.caller = caller;
  const QString mode = rng.Pick(kModes);
  if (recipe.mode.isEmpty()) recipe.mode = mode;
  const int snr = -rng.Int(1, 19);
  if (recipe.snr == 0) recipe.snr = snr;
  if (!recipe.sent.isValid()) recipe.sent = QDateTime::currentDateTimeUtc();
  return recipe;
}

QImage Paint(const PictureRecipe& settled) {
  Canvas canvas(settled.size, settled.seed);
  for (const Scene& scene : kScenes) {
    if (scene.name == settled.scene) scene.paint(canvas);
  }
  if (settled.scene == kScenes.back().name) {
    canvas.p.end();
    return canvas.image;
  }
  QString partner = canvas.rng.Pick(kCallers);
  if (partner == settled.caller) partner = u"ZZ9QX"_s;
  PaintOverlay(canvas, {settled.caller, partner, settled.sent, settled.snr}, [&](QSize size) {
    Canvas small(size, settled.seed + 1);
    kScenes.at(settled.seed % (kScenes.size() - 1)).paint(small);
    small.p.end();
    return small.image;
  });
  canvas.p.end();
  return canvas.image;
}

QByteArray Saved(const QImage& image, const char* format, int quality) {
  QByteArray file;
  QBuffer buffer(&file);
  buffer.open(QIODevice::WriteOnly);
  image.save(&buffer, format, quality);
  return file;
}

// A slow pan to and fro over the picture: what a moving picture on the band usually is.
QList<QImage> PanOf(const QImage& image) {
  QList<QImage> frames;
  const int wide = image.width() * 4 / 5;
  const int high = image.height() * 4 / 5;
  constexpr std::array kSteps{0, 1, 2, 3, 4, 3, 2, 1};
  for (const int step : kSteps) {
    frames << image.copy((image.width() - wide) * step / 4, (image.height() - high) * step / 8, wide, high);
  }
  return frames;
}

QByteArray AnimatedGifOf(const QImage& image) {
  const QList<QImage> frames = PanOf(image);
  return WriteGif(frames, QList<int>(frames.size(), 15));
}

QByteArray Encoded(const QImage& painted, const PictureRecipe& settled) {
  QImage image = painted;
  if (settled.type == PictureType::Jpeg || settled.type == PictureType::Jp2) Grain(image, 5, settled.seed);
  switch (settled.type) {
    case PictureType::Jp2:
      return WriteJp2(image);
    case PictureType::J2kCodestream:
      return WriteJp2(image, {.codestreamOnly = true});
    case PictureType::Png:
      return Saved(image, "PNG", -1);
    case PictureType::Gif:
      return WriteGif({image});
    case PictureType::AnimatedGif:
      return AnimatedGifOf(image);
    case PictureType::Bmp:
      return Saved(image.convertToFormat(QImage::Format_RGB888), "BMP", -1);
    case PictureType::Mp4:
      return WriteFilm(PanOf(image), 5);
    default:
      return Saved(image, "JPEG", image.width() > 900 ? 68 : 80);
  }
}

QByteArray TailOf(const PictureRecipe& settled) {
  if (settled.tail == TailStyle::None) return {};
  const bool hybrid = settled.mode == "EPH"_L1;
  QByteArray text = settled.tail == TailStyle::Stars ? "0042***" : "";
  text += settled.caller.toLatin1() + (hybrid ? " -HYBRID- * EP" : " * " + settled.mode.toLatin1());
  text += " snr " + QByteArray::number(settled.snr) + " *";
  text += QLocale::c().toString(settled.sent.toUTC(), u"MM:dd:yyyy HH:mm"_s).toLatin1();
  if (settled.tail != TailStyle::Short) text = text.leftJustified(kTailLength, ' ', true);
  return QByteArray(3, '\0') + text;
}

}  // namespace

QStringList SceneNames() {
  QStringList names;
  for (const Scene& scene : kScenes) names << scene.name.toString();
  return names;
}

QImage PaintPicture(const PictureRecipe& recipe) {
  return Paint(Settled(recipe));
}

QByteArray MakePicture(const PictureRecipe& recipe) {
  const PictureRecipe settled = Settled(recipe);
  return Encoded(Paint(settled), settled) + TailOf(settled);
}

QByteArray MakeTail(const PictureRecipe& recipe) {
  return TailOf(Settled(recipe));
}
