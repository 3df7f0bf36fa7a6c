// SPDX-License-Identifier: GPL-3.0-or-later
#include "http_request.h"

#include <QList>

namespace {

// One value of "a=1&b=2" as forms and queries write it.
QString ValueIn(const QByteArray& pairs, const QByteArray& name) {
  const auto plain = [](QByteArray text) { return QByteArray::fromPercentEncoding(text.replace('+', ' ')); };
  for (const QByteArray& pair : pairs.split('&')) {
    const qsizetype sign = pair.indexOf('=');
    if (sign >= 0 && plain(pair.left(sign)) == name) return QString::fromUtf8(plain(pair.mid(sign + 1)));
  }
  return {};
}

void TakeField(RequestHead& head, const QByteArray& line) {
  const qsizetype colon = line.indexOf(':');
  if (colon <= 0) return;
  const QByteArray name = line.left(colon).trimmed().toLower();
  QByteArray& value = head.request.headers[name];
  if (!value.isEmpty()) value += name == "cookie" ? "; " : ", ";
  value += line.mid(colon + 1).trimmed();
}

void TakeBodySize(RequestHead& head) {
  const auto& headers = head.request.headers;
  if (headers.contains("transfer-encoding")) {
    head.refusal = 411;
    return;
  }
  if (!headers.contains("content-length")) return;
  bool isNumber = false;
  const qlonglong size = headers.value("content-length").toLongLong(&isNumber);
  if (!isNumber || size < 0) {
    head.refusal = 400;
  } else if (size > kMostForm) {
    head.refusal = 413;
  } else {
    head.bodySize = static_cast<qsizetype>(size);
  }
}

}  // namespace

QByteArray Request::Cookie(const QByteArray& name) const {
  for (const QByteArray& pair : headers.value("cookie").split(';')) {
    const QByteArray cookie = pair.trimmed();
    if (cookie.startsWith(name + '=')) return cookie.mid(name.size() + 1);
  }
  return {};
}

QString Request::QueryValue(const QByteArray& name) const {
  return ValueIn(query, name);
}

QString Request::FormValue(const QByteArray& name) const {
  return ValueIn(body, name);
}

RequestHead ReadHead(const QByteArray& head) {
  RequestHead read;
  QList<QByteArray> lines = head.split('\n');
  const QList<QByteArray> words = lines.takeFirst().trimmed().split(' ');
  for (const QByteArray& line : lines) TakeField(read, line);

  Request& request = read.request;
  request.method = words.first();
  read.keepAlive = words.last() == "HTTP/1.1" && request.headers.value("connection").toLower() != "close";
  if (words.size() != 3 || !words.at(1).startsWith('/')) {
    read.refusal = 400;
    return read;
  }
  request.target = words.at(1);
  const QByteArray path = request.target.split('?').first();
  request.path = QString::fromUtf8(QByteArray::fromPercentEncoding(path)).mid(1);
  request.query = request.target.mid(path.size() + 1);
  if (request.method != "GET" && request.method != "HEAD" && request.method != "POST") {
    read.refusal = 405;
  } else {
    TakeBodySize(read);
  }
  return read;
}
