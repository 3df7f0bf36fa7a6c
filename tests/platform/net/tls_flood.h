// SPDX-License-Identifier: GPL-3.0-or-later
// A server on loopback that answers over TLS with head lines and never ends them. Its certificate is its own authority,
// made for these tests and valid until 2120.
#pragma once

#include <QSslConfiguration>
#include <QSslKey>
#include <QSslSocket>
#include <QTcpServer>
#include <QUrl>

class TlsFlood : public QTcpServer {
  Q_OBJECT

 public:
  TlsFlood() { listen(QHostAddress::LocalHost); }

  static QSslCertificate Certificate() { return QSslCertificate(QByteArray::fromBase64(kCertificate), QSsl::Der); }
  QUrl Url() const { return QUrl(QStringLiteral("https://127.0.0.1:%1/").arg(serverPort())); }

  qint64 sent = 0;
  int ended = 0;

 protected:
  void incomingConnection(qintptr descriptor) override {
    auto* socket = new QSslSocket(this);
    socket->setSocketDescriptor(descriptor);
    socket->setLocalCertificate(Certificate());
    socket->setPrivateKey(QSslKey(QByteArray::fromBase64(kKey), QSsl::Ec, QSsl::Der));
    connect(socket, &QSslSocket::readyRead, this, [this, socket]() {
      if (socket->readAll().startsWith("GET ")) Send(socket, "HTTP/1.1 200 OK\r\n");
    });
    connect(socket, &QSslSocket::encryptedBytesWritten, this,
            [this, socket]() { Send(socket, QByteArray("X-Line: words\r\n").repeated(4000)); });
    connect(socket, &QSslSocket::disconnected, this, [this, socket]() {
      ++ended;
      socket->deleteLater();
    });
    socket->startServerEncryption();
  }

 private:
  void Send(QSslSocket* socket, const QByteArray& bytes) {
    if (sent == 0 || socket->encryptedBytesToWrite() == 0) sent += socket->write(bytes);
  }

  static constexpr const char* kCertificate =
      "MIIBXDCCAQKgAwIBAgIBATAKBggqhkjOPQQDAjAUMRIwEAYDVQQDDAkxMjcuMC4wLjEwIBcNMjAwMTAxMDAwMDAwWhgPMjEyMDAxMDEwMDAwMD"
      "BaMBQxEjAQBgNVBAMMCTEyNy4wLjAuMTBZMBMGByqGSM49AgEGCCqGSM49AwEHA0IABMK+sX1mJYKbgocau1xfEutSx/hDmYjhQ6/++LbAW5HL"
      "I/j7p+5rLyQ+7tVSVVLgAQ9J1I7GJ9WsvstuTUBpFSWjQzBBMA8GA1UdEwEB/wQFMAMBAf8wDwYDVR0RBAgwBocEfwAAATAdBgNVHQ4EFgQU7P"
      "n4l6Pe9OKFJCzo1RqASqZXj20wCgYIKoZIzj0EAwIDSAAwRQIhANsBnngMCHuy1oK8bX8ZkyNgzajdt1VZnOUzyQPCmOlMAiAJ8jMDTr7byni3"
      "w8x2185Q8a9vJkeTY8ZvAP7RsGRepA==";
  static constexpr const char* kKey =
      "MHcCAQEEIFNEGN6DgiN4Tq9v0EpNKHVKO0ekzEKzdfm6xRrKSo7/oAoGCCqGSM49AwEHoUQDQgAEwr6xfWYlgpuChxq7XF8S61LH+EOZiOFDr/"
      "74tsBbkcsj+Pun7msvJD7u1VJVUuABD0nUjsYn1ay+y25NQGkVJQ==";
};
