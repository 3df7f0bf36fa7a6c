// SPDX-License-Identifier: GPL-3.0-or-later
#include "picture_role.h"

#include <QImageReader>
#include <QList>
#include <algorithm>

#include "decode.h"
#include "picture_facts.h"
#include "platform/picture/picture_protocol.h"

namespace {

constexpr quint64 kAddressSpace = 1ULL << 30;
constexpr QSize kMeasuredBox(256, 256);  // a marker is decoded to find out whether that works; nobody sees it

// The answer to a job before it is written: the line, and the file or the frames that follow it.
struct JobResult {
  PictureReply reply;
  QByteArray file;
  QList<DecodedFrame> frames;
  int counted = 0;  // frames of the picture that are not sent
};

// The formats that a cell's picture control loads. The program converts any other picture first.
bool LoadsAsItIs(const PictureHeader& header) {
  return header.kind == PictureKind::Gif || header.kind == PictureKind::Bmp ||
         (header.kind == PictureKind::Jpeg && header.depth == 24);
}

QByteArray MakeFile(PictureVerb verb, const QByteArray& bytes, const PictureHeader& header, QSize box) {
  const QSize size = verb == PictureVerb::Thumb ? FitInto(header.size, box, Fit::Always) : header.size;
  const QImage image = size.isEmpty() ? QImage() : DecodeStill(bytes, header, size);
  if (image.isNull()) return {};
  return Encode24(image, verb == PictureVerb::ConvertToBmp ? WrittenFormat::Bmp : WrittenFormat::Jpeg);
}

int CountFrames(const QByteArray& bytes, const PictureHeader& header) {
  if (header.kind != PictureKind::Gif) return 1;
  return static_cast<int>(std::clamp<qint64>(CountGifFrames(bytes), 1, PictureLimits::kWholeFrames));
}

// False where the picture cannot be done as asked.
bool RunVerb(const PictureRequest& request, const QByteArray& bytes, const PictureHeader& header, JobResult& result) {
  switch (request.verb) {
    case PictureVerb::Measure:
      return !DecodeStill(bytes, header, FitInto(header.size, kMeasuredBox, Fit::DownOnly)).isNull();
    case PictureVerb::Size:
      return !header.size.isEmpty();
    case PictureVerb::Frames:
      result.counted = CountFrames(bytes, header);
      return true;
    case PictureVerb::Facts:
      result.counted = CountFrames(bytes, header);
      result.file = ReadFacts(bytes, header);
      return true;
    case PictureVerb::Thumb:
    case PictureVerb::Convert:
    case PictureVerb::ConvertToBmp:
      result.file = MakeFile(request.verb, bytes, header, request.box);
      return !result.file.isEmpty();
    case PictureVerb::Load:
      if (!LoadsAsItIs(header)) return false;
      [[fallthrough]];
    case PictureVerb::View:
      if (request.box.isEmpty()) return false;
      result.frames = DecodeFrames(bytes, header, FitInto(header.size, request.box, Fit::DownOnly), request.frameBytes);
      return !result.frames.isEmpty();
    case PictureVerb::Glance: {
      if (request.box.isEmpty()) return false;
      const QImage still = DecodeStill(bytes, header, FitInto(header.size, request.box, Fit::DownOnly));
      if (!still.isNull()) result.frames.append({still, 0});
      return !result.frames.isEmpty();
    }
    case PictureVerb::Whole:
      result.frames = DecodeWhole(bytes, header);
      return !result.frames.isEmpty();
  }
  return false;
}

JobResult RunJob(const PictureRequest& request, const QByteArray& bytes) {
  JobResult result;
  PictureReply& reply = result.reply;
  const PictureHeader header = ReadPictureHeader(bytes);
  reply.depth = header.depth;
  if (!header.size.isEmpty()) reply.size = header.size;
  // What a file tells of itself is read even where its pixels are not.
  const bool read = WithinLimits(header) || request.verb == PictureVerb::Facts;
  if (read && RunVerb(request, bytes, header, result)) reply.outcome = PictureOutcome::Done;
  reply.frames = result.counted > 0 ? result.counted : static_cast<int>(result.frames.size());
  reply.payloadBytes = result.file.size();
  for (const DecodedFrame& frame : std::as_const(result.frames)) {
    reply.payloadBytes += static_cast<qint64>(sizeof(PictureFrameHead)) + frame.image.sizeInBytes();
  }
  return result;
}

bool WriteFrames(const QList<DecodedFrame>& frames, RoleOutput& output) {
  for (const DecodedFrame& frame : frames) {
    const PictureFrameHead head{frame.image.width(), frame.image.height(), frame.delay,
                                frame.image.hasAlphaChannel() ? 0 : 1};
    if (!output.Write(&head, sizeof(head)) || !output.Write(frame.image.constBits(), frame.image.sizeInBytes())) {
      return false;
    }
  }
  return true;
}

bool AnswerJob(const RoleJob& job, RoleOutput& output) {
  const std::optional<PictureRequest> request = ReadRequest(job.line);
  if (!request) return false;
  JobResult result;
  if (job.sandboxed) {
    result = RunJob(*request, job.body);
  } else {
    result.reply.outcome = PictureOutcome::NoSandbox;
  }
  result.reply.id = request->id;
  return output.Write(WriteReply(result.reply)) && output.Write(result.file) && WriteFrames(result.frames, output);
}

// Qt loads the plugin of a format when it first meets one, so one picture of each format with a plugin is decoded here.
void Prepare() {
  QImageReader::setAllocationLimit(static_cast<int>(PictureLimits::kDecodedBytes >> 20));
  QImage dot(8, 8, QImage::Format_RGB32);
  dot.fill(Qt::black);
  const QByteArray jpeg = Encode24(dot, WrittenFormat::Jpeg);
  DecodeStill(jpeg, ReadPictureHeader(jpeg), dot.size());
  const QByteArray gif = QByteArray::fromBase64("R0lGODlhAQABAIAAAAAAAP///ywAAAAAAQABAAACAUwAOw==");
  DecodeStill(gif, ReadPictureHeader(gif), QSize(1, 1));
}

}  // namespace

Role PictureRole() {
  return {"pictures", kAddressSpace, PictureLimits::kFileBytes, &Prepare, &AnswerJob};
}
