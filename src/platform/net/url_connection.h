// SPDX-License-Identifier: GPL-3.0-or-later
// One connection to one server, plain or encrypted, directly or through the desktop's proxy. It never holds more than a
// small buffer: what is not read stays with the sender. connection_pool makes them, url_transfer talks over them.
#pragma once

#include <QHostAddress>
#include <QObject>
#include <QTimer>
#include <QUrl>

#include "platform/net/address_rules.h"

class QHostInfo;
class QNetworkProxy;
class QTcpSocket;

// What a connection leads to. Answers of one place may follow each other over one connection.
struct HttpPlace {
  bool isEncrypted = false;
  QString host;
  quint16 port = 0;

  explicit HttpPlace(const QUrl& url);
  bool operator==(const HttpPlace& other) const = default;
};

class UrlConnection : public QObject {
  Q_OBJECT

 public:
  // onlyPublic: addresses of the user's own network are passed over.
  UrlConnection(const HttpPlace& place, const AddressRules& rules, bool onlyPublic, QObject* parent);
  ~UrlConnection() override;

  // Opened or Lost follows; Opened possibly before this returns.
  void Open();
  void Send(const QByteArray& request);
  // What has come in, at most as much as the step; empty for nothing.
  QByteArray Read();
  // Nothing more will come.
  bool HasEnded() const;
  const HttpPlace& Place() const { return place_; }
  // Where it leads, by its address; through a proxy, which alone knows the address, by its name.
  bool LeadsIntoPrivate() const { return leadsIntoPrivate_; }

 Q_SIGNALS:
  void Opened();
  void Readable();
  // It could not be opened, or has ended in whatever way. What came before can still be read.
  void Lost();

 private:
  void OpenThrough(const QNetworkProxy& proxy);
  void TakeAddresses(const QHostInfo& found);
  void TryNext();
  void MakeSocket(const QNetworkProxy& proxy);
  void Connect(const QString& host);
  void OnOpened();
  void OnLost();
  void TellLost();

  const HttpPlace place_;
  const AddressRules& rules_;
  const bool onlyPublic_;
  bool leadsIntoPrivate_ = false;
  bool isOpen_ = false;
  bool isLost_ = false;
  QList<QHostAddress> addresses_;  // not tried yet
  QTimer patience_;                // with one of several addresses
  QTcpSocket* socket_ = nullptr;
};
