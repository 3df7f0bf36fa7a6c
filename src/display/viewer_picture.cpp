// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/viewer_picture.h"

#include <QFile>

#include "display/source_file.h"
#include "platform/picture/file_type.h"
#include "platform/picture/film_signature.h"
#include "platform/picture/picture_protocol.h"
#include "station/callsign.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kTypeBytes = 300;

// Nothing of a file that is larger than a decoder takes, or that is no plain file.
QByteArray BytesOf(const QString& name) {
  QFile file(FileOfName(name));
  if (file.fileName().isEmpty() || file.size() > PictureLimits::kFileBytes) return {};
  return file.open(QIODevice::ReadOnly) ? file.read(PictureLimits::kFileBytes) : QByteArray();
}

}  // namespace

QStringList DetailsOf(const Program& program, const SourcePicture& picture, QSize size) {
  const auto shown = [&program](const QString& call) { return ShownCall(call, program.ZeroGlyph); };
  QStringList details{shown(picture.site)};
  if (!picture.sender.isEmpty() && picture.sender != "Not found"_L1) {
    details.append(program.language[TextLine::kFromWord].trimmed() + u' ' + shown(picture.sender));
  }
  details.append(picture.mode.trimmed());
  if (!picture.sentTime.isEmpty()) details.append(picture.sentTime.trimmed() + u" UTC"_s);
  if (!size.isEmpty()) details.append(u"%1 × %2"_s.arg(size.width()).arg(size.height()));
  details.removeAll(QString());
  return details;
}

ViewerPicture::ViewerPicture(const Dependencies& services, QObject* parent) : QObject(parent), services_(services) {}

void ViewerPicture::Load(const SourcePicture& source, QSize box) {
  const Wanted::Token token = wanted_.Ask();
  awaited_ = true;
  services_.background.Run<QByteArray>(
      this, [file = source.file]() { return BytesOf(file); },
      [this, source, box, token](const QByteArray& bytes) {
        if (!token.StillWanted()) return;
        Picture picture;
        picture.source = source;
        picture.bytes = bytes;
        picture.type = ShownTypeOf(bytes.left(kTypeBytes));
        Read(picture, box, token);
      });
}

void ViewerPicture::Read(const Picture& picture, QSize box, const Wanted::Token& token) {
  if (picture.bytes.isEmpty()) return Q_EMIT Failed(picture.source, false);
  if (IsVideoType(picture.type)) return Q_EMIT IsFilm(picture.source);
  Q_EMIT TypeKnown(picture.type);
  // Bytes of no known type may yet be a film, for which no window opens.
  if (!picture.type.isEmpty()) AskSize(picture, token);
  services_.tool.Glance(
      picture.bytes, box, this,
      [this, picture, token](const PictureAnswer& answer) { Glanced(picture, answer, token); },
      OptionsOf(picture.source, token));
}

// The second decoder reads the size while the first one decodes, so that the window is there when the picture is.
void ViewerPicture::AskSize(const Picture& picture, const Wanted::Token& token) {
  services_.tool.ReadSize(
      picture.bytes, this,
      [this, source = picture.source, token](const PictureAnswer& answer) {
        if (token.StillWanted() && awaited_ && answer.ok) Q_EMIT SizeKnown(source, answer.size);
      },
      OptionsOf(picture.source, token));
}

PictureOptions ViewerPicture::OptionsOf(const SourcePicture& source, const Wanted::Token& token) const {
  PictureOptions options;
  options.host = source.host;
  options.wanted = [token]() { return token.StillWanted(); };
  return options;
}

void ViewerPicture::Glanced(const Picture& picture, const PictureAnswer& answer, const Wanted::Token& token) {
  if (!token.StillWanted()) return;
  awaited_ = false;
  if (!answer.ok || answer.frames.isEmpty()) {
    // Bytes of no known type count as a film, but only now that the decoder knows no picture in them either.
    if (picture.type.isEmpty() && !answer.noSandbox) return Q_EMIT IsFilm(picture.source);
    return Q_EMIT Failed(picture.source, answer.noSandbox);
  }
  shown_ = picture;
  shown_.size = answer.size;
  shown_.frames = answer.frames;
  shown_.scales = PictureScales(answer.frames.first().image);
  shown_.whole = answer.frames.first().image.size() == answer.size && picture.type != "gif"_L1;
  Q_EMIT Shown();
  if (!shown_.whole) AskWhole(token);
}

void ViewerPicture::AskWhole(const Wanted::Token& token) {
  services_.tool.Whole(
      shown_.bytes, this, [this, token](const PictureAnswer& answer) { TakeWhole(answer, token); },
      OptionsOf(shown_.source, token));
}

void ViewerPicture::TakeWhole(const PictureAnswer& answer, const Wanted::Token& token) {
  // Without full resolution the picture stays as it was glanced at.
  if (!token.StillWanted() || !answer.ok) return;
  if (answer.frames.size() > 1) {
    shown_.frames = answer.frames;
    shown_.scales = PictureScales(answer.frames.first().image);
    shown_.whole = true;
    return Q_EMIT Sharpened();
  }
  services_.background.Run<PictureScales>(
      this,
      [scales = PictureScales(answer.frames.first().image)]() mutable {
        scales.MakeHalves();
        return std::move(scales);
      },
      [this, token](const PictureScales& scales) {
        if (!token.StillWanted()) return;
        shown_.frames = {PictureFrame{scales.Picture()}};
        shown_.scales = scales;
        shown_.whole = true;
        Q_EMIT Sharpened();
      });
}
