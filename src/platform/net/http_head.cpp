// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/net/http_head.h"

#include <algorithm>

namespace {

bool IsName(QByteArrayView name, const char* wanted) {
  return name.compare(wanted, Qt::CaseInsensitive) == 0;
}

// True if one of the header's words between commas is the wanted one.
bool HasWord(QByteArrayView value, const char* wanted) {
  while (!value.isEmpty()) {
    const qsizetype comma = value.indexOf(',');
    if (IsName(value.first(comma < 0 ? value.size() : comma).trimmed(), wanted)) return true;
    if (comma < 0) return false;
    value = value.sliced(comma + 1);
  }
  return false;
}

std::optional<qint64> LengthOf(QByteArrayView value) {
  if (value.isEmpty() || value.size() > 18) return std::nullopt;
  if (!std::all_of(value.begin(), value.end(), [](char c) { return c >= '0' && c <= '9'; })) return std::nullopt;
  return value.toLongLong();
}

HttpHead::Packing PackingOf(QByteArrayView value) {
  if (IsName(value, "gzip") || IsName(value, "x-gzip")) return HttpHead::Packing::Gzip;
  return IsName(value, "deflate") ? HttpHead::Packing::Deflate : HttpHead::Packing::None;
}

// Reads a status line such as "HTTP/1.1 200 OK". False where it is none.
bool TakeStatusLine(QByteArrayView line, HttpHead& head) {
  if (line.size() < 12 || !line.startsWith("HTTP/1.") || line[8] != ' ') return false;
  const std::optional<qint64> status = LengthOf(line.sliced(9, 3));
  if (!status || *status < 100) return false;
  head.status = static_cast<int>(*status);
  head.isKeepAlive = line[7] != '0';
  return true;
}

bool TakeField(QByteArrayView name, QByteArrayView value, HttpHead& head) {
  if (IsName(name, "Content-Length")) {
    const std::optional<qint64> length = LengthOf(value);
    if (length && head.length >= 0 && *length != head.length) return false;
    if (length) head.length = *length;
  } else if (IsName(name, "Transfer-Encoding")) {
    if (!IsName(value, "chunked") && !IsName(value, "identity")) return false;
    head.isChunked = head.isChunked || IsName(value, "chunked");
  } else if (IsName(name, "Content-Encoding")) {
    head.packing = PackingOf(value);
  } else if (IsName(name, "Connection")) {
    if (HasWord(value, "close")) head.isKeepAlive = false;
    if (HasWord(value, "keep-alive")) head.isKeepAlive = true;
  } else if (IsName(name, "Location")) {
    if (head.location.isEmpty()) head.location = value.toByteArray();
  } else if (IsName(name, "Content-Type")) {
    head.contentType = value.toByteArray();
  } else if (IsName(name, "Set-Cookie")) {
    head.cookies += QNetworkCookie::parseCookies(value.toByteArray());
  }
  return true;
}

// The next line without its end; bytes becomes what follows.
QByteArrayView TakeLine(QByteArrayView& bytes) {
  const qsizetype end = bytes.indexOf('\n');
  QByteArrayView line = end < 0 ? bytes : bytes.first(end);
  bytes = end < 0 ? QByteArrayView() : bytes.sliced(end + 1);
  return line.endsWith('\r') ? line.chopped(1) : line;
}

}  // namespace

bool HttpHead::IsRedirect() const {
  const bool isMoved = status == 301 || status == 302 || status == 303 || status == 307 || status == 308;
  return isMoved && !location.isEmpty();
}

bool HttpHead::IsStream() const {
  return contentType.first(std::max<qsizetype>(contentType.indexOf(';'), 0)).trimmed().toLower() ==
         "multipart/x-mixed-replace";
}

qsizetype HeadLength(QByteArrayView bytes, qsizetype from) {
  // The empty line may have begun in the bytes that were searched before.
  for (qsizetype at = std::max<qsizetype>(from - 2, 0); (at = bytes.indexOf('\n', at)) >= 0; ++at) {
    const QByteArrayView rest = bytes.sliced(at + 1);
    if (rest.startsWith('\n')) return at + 2;
    if (rest.startsWith("\r\n")) return at + 3;
  }
  return 0;
}

std::optional<HttpHead> ParseHead(QByteArrayView head) {
  HttpHead answer;
  if (!TakeStatusLine(TakeLine(head), answer)) return std::nullopt;
  while (!head.isEmpty()) {
    const QByteArrayView line = TakeLine(head);
    const qsizetype colon = line.indexOf(':');
    if (colon <= 0) continue;
    if (!TakeField(line.first(colon).trimmed(), line.sliced(colon + 1).trimmed(), answer)) return std::nullopt;
  }
  if (answer.status == 204 || answer.status == 304) answer.length = 0;
  return answer;
}
