// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/net/url_connection.h"

#include <QHostInfo>
#include <QNetworkProxy>
#include <QSslSocket>
#include <QTcpSocket>
#include <algorithm>
#include <chrono>
#include <utility>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr qint64 kBuffer = 128LL * 1024;
constexpr qint64 kStep = 64LL * 1024;
constexpr auto kPatience = 5s;  // with an address, while others have not been tried
constexpr qsizetype kMostAddresses = 8;

// The proxy of the desktop's settings for a place; NoProxy where none is needed.
QNetworkProxy ProxyFor(const HttpPlace& place) {
  QUrl url;
  url.setScheme(place.isEncrypted ? u"https"_s : u"http"_s);
  url.setHost(place.host);
  url.setPort(place.port);
  const QList<QNetworkProxy> proxies = QNetworkProxyFactory::proxyForQuery(QNetworkProxyQuery(url));
  for (const QNetworkProxy& proxy : proxies)
    if (proxy.type() == QNetworkProxy::NoProxy || (proxy.capabilities() & QNetworkProxy::TunnelingCapability) != 0)
      return proxy;
  return QNetworkProxy::NoProxy;
}

}  // namespace

HttpPlace::HttpPlace(const QUrl& url)
    : isEncrypted(url.scheme() == "https"_L1),
      host(url.host(QUrl::FullyEncoded)),
      port(static_cast<quint16>(url.port(isEncrypted ? 443 : 80))) {}

UrlConnection::UrlConnection(const HttpPlace& place, const AddressRules& rules, bool onlyPublic, QObject* parent)
    : QObject(parent), place_(place), rules_(rules), onlyPublic_(onlyPublic), patience_(this) {
  patience_.setSingleShot(true);
  patience_.setInterval(kPatience);
  connect(&patience_, &QTimer::timeout, this, &UrlConnection::TryNext);
}

UrlConnection::~UrlConnection() {
  if (socket_) socket_->disconnect(this);
}

void UrlConnection::Open() {
  const QNetworkProxy proxy = ProxyFor(place_);
  if (proxy.type() != QNetworkProxy::NoProxy) return OpenThrough(proxy);
  QHostAddress literal;
  if (literal.setAddress(place_.host)) {
    addresses_ = {literal};
    return TryNext();
  }
  QHostInfo::lookupHost(QUrl::fromAce(place_.host.toLatin1()), this, &UrlConnection::TakeAddresses);
}

void UrlConnection::OpenThrough(const QNetworkProxy& proxy) {
  QHostAddress literal;
  leadsIntoPrivate_ = literal.setAddress(place_.host) ? rules_.IsPrivate(literal) : !place_.host.contains(u'.');
  if (onlyPublic_ && leadsIntoPrivate_) return EmitLost();
  MakeSocket(proxy);
  Connect(place_.host);
}

void UrlConnection::TakeAddresses(const QHostInfo& found) {
  addresses_ = found.addresses().first(std::min(found.addresses().size(), kMostAddresses));
  TryNext();
}

// Tries one address after the other. The rules judge the same address that is connected to: a second answer to the same
// name cannot lead elsewhere.
void UrlConnection::TryNext() {
  patience_.stop();
  if (onlyPublic_) addresses_.removeIf([this](const QHostAddress& address) { return rules_.IsPrivate(address); });
  if (addresses_.isEmpty()) return EmitLost();
  const QHostAddress address = addresses_.takeFirst();
  leadsIntoPrivate_ = rules_.IsPrivate(address);
  if (!addresses_.isEmpty()) patience_.start();
  MakeSocket(QNetworkProxy::NoProxy);
  Connect(address.toString());
}

void UrlConnection::MakeSocket(const QNetworkProxy& proxy) {
  if (socket_) {
    socket_->disconnect(this);
    socket_->deleteLater();
  }
  socket_ = place_.isEncrypted ? new QSslSocket(this) : new QTcpSocket(this);
  socket_->setProxy(proxy);
  socket_->setReadBufferSize(kBuffer);
  connect(socket_, &QTcpSocket::readyRead, this, &UrlConnection::Readable);
  connect(socket_, &QTcpSocket::errorOccurred, this, &UrlConnection::OnLost);
  connect(socket_, &QTcpSocket::disconnected, this, &UrlConnection::OnLost);
  if (auto* safe = qobject_cast<QSslSocket*>(socket_)) {
    connect(safe, &QSslSocket::encrypted, this, &UrlConnection::OnOpened);
  } else {
    connect(socket_, &QTcpSocket::connected, this, &UrlConnection::OnOpened);
  }
}

void UrlConnection::Connect(const QString& host) {
  if (auto* safe = qobject_cast<QSslSocket*>(socket_)) {
    safe->connectToHostEncrypted(host, place_.port, place_.host);
  } else {
    socket_->connectToHost(host, place_.port);
  }
}

void UrlConnection::OnOpened() {
  patience_.stop();
  isOpen_ = true;
  Q_EMIT Opened();
}

void UrlConnection::OnLost() {
  if (isOpen_ || addresses_.isEmpty()) return EmitLost();
  // Queued, because TryNext() replaces the socket that is raising this signal.
  socket_->disconnect(this);
  QMetaObject::invokeMethod(this, &UrlConnection::TryNext, Qt::QueuedConnection);
}

// Queued, so that Lost is never raised within Open() or Read().
void UrlConnection::EmitLost() {
  if (std::exchange(isLost_, true)) return;
  QMetaObject::invokeMethod(this, &UrlConnection::Lost, Qt::QueuedConnection);
}

void UrlConnection::Send(const QByteArray& request) {
  socket_->write(request);
}

QByteArray UrlConnection::Read() {
  return socket_ ? socket_->read(kStep) : QByteArray();
}

bool UrlConnection::HasEnded() const {
  return isLost_ || (isOpen_ && socket_->state() != QAbstractSocket::ConnectedState && socket_->bytesAvailable() == 0);
}
