// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/picture/picture_job.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <utility>

#include "platform/picture/file_type.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kSniffedBytes = 300;

// Returns the bytes of a file; nothing where it is no plain file, is too large or cannot be read. O_NONBLOCK, because a
// named pipe in the folder must not block the helper's thread.
QByteArray ReadSource(const QString& path) {
  const int file = open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
  if (file < 0) return {};
  QByteArray bytes;
  struct stat facts {};
  if (fstat(file, &facts) == 0 && S_ISREG(facts.st_mode) && facts.st_size <= PictureLimits::kFileBytes) {
    bytes = QByteArray(static_cast<qsizetype>(facts.st_size), Qt::Uninitialized);
    qsizetype filled = 0;
    ssize_t got = 1;
    while (filled < bytes.size() && got > 0) {
      got = read(file, bytes.data() + filled, static_cast<size_t>(bytes.size() - filled));
      if (got < 0 && errno == EINTR)
        got = 1;
      else
        filled += std::max<ssize_t>(got, 0);
    }
    bytes.truncate(filled);
  }
  close(file);
  return bytes;
}

bool IsBelow(const QString& path, const QString& dataDir) {
  const QString top = QFileInfo(dataDir).canonicalFilePath();
  const QString folder = QFileInfo(QFileInfo(path).path()).canonicalFilePath();
  return !top.isEmpty() && (folder == top || folder.startsWith(top + u'/'));
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

// Leaves the new file or the old one, never a torn one: a file that could not be written and closed is removed. It does
// not wait for the disk, because a thumb can be made again, and waiting would take longer than the decoding.
bool StoreFile(const PictureTask& task, int part, const QByteArray& bytes) {
  if (bytes.isEmpty() || !IsBelow(task.target, task.dataDir)) return false;
  // The mark of an unfinished file is in front of its name, not behind it: a search for "3-7.*" must not find it.
  const QFileInfo info(task.target);
  const QByteArray unfinished =
      QFile::encodeName(u"%1/.part-%2-%3"_s.arg(info.path(), QString::number(part), info.fileName()));
  const int file = open(unfinished.constData(), O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | O_CLOEXEC, 0666);
  if (file < 0) return false;
  const bool written = WriteAll(file, bytes);
  const bool closed = close(file) == 0;
  if (written && closed && std::rename(unfinished.constData(), QFile::encodeName(task.target).constData()) == 0)
    return true;
  unlink(unfinished.constData());
  return false;
}

// An image that refers to a frame's pixels in the answer's bytes instead of copying them, and keeps those bytes in
// memory as long as it lives.
QImage WindowOn(const QByteArray& body, qint64 at, const PictureFrameHead& head) {
  auto* owner = new QByteArray(body);
  return QImage(
      reinterpret_cast<const uchar*>(owner->constData()) + at, head.width, head.height, qsizetype{head.width} * 4,
      head.opaque != 0 ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied,
      [](void* bytesOfImage) { delete static_cast<QByteArray*>(bytesOfImage); }, owner);
}

// copied: each frame frees its own pixels.
bool TakeFrames(const PictureReply& reply, const QByteArray& body, bool copied, PictureAnswer& answer) {
  qint64 at = 0;
  while (at < body.size()) {
    PictureFrameHead head;
    constexpr qint64 kHead = sizeof(head);
    if (body.size() - at < kHead || answer.frames.size() >= reply.frames) return false;
    std::memcpy(&head, body.constData() + at, kHead);
    at += kHead;
    const qint64 bytes = qint64{head.width} * head.height * 4;
    if (head.width < 1 || head.height < 1 || head.width > PictureLimits::kSide || head.height > PictureLimits::kSide ||
        head.delay < 0 || bytes > body.size() - at) {
      return false;
    }
    const QImage window = WindowOn(body, at, head);
    at += bytes;
    answer.frames.append({copied && reply.frames > 1 ? window.copy() : window, std::chrono::milliseconds(head.delay)});
  }
  return answer.frames.size() == reply.frames && !answer.frames.isEmpty();
}

void TakeAnswer(const PictureTask& task, int part, const HelperAnswer& given, PictureAnswer& answer) {
  const std::optional<PictureReply> reply =
      given.end == HelperEnd::Answered ? ReadReply(given.line) : std::optional<PictureReply>();
  if (!reply || reply->id != task.request.id) return;
  answer.noSandbox = reply->outcome == PictureOutcome::NoSandbox;
  answer.size = reply->size;
  answer.depth = reply->depth;
  if (reply->outcome != PictureOutcome::Done) return;
  switch (task.request.verb) {
    case PictureVerb::Measure:
    case PictureVerb::Size:
      answer.ok = true;
      break;
    case PictureVerb::Frames:
    case PictureVerb::Facts:
      answer.frameCount = reply->frames;
      answer.facts = given.body;
      answer.ok = true;
      break;
    case PictureVerb::Thumb:
    case PictureVerb::Convert:
    case PictureVerb::ConvertToBmp:
      answer.ok = StoreFile(task, part, given.body);
      answer.notStored = !answer.ok;
      break;
    case PictureVerb::Load:
    case PictureVerb::View:
    case PictureVerb::Glance:
    case PictureVerb::Whole:
      // Frames of a cell's animation are copied, because a page that is over its budget leaves some of them out. Copies
      // of a whole one would take its memory twice.
      answer.ok = TakeFrames(*reply, given.body, task.request.verb != PictureVerb::Whole, answer);
      if (!answer.ok) answer.frames.clear();
      break;
  }
}

// The most bytes that an answer may have.
qint64 MostBytes(const PictureRequest& request) {
  constexpr qint64 kHeads = PictureLimits::kFrames * qint64{sizeof(PictureFrameHead)};
  const qint64 box = qint64{request.box.width()} * request.box.height() * 4;
  const qint64 animation = request.frameBytes > 0 ? request.frameBytes : PictureLimits::kAnimationBytes;
  switch (request.verb) {
    case PictureVerb::Measure:
    case PictureVerb::Size:
    case PictureVerb::Frames:
      return 0;
    case PictureVerb::Facts:
      return PictureLimits::kFactsBytes;
    case PictureVerb::Thumb:
      return box + (1 << 16);  // a thumb of noise compresses badly
    case PictureVerb::Convert:
    case PictureVerb::ConvertToBmp:
      return PictureLimits::kPayloadBytes;
    case PictureVerb::Load:
    case PictureVerb::View:
      return std::min(std::max(box, animation) + kHeads, PictureLimits::kPayloadBytes);
    case PictureVerb::Glance:
      return std::min(box + kHeads, PictureLimits::kPayloadBytes);
    case PictureVerb::Whole:
      return PictureLimits::kPayloadBytes;
  }
  return 0;
}

}  // namespace

HelperJob MakeHelperJob(const PictureTask& task, int part, const std::shared_ptr<PictureAnswer>& answer) {
  HelperJob job;
  job.id = task.request.id;
  job.make = [task, answer]() -> std::optional<HelperJob::Frame> {
    HelperJob::Frame frame;
    frame.body = task.source.isEmpty() ? task.bytes : ReadSource(task.source);
    answer->type = FileTypeOf(frame.body.left(kSniffedBytes));
    if (frame.body.isEmpty()) return std::nullopt;
    PictureRequest request = task.request;
    request.bodyBytes = frame.body.size();
    frame.line = WriteRequest(request);
    return frame;
  };
  job.then = [task, part, answer](const HelperAnswer& given) { TakeAnswer(task, part, given, *answer); };
  job.mostBytes = MostBytes(task.request);
  return job;
}
