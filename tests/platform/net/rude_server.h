// SPDX-License-Identifier: GPL-3.0-or-later
// A small HTTP server on loopback that answers each path as a test told it, in the ways that real servers fail.
#pragma once

#include <QHash>
#include <QPointer>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>
#include <QUrl>

using namespace Qt::StringLiterals;

struct RudeAnswer {
  QByteArray head;  // status line and headers, each with its CR LF; the empty line is added
  QByteArray body;
  // Keep leaves the connection open for the next request, KeepOnce closes it when that one comes.
  enum class Then { Close, Stall, Reset, Endless, Drip, Keep, KeepOnce } then = Then::Close;
};

class RudeServer : public QTcpServer {
  Q_OBJECT

 public:
  explicit RudeServer(const QString& host = QStringLiteral("127.0.0.1")) {
    connect(this, &QTcpServer::newConnection, this, &RudeServer::Accept);
    listen(QHostAddress(host));
  }

  QUrl Url(const QString& path) const {
    return QUrl(QStringLiteral("http://%1:%2%3").arg(serverAddress().toString()).arg(serverPort()).arg(path));
  }
  void Set(const QByteArray& path, const RudeAnswer& answer) { answers_[path] = answer; }

  int requests = 0;
  int connections = 0;
  int open = 0;
  QByteArray lastRequest;

 private:
  void Accept() {
    while (QTcpSocket* socket = nextPendingConnection()) {
      ++open;
      ++connections;
      connect(socket, &QTcpSocket::disconnected, this, [this, socket]() {
        --open;
        socket->deleteLater();
      });
      connect(socket, &QTcpSocket::readyRead, socket, [this, socket]() {
        const QByteArray request = socket->property("request").toByteArray() + socket->readAll();
        socket->setProperty("request", request);
        if (!request.contains("\r\n\r\n")) return;
        socket->setProperty("request", QByteArray());
        if (socket->property("isLast").toBool()) return socket->disconnectFromHost();
        ++requests;
        lastRequest = request;
        Serve(socket, answers_.value(request.split(' ').value(1)));
      });
    }
  }

  static void Serve(QTcpSocket* socket, const RudeAnswer& answer) {
    const bool isKept = answer.then == RudeAnswer::Then::Keep || answer.then == RudeAnswer::Then::KeepOnce;
    const QByteArray end = isKept ? "\r\n"_ba : "Connection: close\r\n\r\n"_ba;
    if (!answer.head.isEmpty()) socket->write(answer.head + end + answer.body);
    switch (answer.then) {
      case RudeAnswer::Then::Close:
        socket->disconnectFromHost();
        break;
      case RudeAnswer::Then::Stall:
      case RudeAnswer::Then::Keep:
        break;
      case RudeAnswer::Then::KeepOnce:
        socket->setProperty("isLast", true);
        break;
      case RudeAnswer::Then::Reset:
        socket->flush();
        socket->abort();
        break;
      case RudeAnswer::Then::Endless:
        connect(socket, &QTcpSocket::bytesWritten, socket, [socket]() { socket->write(QByteArray(65536, 'x')); });
        break;
      case RudeAnswer::Then::Drip: {
        auto* drip = new QTimer(socket);
        connect(drip, &QTimer::timeout, socket, [socket]() { socket->write("x"); });
        drip->start(20);
        break;
      }
    }
  }

  QHash<QByteArray, RudeAnswer> answers_;
};
