// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/picture/page_text_protocol.h"

#include "platform/picture/helper_frame.h"

namespace {

constexpr qint64 kMostId = 1LL << 62;

}  // namespace

QByteArray WritePageJob(quint64 id, qint64 bytes) {
  return FrameLine({QByteArray::number(id)}, bytes);
}

std::optional<quint64> ReadPageJob(const QByteArray& line) {
  FieldReader fields(line, 2);
  const auto id = static_cast<quint64>(fields.Number(0, kMostId));
  fields.Number(0, PageTextLimits::kPageBytes);
  if (!fields.Good()) return std::nullopt;
  return id;
}

QByteArray WritePageReply(const PageTextReply& reply, qint64 bytes) {
  return FrameLine({QByteArray::number(reply.id), QByteArray::number(reply.isDone ? 1 : 0)}, bytes);
}

std::optional<PageTextReply> ReadPageReply(const QByteArray& line) {
  FieldReader fields(line, 3);
  PageTextReply reply;
  reply.id = static_cast<quint64>(fields.Number(0, kMostId));
  reply.isDone = fields.Int(0, 1) == 1;
  fields.Number(0, PageTextLimits::kTextBytes);
  if (!fields.Good()) return std::nullopt;
  return reply;
}
