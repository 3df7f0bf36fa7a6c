// SPDX-License-Identifier: GPL-3.0-or-later
// The head of an HTTP answer as values. url_transfer reads one before each body; no network is needed to test it.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QList>
#include <QNetworkCookie>
#include <optional>

// The parts of a head that decide how the answer goes on.
struct HttpHead {
  // How the body is compressed.
  enum class Packing { None, Gzip, Deflate };

  int status = 0;
  bool isKeepAlive = false;
  bool isChunked = false;
  qint64 length = -1;  // of the body as it is sent; -1: not announced
  Packing packing = Packing::None;
  QByteArray location;
  QByteArray contentType;
  QList<QNetworkCookie> cookies;

  // 301, 302, 303, 307 or 308 with a place to go to.
  bool IsRedirect() const;
  // The body's parts replace each other, as the pictures of a cam do.
  bool IsStream() const;
  // 100 to 199: another head follows.
  bool IsInterim() const { return status >= 100 && status < 200; }
};

// Length of the first head in the bytes, its empty line included; 0 while it is not whole. from: where an earlier
// search in the same bytes has ended, so that a head that comes in small pieces is not searched again and again.
qsizetype HeadLength(QByteArrayView bytes, qsizetype from = 0);
// The head as values; empty where it is no HTTP/1 head, or gives two lengths for its body.
std::optional<HttpHead> ParseHead(QByteArrayView head);
