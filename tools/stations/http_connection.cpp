// SPDX-License-Identifier: GPL-3.0-or-later
#include "http_connection.h"

#include <sys/socket.h>

#include <algorithm>

using namespace std::chrono_literals;

namespace {

constexpr qsizetype kMaxHead = 32768;
constexpr qint64 kFloodAhead = 262144;  // bytes in flight of an answer without end
constexpr auto kDripEvery = 100ms;
constexpr auto kPartEvery = 400ms;
const QByteArray kStreamType = "multipart/x-mixed-replace; boundary=shackcam";
const QByteArray kPartHead = "--shackcam\r\nContent-Type: image/jpeg\r\n";
constexpr qint64 kMissing = 5000;  // bytes that a short body claims beyond what it sends

QByteArray StatusLine(int status) {
  switch (status) {
    case 200:
      return "HTTP/1.1 200 OK\r\n";
    case 302:
      return "HTTP/1.1 302 Found\r\n";
    case 303:
      return "HTTP/1.1 303 See Other\r\n";
    case 400:
      return "HTTP/1.1 400 Bad Request\r\n";
    case 401:
      return "HTTP/1.1 401 Unauthorized\r\n";
    case 404:
      return "HTTP/1.1 404 Not Found\r\n";
    case 405:
      return "HTTP/1.1 405 Method Not Allowed\r\n";
    case 411:
      return "HTTP/1.1 411 Length Required\r\n";
    case 413:
      return "HTTP/1.1 413 Content Too Large\r\n";
    default:
      return "HTTP/1.1 500 Internal Server Error\r\n";
  }
}

}  // namespace

HttpConnection::HttpConnection(QTcpSocket* socket, Host& host) : QObject(&host), socket_(socket), host_(host) {
  socket_->setParent(this);
  // Head and body go out at once; a caller's delayed acknowledgement would hold the body back by some 40 ms.
  socket_->setSocketOption(QAbstractSocket::LowDelayOption, 1);
  connect(socket_, &QTcpSocket::readyRead, this, &HttpConnection::ReadMore);
  connect(socket_, &QTcpSocket::disconnected, this, &QObject::deleteLater);
  connect(&drip_, &QTimer::timeout, this, &HttpConnection::DripByte);
  ReadMore();
}

void HttpConnection::ReadMore() {
  buffer_ += socket_->readAll();
  if (busy_) {
    if (buffer_.size() > kMaxHead + kMostForm) Reset();
    return;
  }
  if (!hasHead_) {
    const qsizetype end = buffer_.indexOf("\r\n\r\n");
    if (end < 0) {
      if (buffer_.size() > kMaxHead) Reset();
      return;
    }
    const QByteArray head = buffer_.left(end);
    buffer_.remove(0, end + 4);
    TakeHead(head);
    if (busy_) return;
  }
  if (buffer_.size() < pending_.bodySize) return;
  pending_.request.body = buffer_.left(pending_.bodySize);
  buffer_.remove(0, pending_.bodySize);
  hasHead_ = false;
  busy_ = true;
  host_.Take(this, std::move(pending_.request));
}

void HttpConnection::TakeHead(const QByteArray& head) {
  pending_ = ReadHead(head);
  hasHead_ = true;
  headOnly_ = pending_.request.method == "HEAD";
  keepAlive_ = pending_.keepAlive;
  if (pending_.refusal == 0) return;
  busy_ = true;
  keepAlive_ = false;
  WriteWhole({pending_.refusal, "text/plain", "This server cannot answer such a request.\n", {}});
}

void HttpConnection::Send(const Answer& answer, Behaviour behaviour) {
  const qint64 size = answer.body.size();
  switch (behaviour) {
    case Behaviour::ShortBody:
      keepAlive_ = false;
      WritePart(answer, size + kMissing, size);
      Finish();
      return;
    case Behaviour::Truncated: {
      Answer half = answer;
      half.body.truncate(size / 2);
      WriteWhole(half);
      return;
    }
    case Behaviour::StallMidBody:
      WritePart(answer, size, size / 2);
      return;
    case Behaviour::Endless:
      keepAlive_ = false;
      WriteHead(answer, -1);
      BeginFlood(answer.body.isEmpty() ? QByteArray(4096, 'x') : answer.body);
      return;
    case Behaviour::EndlessHead:
      socket_->write(StatusLine(answer.status));
      BeginFlood(QByteArray("X-Log: sent again and again\r\n").repeated(200));
      return;
    case Behaviour::Stream:
      BeginStream(answer);
      return;
    case Behaviour::StreamOpen:
      keepAlive_ = false;
      WriteHead({200, kStreamType, {}, {}}, -1);
      socket_->write(kPartHead + "\r\n");
      BeginFlood(QByteArray(4096, 'x'));
      return;
    case Behaviour::Drip:
      BeginDrip(answer);
      return;
    case Behaviour::Reset:
      Reset();
      return;
    default:
      WriteWhole(answer);
  }
}

void HttpConnection::Reset() {
  // With a linger time of zero the system sends a reset instead of an orderly end.
  const linger hard{.l_onoff = 1, .l_linger = 0};
  setsockopt(static_cast<int>(socket_->socketDescriptor()), SOL_SOCKET, SO_LINGER, &hard, sizeof hard);
  socket_->abort();
  deleteLater();
}

// length: of the body in bytes; below 0 none is announced.
void HttpConnection::WriteHead(const Answer& answer, qint64 length) {
  QByteArray head = StatusLine(answer.status) + "Server: shack\r\nContent-Type: " + answer.type + "\r\n";
  if (length >= 0) head += "Content-Length: " + QByteArray::number(length) + "\r\n";
  if (!answer.location.isEmpty()) head += "Location: " + answer.location + "\r\n";
  for (const auto& [name, value] : answer.headers) head += name + ": " + value + "\r\n";
  head += keepAlive_ ? "Connection: keep-alive\r\n\r\n" : "Connection: close\r\n\r\n";
  socket_->write(head);
}

void HttpConnection::WriteWhole(const Answer& answer) {
  WritePart(answer, answer.body.size(), answer.body.size());
  Finish();
}

void HttpConnection::WritePart(const Answer& answer, qint64 claimed, qint64 sent) {
  WriteHead(answer, claimed);
  if (!headOnly_) socket_->write(answer.body.constData(), sent);
}

void HttpConnection::BeginFlood(const QByteArray& bytes) {
  keepAlive_ = false;
  rest_ = bytes;
  connect(socket_, &QTcpSocket::bytesWritten, this, &HttpConnection::Flood);
  Flood();
}

void HttpConnection::Flood() {
  while (socket_->state() == QAbstractSocket::ConnectedState && socket_->bytesToWrite() < kFloodAhead) {
    socket_->write(rest_);
  }
}

void HttpConnection::BeginStream(const Answer& answer) {
  keepAlive_ = false;
  WriteHead({200, kStreamType, {}, {}}, -1);
  rest_ = kPartHead + "Content-Length: " + QByteArray::number(answer.body.size()) + "\r\n\r\n" + answer.body + "\r\n";
  const auto sendPart = [this]() { socket_->write(rest_); };
  sendPart();
  auto* parts = new QTimer(this);
  connect(parts, &QTimer::timeout, this, sendPart);
  parts->start(kPartEvery);
}

void HttpConnection::BeginDrip(const Answer& answer) {
  rest_ = answer.body;
  WriteHead(answer, rest_.size());
  drip_.start(kDripEvery);
}

void HttpConnection::DripByte() {
  if (dripped_ < rest_.size()) {
    socket_->write(rest_.constData() + dripped_++, 1);
    return;
  }
  drip_.stop();
  Finish();
}

void HttpConnection::Finish() {
  if (!keepAlive_) {
    socket_->disconnectFromHost();
    return;
  }
  busy_ = false;
  // A request that came in behind the one just answered is taken from the event loop, not from within this answer.
  if (!buffer_.isEmpty()) QMetaObject::invokeMethod(this, &HttpConnection::ReadMore, Qt::QueuedConnection);
}
