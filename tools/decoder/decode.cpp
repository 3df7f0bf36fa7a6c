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
// So long the frames of an animation are to take, read and scaled; where they would take longer, fewer are scaled.
constexpr std::chrono::milliseconds kAnimationTime = 2500ms;
constexpr std::chrono::milliseconds kWholeTime = 3500ms;  // of one that is to be played whole
// An animation whose frames cannot even be read in this time ends with the last that was: the program ends the job
// after five seconds, and nothing would be shown at all.
constexpr std::chrono::milliseconds kReadTime = 4500ms;

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
QImage Finished(const QImage& image, QSize size, Qt::TransformationMode mode = Qt::SmoothTransformation) {
  if (image.isNull()) return {};
  const QImage::Format format = image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32;
  QImage plain = image.convertToFormat(format);
  if (plain.size() == size) return plain;
  return plain.scaled(size, Qt::IgnoreAspectRatio, mode).convertToFormat(format);
}

// Browsers and viewers play frames without a sensible delay at ten a second.
int PlayedDelay(int stored) {
  return stored <= 10 ? 100 : stored;
}

// Decides which frames of an animation there is time to scale. All of them are read, as each builds on the one before;
// every n-th is scaled, so that these spread over the whole length.
class FramePace {
 public:
  FramePace(qint64 frames, std::chrono::milliseconds time) : frames_(frames), time_(time) { watch_.start(); }

  std::chrono::nanoseconds Elapsed() const { return std::chrono::nanoseconds(watch_.nsecsElapsed()); }
  bool IsDue() const { return read_ >= next_; }
  Qt::TransformationMode Mode() const { return fast_ ? Qt::FastTransformation : Qt::SmoothTransformation; }
  // A frame has been read, and was scaled within this time; zero: it was not.
  void Passed(std::chrono::nanoseconds scaling) {
    ++read_;
    if (scaling == 0ns) return;
    scaling_ += scaling;
    inMode_ += scaling;
    ++scaledInMode_;
    Plan();
  }

 private:
  // From what a frame has taken on average, once there is one to speak of. Where it is the reading that takes too long,
  // leaving out more frames than kLeastShare allows would win next to nothing.
  void Plan() {
    next_ = read_;
    if (16 * Elapsed() < time_) return;
    const qint64 ahead = std::max<qint64>(0, frames_ - read_);
    const std::chrono::nanoseconds reading = std::max<std::chrono::nanoseconds>((Elapsed() - scaling_) / read_, 1ns);
    const std::chrono::nanoseconds left = std::max<std::chrono::nanoseconds>(time_ - Elapsed() - ahead * reading, 1ns);
    const std::chrono::nanoseconds one = inMode_ / scaledInMode_;
    const qint64 skipped = std::min<qint64>(ahead * one / left, kLeastShare * one / reading);
    next_ = read_ + skipped;
    if (fast_ || skipped == 0 || 2 * Elapsed() < time_) return;
    fast_ = true;
    inMode_ = 0ns;
    scaledInMode_ = 0;
  }

  static constexpr int kLeastShare = 8;  // scaling may always take an eighth of what reading takes
  qint64 frames_;                        // as the file's blocks tell it
  std::chrono::nanoseconds time_;
  QElapsedTimer watch_;
  std::chrono::nanoseconds scaling_{0};
  std::chrono::nanoseconds inMode_{0};  // of it in the present mode
  qint64 scaledInMode_ = 0;
  qint64 read_ = 0;
  qint64 next_ = 0;  // the frame that is scaled next
  bool fast_ = false;
};

// Keeps every frame at first, then every second, then every fourth, as more of them come: how many there are is known
// only at the end, and an animation that is cut off would miss what its sender wanted to show.
class ThinnedFrames {
 public:
  explicit ThinnedFrames(qint64 most) : most_(most) {}

  // Whether the next frame may be kept; then it is, unless it is skipped.
  bool Wants() {
    if (seen_ % step_ == 0 && kept_.size() == most_) Thin();
    return seen_ % step_ == 0 && kept_.size() < most_;
  }
  void Keep(const QImage& frame, int delay) {
    kept_.append({frame, delay});
    ++seen_;
  }
  void Skip(int delay) {
    kept_.last().delay = static_cast<int>(std::min<qint64>(qint64{kept_.last().delay} + delay, kLongestDelay));
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
  FramePace pace(CountGifFrames(bytes), time);
  while (pace.Elapsed() < kReadTime) {
    const QImage frame = reader.read();
    if (frame.isNull()) break;
    const int delay = PlayedDelay(reader.nextImageDelay());
    const std::chrono::nanoseconds before = pace.Elapsed();
    const bool kept = frames.Wants() && pace.IsDue();
    if (kept) {
      frames.Keep(Finished(frame, size, pace.Mode()), delay);
    } else {
      frames.Skip(delay);
    }
    pace.Passed(kept ? pace.Elapsed() - before : 0ns);
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
