// SPDX-License-Identifier: GPL-3.0-or-later
// A small HTTP server on loopback that answers each path as a test has set it, in the ways that real servers fail.
#pragma once

#include <QHash>
#include <QTimer>

#include "loopback_server.h"

// One answer, and what happens to the connection behind it.
struct RudeAnswer {
  QByteArray head;  // status line and headers, each with its CR LF; the empty line is added
  QByteArray body;
  // Keep leaves the connection open for the next request, KeepOnce closes it when that one comes.
  enum class Then { Close, Stall, Reset, Endless, Drip, Keep, KeepOnce } then = Then::Close;
};

// Answers the paths that have been set; closes the connection on any other.
class RudeServer : public LoopbackServer {
 public:
  using LoopbackServer::LoopbackServer;

  void Set(const QByteArray& path, const RudeAnswer& answer) { answers_[path] = answer; }
  // The same with status 200.
  void SetOk(const QByteArray& path, const QByteArray& body, RudeAnswer::Then then = RudeAnswer::Then::Close) {
    Set(path, {"HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n", body, then});
  }
  void SetRedirect(const QByteArray& path, const QByteArray& target, const QByteArray& status = "302") {
    Set(path, {"HTTP/1.1 " + status + " Go\r\nContent-Length: 3\r\nLocation: " + target + "\r\n", "go!"});
  }

  int requests = 0;
  QByteArray lastRequest;

 protected:
  void Serve(QTcpSocket* socket, const QByteArray& request) override {
    if (socket->property("isLast").toBool()) return socket->disconnectFromHost();
    ++requests;
    lastRequest = request;
    Send(socket, answers_.value(PathOf(request)));
  }

 private:
  static void Send(QTcpSocket* socket, const RudeAnswer& answer) {
    const bool isKept = answer.then == RudeAnswer::Then::Keep || answer.then == RudeAnswer::Then::KeepOnce;
    const QByteArray end = isKept ? "\r\n"_ba : "Connection: close\r\n\r\n"_ba;
    if (!answer.head.isEmpty()) socket->write(answer.head + end + answer.body);
    if (answer.then == RudeAnswer::Then::Close) socket->disconnectFromHost();
    if (answer.then == RudeAnswer::Then::KeepOnce) socket->setProperty("isLast", true);
    if (answer.then == RudeAnswer::Then::Reset) socket->flush();
    if (answer.then == RudeAnswer::Then::Reset) socket->abort();
    if (answer.then == RudeAnswer::Then::Endless) {
      connect(socket, &QTcpSocket::bytesWritten, socket, [socket]() { socket->write(QByteArray(65536, 'x')); });
    }
    if (answer.then == RudeAnswer::Then::Drip) {
      auto* drip = new QTimer(socket);
      connect(drip, &QTimer::timeout, socket, [socket]() { socket->write("x"); });
      drip->start(20);
    }
  }

  QHash<QByteArray, RudeAnswer> answers_;
};
