// SPDX-License-Identifier: GPL-3.0-or-later
#include "jobs.h"

#include <fcntl.h>
#include <unistd.h>

#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <cstdio>

#include "platform/picture/file_type.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kSniffedBytes = 300;
constexpr QSize kMeasuredBox(256, 256);  // a marker is decoded to see that it can be, not to be looked at

QByteArray ReadSource(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly) || file.size() > PictureLimits::kFileBytes) return {};
  return file.readAll();
}

bool IsBelow(const QString& path, const QString& dataDir) {
  const QString folder = QFileInfo(QFileInfo(path).path()).canonicalFilePath();
  return !dataDir.isEmpty() && (folder == dataDir || folder.startsWith(dataDir + u'/'));
}

bool WriteAll(int file, const QByteArray& bytes) {
  qsizetype at = 0;
  while (at < bytes.size()) {
    const ssize_t written = write(file, bytes.constData() + at, static_cast<size_t>(bytes.size() - at));
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return false;
    at += written;
  }
  return true;
}

// The new file or the old one, never a torn one. A thumb can be made again, so nothing waits for the disk here: a save
// that does would cost more than the decoding.
bool ReplaceFile(const QString& target, const QByteArray& bytes) {
  if (bytes.isEmpty()) return false;
  const QByteArray part = QFile::encodeName(PartFileName(target, getpid()));
  const int file = open(part.constData(), O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | O_CLOEXEC, 0666);
  if (file < 0) return false;
  const bool whole = WriteAll(file, bytes);
  const bool closed = close(file) == 0;
  const QByteArray name = QFile::encodeName(target);
  if (whole && closed && std::rename(part.constData(), name.constData()) == 0) return true;
  unlink(part.constData());
  return false;
}

bool MakeFile(const PictureRequest& request, const QByteArray& bytes, const PictureHeader& header, QSize size,
              const QString& dataDir) {
  if (!IsBelow(request.target, dataDir)) return false;
  const bool bmp = request.target.endsWith(".bmp"_L1, Qt::CaseInsensitive);
  const QImage image = DecodeStill(bytes, header, size);
  if (image.isNull()) return false;
  return ReplaceFile(request.target, Encode24(image, bmp ? WrittenFormat::Bmp : WrittenFormat::Jpeg));
}

// The cell's picture control knows these and nothing else; whatever it refuses goes through a repair first.
bool LoadsAsItIs(const PictureHeader& header) {
  return header.kind == PictureKind::Gif || header.kind == PictureKind::Bmp ||
         (header.kind == PictureKind::Jpeg && header.depth == 24);
}

}  // namespace

JobResult RunJob(const PictureRequest& request, const QByteArray& body, const QString& dataDir) {
  JobResult result;
  PictureReply& reply = result.reply;
  reply.id = request.id;
  const QByteArray bytes = request.verb == PictureVerb::Measure ? body : ReadSource(request.source);
  const PictureHeader header = ReadPictureHeader(bytes);
  reply.type = FileTypeOf(bytes.left(kSniffedBytes));
  reply.depth = header.depth;
  if (!header.size.isEmpty()) reply.size = header.size;
  if (!WithinLimits(header)) return result;
  switch (request.verb) {
    case PictureVerb::Measure:
      reply.ok = !DecodeStill(bytes, header, FitInto(header.size, kMeasuredBox, Fit::DownOnly)).isNull();
      break;
    case PictureVerb::Thumb:
      reply.ok = !request.box.isEmpty() &&
                 MakeFile(request, bytes, header, FitInto(header.size, request.box, Fit::Always), dataDir);
      break;
    case PictureVerb::Convert:
      reply.ok = MakeFile(request, bytes, header, header.size, dataDir);
      break;
    case PictureVerb::Load:
      if (!LoadsAsItIs(header)) break;
      [[fallthrough]];
    case PictureVerb::View:
      if (request.box.isEmpty()) break;
      result.frames = DecodeFrames(bytes, header, FitInto(header.size, request.box, Fit::DownOnly));
      reply.ok = !result.frames.isEmpty();
      break;
  }
  reply.frames = static_cast<int>(result.frames.size());
  for (const DecodedFrame& frame : std::as_const(result.frames)) {
    reply.payloadBytes += static_cast<qint64>(sizeof(PictureFrameHead)) + frame.image.sizeInBytes();
  }
  return result;
}
