// SPDX-License-Identifier: GPL-3.0-or-later
#include "decode.h"

#include <QBuffer>
#include <QElapsedTimer>
#include <QImageReader>
#include <QImageWriter>
#include <algorithm>
#include <chrono>

#include "jpeg2000.h"
#include "platform/picture/picture_protocol.h"

using namespace std::chrono_literals;

namespace {

constexpr int kJpegQuality = 90;
// An animation that takes longer than this to decode plays the frames that were decoded by then: it is shown before the
// program's patience with the job ends.
constexpr std::chrono::milliseconds kAnimationTime = 2500ms;

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

QList<DecodedFrame> DecodeFrames(const QByteArray& bytes, const PictureHeader& header, QSize size, qint64 frameBytes) {
  if (header.kind != PictureKind::Gif) {
    const QImage still = DecodeStill(bytes, header, size);
    return still.isNull() ? QList<DecodedFrame>() : QList<DecodedFrame>{{still, 0}};
  }
  QBuffer buffer;
  buffer.setData(bytes);
  QImageReader reader(&buffer, "gif");
  reader.setAutoDetectImageFormat(false);
  const qint64 granted = frameBytes > 0 ? frameBytes : PictureLimits::kAnimationBytes;
  ThinnedFrames frames(
      std::clamp<qint64>(granted / (qint64{4} * size.width() * size.height()), 1, PictureLimits::kFrames));
  QElapsedTimer watch;
  watch.start();
  while (std::chrono::milliseconds(watch.elapsed()) < kAnimationTime) {
    const QImage frame = reader.read();
    if (frame.isNull()) break;
    frames.Add(frame, size, PlayedDelay(reader.nextImageDelay()));
  }
  return frames.Take();
}

QByteArray Encode24(const QImage& image, WrittenFormat format) {
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  QImageWriter writer(&buffer, format == WrittenFormat::Bmp ? "bmp" : "jpeg");
  writer.setQuality(kJpegQuality);
  return writer.write(OnWhite(image)) ? buffer.data() : QByteArray();
}
