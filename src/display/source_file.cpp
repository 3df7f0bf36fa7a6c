// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/source_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPointer>
#include <algorithm>
#include <cerrno>
#include <memory>

#include "platform/picture/film_signature.h"
#include "platform/picture/picture_protocol.h"
#include "station/date_text.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kTypeBytes = 300;

}  // namespace

// O_NONBLOCK, because a named pipe in the folder must not hold the event loop.
OpenFile::OpenFile(const QString& path)
    : file_(open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY)) {}

OpenFile::~OpenFile() {
  if (file_ >= 0) close(file_);
}

QByteArray OpenFile::Bytes() const {
  return Bytes(PictureLimits::kFileBytes);
}

QByteArray OpenFile::Bytes(qsizetype most) const {
  struct stat facts {};
  if (file_ < 0 || fstat(file_, &facts) != 0 || !S_ISREG(facts.st_mode)) return {};
  if (facts.st_size > PictureLimits::kFileBytes) return {};
  QByteArray bytes(std::min(most, static_cast<qsizetype>(facts.st_size)), Qt::Uninitialized);
  qsizetype filled = 0;
  while (filled < bytes.size()) {
    const ssize_t got = pread(file_, bytes.data() + filled, static_cast<size_t>(bytes.size() - filled), filled);
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) break;
    filled += got;
  }
  bytes.truncate(filled);
  return bytes;
}

QString FileOfName(const QString& name) {
  if (name.isEmpty()) return {};
  const QFileInfo wanted(name);
  if (wanted.isFile()) return name;
  const QStringList found = wanted.dir().entryList({wanted.fileName() + u".*"_s}, QDir::Files, QDir::Name);
  return found.isEmpty() ? QString() : wanted.dir().filePath(found.first());
}

QString MakeFileStamp(const QString& sentTime) {
  const QDateTime sent = ReadDate(sentTime);
  if (!sent.isValid()) return {};
  return sent.toString(sentTime.contains(u':') ? u"yyyy_MM_dd hh_mm"_s : u"yyyy_MM_dd"_s);
}

QString SourceFile::Call() const {
  const bool sender = !picture.sender.isEmpty() && picture.sender != "Not found"_L1;
  return sender ? picture.sender : picture.site;
}

QString SourceFile::Extension() const {
  static const QStringList kKnown{u"gif"_s, u"jpg"_s, u"jp2"_s, u"png"_s, u"bmp"_s, u"mp4"_s, u"mpg"_s, u"avi"_s};
  return kKnown.contains(type) ? type : u"jpg"_s;
}

SourceFiles::SourceFiles(const Dependencies& services, QObject* parent) : QObject(parent), services_(services) {}

void SourceFiles::FindSourceFile(const SourcePicture& picture, QObject* context, const Found& found) {
  const QString path = FileOfName(picture.file);
  services_.background.Run<QByteArray>(
      this, [file = std::make_shared<const OpenFile>(path)]() { return file->Bytes(); },
      [this, named = picture, path, asker = QPointer(context), found](const QByteArray& bytes) mutable {
        named.file = path;
        if (asker != nullptr) TakeBytes(named, bytes, asker, found);
      });
}

void SourceFiles::TakeBytes(const SourcePicture& picture, const QByteArray& bytes, QObject* context,
                            const Found& found) {
  SourceFile file{picture, picture.file, bytes, ShownTypeOf(bytes.left(kTypeBytes)), false};
  if (file.type != "gif"_L1) {
    QMetaObject::invokeMethod(
        context, [file, found]() { found(file); }, Qt::QueuedConnection);
    return;
  }
  PictureOptions options;
  options.host = picture.host;
  services_.tool.CountFrames(
      bytes, context,
      [file, found](const PictureAnswer& answer) mutable {
        file.animated = answer.frameCount > 1;
        found(file);
      },
      options);
}
