// SPDX-License-Identifier: GPL-3.0-or-later
#include "decode.h"

#include <QBuffer>
#include <QElapsedTimer>
#include <QImageReader>
#include <QImageWriter>
#include <algorithm>
#include <chrono>
#include <cmath>

#include "jpeg2000.h"
#include "platform/picture/picture_protocol.h"

using namespace std::chrono_literals;

namespace {

constexpr int kJpegQuality = 90;
// An animation that takes longer than this to decode plays the frames that were decoded by then: it is shown before the
// program's patience with the job ends.
constexpr std::chrono::milliseconds kAnimationTime = 2500ms;
constexpr std::chrono::milliseconds kWholeTime = 4000ms;  // of one that is to be played whole; see above

const char* ReaderName(PictureKind kind) {
  switch (kind) {
    case PictureKind::Jpeg:
      return "jpeg";
    case PictureKind::Png:
      return "png";
    case PictureKind::Gif:
      return "gif";
    case PictureKind::Bmp:
      return "bmp";
    case PictureKind::Jpeg2000:
    case PictureKind::Unknown:
      break;
  }
  return nullptr;
}

// The image in the format and size in which it is sent.
QImage Finished(const QImage& image, QSize size) {
  if (image.isNull()) return {};
  const QImage::Format format = image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32;
  QImage plain = image.convertToFormat(format);
  if (plain.size() == size) return plain;
  return plain.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation).convertToFormat(format);
}

// Browsers and viewers play frames without a sensible delay at ten a second.
int PlayedDelay(int stored) {
  return stored <= 10 ? 100 : stored;
}

// Keeps every frame at first, then every second, then every fourth, as more of them come: how many there are is known
// only at the end, and an animation that is cut off would miss what its sender wanted to show.
class ThinnedFrames {
 public:
  explicit ThinnedFrames(qint64 most) : most_(most) {}

  void Add(const QImage& frame, QSize size, int delay) {
    if (seen_ % step_ == 0 && kept_.size() == most_) Thin();
    if (seen_ % step_ == 0 && kept_.size() < most_) {
      kept_.append({Finished(frame, size), delay});
    } else {
      kept_.last().delay = static_cast<int>(std::min<qint64>(qint64{kept_.last().delay} + delay, kLongestDelay));
    }
    ++seen_;
  }

  QList<DecodedFrame> Take() {
    if (kept_.size() == 1) kept_.first().delay = 0;
    return std::move(kept_);
  }

 private:
  static constexpr qint64 kLongestDelay = 1 << 24;

  void Thin() {
    step_ *= 2;
    QList<DecodedFrame> thinned;
    for (qsizetype i = 0; i < kept_.size(); ++i) {
      if (i % 2 == 0) {
        thinned.append(kept_.at(i));
      } else {
        thinned.last().delay =
            static_cast<int>(std::min<qint64>(qint64{thinned.last().delay} + kept_.at(i).delay, kLongestDelay));
      }
    }
    kept_ = thinned;
  }

  qint64 most_;
  qint64 seen_ = 0;
  qint64 step_ = 1;
  QList<DecodedFrame> kept_;
};

// The image without see-through parts, which become white.
QImage OnWhite(const QImage& image) {
  if (!image.hasAlphaChannel()) return image.convertToFormat(QImage::Format_RGB32);
  QImage result = image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
  for (int y = 0; y < result.height(); ++y) {
    auto* line = reinterpret_cast<QRgb*>(result.scanLine(y));
    std::transform(line, line + result.width(), line, [](QRgb pixel) {
      const int white = 255 - qAlpha(pixel);
      return qRgb(qRed(pixel) + white, qGreen(pixel) + white, qBlue(pixel) + white);
    });
  }
  result.reinterpretAsFormat(QImage::Format_RGB32);
  return result;
}

}  // namespace

QSize FitInto(QSize picture, QSize box, Fit fit) {
  if (picture.isEmpty() || box.isEmpty()) return {};
  const double scale = std::min(static_cast<double>(box.width()) / picture.width(),
                                static_cast<double>(box.height()) / picture.height());
  if (fit == Fit::DownOnly && scale >= 1) return picture;
  return {std::clamp(qRound(picture.width() * scale), 1, box.width()),
          std::clamp(qRound(picture.height() * scale), 1, box.height())};
}

QImage DecodeStill(const QByteArray& bytes, const PictureHeader& header, QSize size) {
  if (header.kind == PictureKind::Jpeg2000) return Finished(DecodeJpeg2000(bytes, header, size), size);
  const char* name = ReaderName(header.kind);
  if (name == nullptr) return {};
  QBuffer buffer;
  buffer.setData(bytes);
  QImageReader reader(&buffer, name);
  reader.setAutoDetectImageFormat(false);
  if (header.kind == PictureKind::Jpeg) reader.setScaledSize(size);  // the decoder then leaves most of its work out
  return Finished(reader.read(), size);
}

namespace {

QList<DecodedFrame> OneFrame(const QImage& still) {
  return still.isNull() ? QList<DecodedFrame>() : QList<DecodedFrame>{{still, 0}};
}

QList<DecodedFrame> PlayGif(const QByteArray& bytes, QSize size, qint64 mostFrames, std::chrono::milliseconds time) {
  QBuffer buffer;
  buffer.setData(bytes);
  QImageReader reader(&buffer, "gif");
  reader.setAutoDetectImageFormat(false);
  ThinnedFrames frames(mostFrames);
  QElapsedTimer watch;
  watch.start();
  while (std::chrono::milliseconds(watch.elapsed()) < time) {
    const QImage frame = reader.read();
    if (frame.isNull()) break;
    frames.Add(frame, size, PlayedDelay(reader.nextImageDelay()));
  }
  return frames.Take();
}

// The size in which so many frames of this size take no more than the limit together: of a still the largest whole
// reduction, of an animation as much as there is room for.
QSize WholeSize(QSize size, qint64 frames) {
  const auto fits = [frames](QSize reduced) {
    return qint64{4} * reduced.width() * reduced.height() * frames <= PictureLimits::kDecodedBytes;
  };
  if (fits(size)) return size;
  if (frames == 1) {
    int divisor = 2;
    while (!fits(QSize(std::max(1, size.width() / divisor), std::max(1, size.height() / divisor)))) ++divisor;
    return {std::max(1, size.width() / divisor), std::max(1, size.height() / divisor)};
  }
  const double pixels = static_cast<double>(size.width()) * size.height() * static_cast<double>(frames);
  const double scale = std::sqrt(static_cast<double>(PictureLimits::kDecodedBytes) / 4 / pixels);
  return {std::max(1, static_cast<int>(size.width() * scale)), std::max(1, static_cast<int>(size.height() * scale))};
}

}  // namespace

QList<DecodedFrame> DecodeFrames(const QByteArray& bytes, const PictureHeader& header, QSize size, qint64 frameBytes) {
  if (header.kind != PictureKind::Gif) return OneFrame(DecodeStill(bytes, header, size));
  const qint64 granted = frameBytes > 0 ? frameBytes : PictureLimits::kAnimationBytes;
  return PlayGif(bytes, size,
                 std::clamp<qint64>(granted / (qint64{4} * size.width() * size.height()), 1, PictureLimits::kFrames),
                 kAnimationTime);
}

QList<DecodedFrame> DecodeWhole(const QByteArray& bytes, const PictureHeader& header) {
  if (header.kind != PictureKind::Gif) return OneFrame(DecodeStill(bytes, header, WholeSize(header.size, 1)));
  const qint64 frames = std::clamp<qint64>(CountGifFrames(bytes), 1, PictureLimits::kWholeFrames);
  return PlayGif(bytes, WholeSize(header.size, frames), frames, kWholeTime);
}

QByteArray Encode24(const QImage& image, WrittenFormat format) {
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  QImageWriter writer(&buffer, format == WrittenFormat::Bmp ? "bmp" : "jpeg");
  writer.setQuality(kJpegQuality);
  return writer.write(OnWhite(image)) ? buffer.data() : QByteArray();
}
