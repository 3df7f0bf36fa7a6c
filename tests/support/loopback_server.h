// SPDX-License-Identifier: GPL-3.0-or-later
// The base of the small HTTP servers that tests run on loopback: it collects a request, and the derived server answers.
#pragma once

#include <QTcpServer>
#include <QTcpSocket>
#include <QUrl>

#include "test_suite.h"

// Listens at a free port of the host from its making.
class LoopbackServer : public QTcpServer {
 public:
  explicit LoopbackServer(const QString& host = u"127.0.0.1"_s) {
    connect(this, &QTcpServer::newConnection, this, &LoopbackServer::Accept);
    listen(QHostAddress(host));
  }

  QUrl Url(const QString& path) const {
    return QUrl(u"http://%1:%2%3"_s.arg(serverAddress().toString()).arg(serverPort()).arg(path));
  }
  static QByteArray PathOf(const QByteArray& request) { return request.split(' ').value(1); }
  // A field of the request's head; empty where the head lacks it.
  static QByteArray Field(const QByteArray& request, const QByteArray& name) {
    const QByteArrayList lines = request.left(request.indexOf("\r\n\r\n")).split('\n');
    for (const QByteArray& line : lines) {
      if (line.toLower().startsWith(name + ':')) return line.sliced(name.size() + 1).trimmed();
    }
    return {};
  }

  int connections = 0;
  int open = 0;

 protected:
  // One request, head and body whole.
  virtual void Serve(QTcpSocket* socket, const QByteArray& request) = 0;

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
        const qsizetype head = request.indexOf("\r\n\r\n");
        const bool isWhole = head >= 0 && request.size() >= head + 4 + Field(request, "content-length").toInt();
        socket->setProperty("request", isWhole ? QByteArray() : request);
        if (isWhole) Serve(socket, request);
      });
    }
  }
};
