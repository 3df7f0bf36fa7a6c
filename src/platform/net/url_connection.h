// SPDX-License-Identifier: GPL-3.0-or-later
// One connection to one server, plain or encrypted, directly or through the desktop's proxy. It never holds more than a
// small buffer: bytes that are not read stay with the sender. connection_pool makes them, url_transfer talks over them.
#pragma once

#include <QHostAddress>
#include <QObject>
#include <QTimer>
#include <QUrl>

#include "platform/net/address_rules.h"

class QHostInfo;
class QNetworkProxy;
class QTcpSocket;

// The server that a connection leads to. Answers of one place may follow each other over one connection.
struct HttpPlace {
  bool isEncrypted = false;
  QString host;
  quint16 port = 0;

  explicit HttpPlace(const QUrl& url);
  bool operator==(const HttpPlace& other) const = default;
};

// One socket, or the attempts to open it.
class UrlConnection : public QObject {
  Q_OBJECT

 public:
  // onlyPublic: addresses of the user's own network are not tried.
  UrlConnection(const HttpPlace& place, const AddressRules& rules, bool onlyPublic, QObject* parent);
  ~UrlConnection() override;

  // Begins to connect. Opened or Lost is raised, Opened perhaps before this returns.
  void Open();
  void Send(const QByteArray& request);
  // Takes up to 64 KiB of the bytes that have come in; empty for none.
  QByteArray Read();
  // True when the connection has ended and all its bytes have been read.
  bool HasEnded() const;
  const HttpPlace& Place() const { return place_; }
  // True if it leads into the user's own network: by its address, or by its name where a proxy finds the address.
  bool LeadsIntoPrivate() const { return leadsIntoPrivate_; }

 Q_SIGNALS:
  void Opened();
  void Readable();
  // The connection could not be opened, or has ended in whatever way. Bytes that came before can still be read.
  void Lost();

 private:
  void OpenThrough(const QNetworkProxy& proxy);
  void TakeAddresses(const QHostInfo& found);
  void TryNext();
  void MakeSocket(const QNetworkProxy& proxy);
  void Connect(const QString& host);
  void OnOpened();
  void OnLost();
  void EmitLost();

  const HttpPlace place_;
  const AddressRules& rules_;
  const bool onlyPublic_;
  bool leadsIntoPrivate_ = false;
  bool isOpen_ = false;
  bool isLost_ = false;
  QList<QHostAddress> addresses_;  // not tried yet
  QTimer patience_;                // with the present one of several addresses
  QTcpSocket* socket_ = nullptr;
};
