// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/picture/picture_protocol.h"

#include <array>

#include "platform/picture/helper_frame.h"

namespace {

constexpr std::array<const char*, 11> kVerbNames{"measure", "thumb", "convert", "convert-bmp", "load", "view",
                                                 "glance",  "whole", "size",    "frames",      "facts"};

constexpr qint64 kMaxId = 1LL << 62;
constexpr qint64 kMaxSide = 1LL << 30;

}  // namespace

QByteArray WriteRequest(const PictureRequest& request) {
  return FrameLine({kVerbNames.at(static_cast<size_t>(request.verb)), QByteArray::number(request.id),
                    QByteArray::number(request.box.width()), QByteArray::number(request.box.height()),
                    QByteArray::number(request.frameBytes)},
                   request.bodyBytes);
}

std::optional<PictureRequest> ReadRequest(const QByteArray& line) {
  FieldReader fields(line, 6);
  PictureRequest request;
  const QByteArray name = fields.Text();
  bool known = false;
  for (size_t i = 0; i < kVerbNames.size(); ++i) {
    if (name == kVerbNames.at(i)) {
      request.verb = static_cast<PictureVerb>(i);
      known = true;
    }
  }
  request.id = static_cast<quint64>(fields.Number(0, kMaxId));
  request.box.setWidth(fields.Int(0, PictureLimits::kBoxSide));
  request.box.setHeight(fields.Int(0, PictureLimits::kBoxSide));
  request.frameBytes = fields.Number(0, PictureLimits::kDecodedBytes);
  request.bodyBytes = fields.Number(0, PictureLimits::kFileBytes);
  if (!known || !fields.Good()) return std::nullopt;
  return request;
}

QByteArray WriteReply(const PictureReply& reply) {
  return FrameLine({QByteArray::number(reply.id), QByteArray::number(static_cast<int>(reply.outcome)),
                    QByteArray::number(reply.size.width()), QByteArray::number(reply.size.height()),
                    QByteArray::number(reply.depth), QByteArray::number(reply.frames)},
                   reply.payloadBytes);
}

std::optional<PictureReply> ReadReply(const QByteArray& line) {
  FieldReader fields(line, 7);
  PictureReply reply;
  reply.id = static_cast<quint64>(fields.Number(0, kMaxId));
  reply.outcome = static_cast<PictureOutcome>(fields.Int(0, static_cast<int>(PictureOutcome::NoSandbox)));
  reply.size.setWidth(fields.Int(0, kMaxSide));
  reply.size.setHeight(fields.Int(0, kMaxSide));
  reply.depth = fields.Int(0, 1024);
  reply.frames = fields.Int(0, PictureLimits::kWholeFrames);
  reply.payloadBytes = fields.Number(0, PictureLimits::kPayloadBytes);
  if (!fields.Good()) return std::nullopt;
  return reply;
}
