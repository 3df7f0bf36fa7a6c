// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/picture_copy.h"

#include <QGuiApplication>
#include <QMimeData>
#include <memory>
#include <utility>

#include "display/picture_bytes.h"
#include "platform/picture/picture_protocol.h"
#include "platform/whole_file.h"

using namespace Qt::StringLiterals;

namespace {

// The name of a file's own format on the clipboard; empty where it is not offered.
QString OwnFormatOf(const QString& type) {
  if (type == "gif"_L1) return u"image/gif"_s;
  return type == "jpg"_L1 ? u"image/jpeg"_s : QString();
}

}  // namespace

struct PictureCopy::Offer {
  QByteArray bmp;
  QByteArray png;
  QString ownFormat;
  QByteArray ownBytes;
  int waiting = 2;  // formats that are still being made
};

PictureCopy::PictureCopy(const Dependencies& services, QObject* parent) : QObject(parent), services_(services) {}

void PictureCopy::CopyPicture(const SourceFile& file, const Done& done) {
  if (file.Vanished()) {
    if (done) done(CopyResult::Vanished);
    return;
  }
  Begin(done);
  if (file.animated) {
    KeepPasteGif(file);
  } else {
    Decode(file);
  }
}

void PictureCopy::CopyImage(const QImage& image, const Done& done) {
  Begin(done);
  Offered(image, {}, {});
}

// The clipboard is emptied as soon as a copy begins: were its former content still there when this picture cannot be
// decoded, a paste would send the wrong picture.
void PictureCopy::Begin(const Done& done) {
  End(CopyResult::Superseded);
  wanted_.Ask();
  done_ = done;
  QGuiApplication::clipboard()->clear();
}

void PictureCopy::End(CopyResult result) {
  wanted_.Withdraw();
  if (const Done done = std::exchange(done_, {})) done(result);
}

// Animated pictures go to the clipboard through a working copy of this name, at which users have come to look. Where
// it cannot be written, the picture itself is copied all the same.
void PictureCopy::KeepPasteGif(const SourceFile& file) {
  const QString target = services_.appDataDir + u"/images/paste.gif"_s;
  services_.background.Run<bool>(
      this,
      [target, bytes = file.bytes]() {
        const QString part = PartPath(target);
        return WriteWhole(part, bytes) && PutInPlace(part, target);
      },
      [this, file, token = wanted_.Present()](bool) {
        if (token.StillWanted()) Decode(file);
      });
}

void PictureCopy::Decode(const SourceFile& file) {
  const Wanted::Token token = wanted_.Present();
  PictureOptions options;
  options.host = file.picture.host;
  options.wanted = [token]() { return token.StillWanted(); };
  const auto decoded = [this, token, format = OwnFormatOf(file.type), bytes = file.bytes](const PictureAnswer& answer) {
    if (!token.StillWanted()) return;
    if (!answer.ok || answer.frames.isEmpty()) return End(CopyResult::NotDecoded);
    Offered(answer.frames.first().image, format, bytes);
  };
  // Of an animation the first frame is enough; all of them together would be reduced.
  constexpr QSize kWhole(PictureLimits::kBoxSide, PictureLimits::kBoxSide);
  if (file.type == "gif"_L1) return services_.tool.Glance(file.bytes, kWhole, this, decoded, options);
  services_.tool.Whole(file.bytes, this, decoded, options);
}

void PictureCopy::Offered(const QImage& image, const QString& ownFormat, const QByteArray& ownBytes) {
  if (image.isNull()) return End(CopyResult::NotDecoded);
  const auto offer = std::make_shared<Offer>();
  offer->ownFormat = ownFormat;
  offer->ownBytes = ownBytes;
  const auto make = [this, offer, token = wanted_.Present(), image](
                        LooseBackground& maker, QByteArray (*encode)(const QImage&), QByteArray Offer::*bytes) {
    maker.Run<QByteArray>(
        this, [image, encode]() { return encode(image); },
        [this, offer, token, bytes](const QByteArray& made) {
          if (!token.StillWanted()) return;
          (*offer).*bytes = made;
          if (--offer->waiting == 0) PutOnClipboard(*offer);
        });
  };
  make(bmp_, &BmpOf, &Offer::bmp);
  make(png_, &PngOf, &Offer::png);
}

// Bytes only: an image would be encoded when another program asks for it, on the event loop.
void PictureCopy::PutOnClipboard(const Offer& offer) {
  auto data = std::make_unique<QMimeData>();
  if (!offer.png.isEmpty()) data->setData(u"image/png"_s, offer.png);
  if (!offer.bmp.isEmpty()) data->setData(u"image/bmp"_s, offer.bmp);
  if (!offer.ownFormat.isEmpty()) data->setData(offer.ownFormat, offer.ownBytes);
  QGuiApplication::clipboard()->setMimeData(data.release());
  End(CopyResult::Copied);
}
