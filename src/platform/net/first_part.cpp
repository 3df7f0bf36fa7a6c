// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/net/first_part.h"

#include <algorithm>

namespace {

// Two hyphens and a boundary of at most 70 letters; some servers take the freedom of a few more.
constexpr qsizetype kLongestDelimiter = 128;

}  // namespace

bool FirstPart::IsWhole(QByteArrayView body) {
  while (at_ == At::Before || at_ == At::Head) {
    if (!TakeLine(body)) return false;
  }
  if (at_ == At::Whole) return true;
  // What has been announced ends the part even where the next delimiter is late: that comes with the next picture.
  if (length_ >= 0 && body.size() - begin_ >= length_) {
    end_ = begin_ + length_;
    at_ = At::Whole;
    return true;
  }
  // A delimiter holds no line end, so that each byte is compared once.
  for (;;) {
    const qsizetype line = body.indexOf('\n', searched_);
    if (line < 0) {
      searched_ = body.size();
      return false;
    }
    if (body.size() - line - 1 < delimiter_.size()) {
      searched_ = line;
      return false;
    }
    searched_ = line + 1;
    if (!body.sliced(line + 1).startsWith(delimiter_)) continue;
    end_ = line > begin_ && body[line - 1] == '\r' ? line - 1 : std::max(line, begin_);
    at_ = At::Whole;
    return true;
  }
}

QByteArray FirstPart::In(QByteArrayView body) const {
  return body.sliced(begin_, end_ - begin_).toByteArray();
}

QByteArray FirstPart::AtEnd(QByteArrayView body) {
  if (IsWhole(body)) return In(body);
  return at_ == At::Data && length_ < 0 ? body.sliced(begin_).toByteArray() : QByteArray();
}

// Takes a line before the part's data. False while it is not whole.
bool FirstPart::TakeLine(QByteArrayView body) {
  const qsizetype end = body.indexOf('\n', searched_);
  if (end < 0) {
    searched_ = body.size();
    return false;
  }
  QByteArrayView line = body.sliced(begin_, end - begin_);
  begin_ = searched_ = end + 1;
  ReadLine(line.endsWith('\r') ? line.chopped(1) : line);
  return true;
}

void FirstPart::ReadLine(QByteArrayView line) {
  if (at_ == At::Before) {
    // Taken from the body, not from the answer's head, which servers do not agree how to write.
    if (line.size() < 3 || line.size() > kLongestDelimiter || !line.startsWith("--")) return;
    delimiter_ = line.toByteArray();
    at_ = At::Head;
    return;
  }
  if (line.isEmpty()) {
    at_ = At::Data;
    searched_ = std::max<qsizetype>(begin_ - 1, 0);
    return;
  }
  const qsizetype colon = line.indexOf(':');
  if (colon <= 0 || line.first(colon).trimmed().compare("Content-Length", Qt::CaseInsensitive) != 0) return;
  bool isNumber = false;
  const qlonglong length = line.sliced(colon + 1).trimmed().toLongLong(&isNumber);
  if (isNumber && length >= 0) length_ = length;
}
