// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/picture/picture_protocol.h"

#include <QFileInfo>
#include <QList>
#include <array>

using namespace Qt::StringLiterals;

namespace {

struct VerbName {
  PictureVerb verb;
  const char* name;
};

constexpr std::array<VerbName, 5> kVerbNames{{{PictureVerb::Measure, "measure"},
                                              {PictureVerb::Thumb, "thumb"},
                                              {PictureVerb::Convert, "convert"},
                                              {PictureVerb::Load, "load"},
                                              {PictureVerb::View, "view"}}};

QByteArray Encoded(const QString& text) {
  return text.toUtf8().toPercentEncoding();
}

QString Decoded(const QByteArray& field) {
  return QString::fromUtf8(QByteArray::fromPercentEncoding(field));
}

// Takes the fields of a line one after the other and remembers whether every one of them was what it should be.
class FieldReader {
 public:
  FieldReader(const QByteArray& line, qsizetype count) : fields_(line.trimmed().split('\t')) {
    // Trimming takes no empty field away: every line of this protocol ends with a number.
    good_ = fields_.size() == count;
  }

  bool Good() const { return good_; }
  QByteArray Text() { return good_ ? fields_.at(next_++) : QByteArray(); }
  qint64 Number(qint64 low, qint64 high) {
    bool ok = false;
    const qint64 number = Text().toLongLong(&ok);
    good_ = good_ && ok && number >= low && number <= high;
    return good_ ? number : 0;
  }
  int Int(qint64 low, qint64 high) { return static_cast<int>(Number(low, high)); }

 private:
  QList<QByteArray> fields_;
  qsizetype next_ = 0;
  bool good_ = false;
};

constexpr qint64 kMaxId = 1LL << 62;
constexpr qint64 kMaxSide = 1LL << 30;

}  // namespace

QByteArray WriteRequest(const PictureRequest& request) {
  QByteArray line;
  for (const VerbName& entry : kVerbNames) {
    if (entry.verb == request.verb) line = entry.name;
  }
  for (const QByteArray& field : {QByteArray::number(request.id), Encoded(request.source), Encoded(request.target),
                                  QByteArray::number(request.box.width()), QByteArray::number(request.box.height()),
                                  QByteArray::number(request.bodyBytes)}) {
    line += '\t';
    line += field;
  }
  return line + '\n';
}

std::optional<PictureRequest> ReadRequest(const QByteArray& line) {
  FieldReader fields(line, 7);
  PictureRequest request;
  const QByteArray name = fields.Text();
  bool known = false;
  for (const VerbName& entry : kVerbNames) {
    if (name == entry.name) {
      request.verb = entry.verb;
      known = true;
    }
  }
  request.id = static_cast<quint64>(fields.Number(0, kMaxId));
  request.source = Decoded(fields.Text());
  request.target = Decoded(fields.Text());
  request.box.setWidth(fields.Int(0, PictureLimits::kBoxSide));
  request.box.setHeight(fields.Int(0, PictureLimits::kBoxSide));
  request.bodyBytes = fields.Number(0, PictureLimits::kFileBytes);
  if (!known || !fields.Good()) return std::nullopt;
  return request;
}

QByteArray WriteReply(const PictureReply& reply) {
  QByteArray line = QByteArray::number(reply.id);
  for (const QByteArray& field :
       {QByteArray::number(reply.ok ? 1 : 0), Encoded(reply.type), QByteArray::number(reply.size.width()),
        QByteArray::number(reply.size.height()), QByteArray::number(reply.depth), QByteArray::number(reply.frames),
        QByteArray::number(reply.payloadBytes)}) {
    line += '\t';
    line += field;
  }
  return line + '\n';
}

std::optional<PictureReply> ReadReply(const QByteArray& line) {
  FieldReader fields(line, 8);
  PictureReply reply;
  reply.id = static_cast<quint64>(fields.Number(0, kMaxId));
  reply.ok = fields.Number(0, 1) == 1;
  reply.type = Decoded(fields.Text());
  reply.size.setWidth(fields.Int(0, kMaxSide));
  reply.size.setHeight(fields.Int(0, kMaxSide));
  reply.depth = fields.Int(0, 1024);
  reply.frames = fields.Int(0, PictureLimits::kFrames);
  reply.payloadBytes = fields.Number(0, PictureLimits::kPayloadBytes);
  if (!fields.Good()) return std::nullopt;
  return reply;
}

QString PartFileName(const QString& target, qint64 pid) {
  // In front of the name, not behind it: whoever looks for "3-7.*" must not meet a half-written file.
  const QFileInfo info(target);
  return u"%1/.part-%2-%3"_s.arg(info.path(), QString::number(pid), info.fileName());
}
