// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/companion_link.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kLongestLine = 1024LL * 1024;
constexpr qint64 kReadAtOnce = 64LL * 1024;
constexpr qsizetype kMostClients = 8;
constexpr int kClosedPatienceMs = 500;  // to send "Closed"
constexpr int kProbePatienceMs = 100;   // until somebody answers on an existing socket

// True if the file at path is a socket on which nobody answers: a crashed program has left it behind.
bool IsOrphaned(const QString& path) {
  if (QFileInfo(path).isFile()) return false;
  QLocalSocket probe;
  probe.connectToServer(path);
  return !probe.waitForConnected(kProbePatienceMs) && probe.error() == QLocalSocket::ConnectionRefusedError;
}

}  // namespace

CompanionLink::CompanionLink(const QString& socketDir, QObject* parent)
    : QObject(parent), socketDir_(socketDir), server_(this) {
  server_.setSocketOptions(QLocalServer::UserAccessOption);
  connect(&server_, &QLocalServer::newConnection, this, &CompanionLink::Accept);
}

CompanionLink::~CompanionLink() {
  CloseConnections();
}

QString CompanionLink::DefaultSocketDir() {
  const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
  return runtime.isEmpty() ? QDir::tempPath() : runtime;
}

bool CompanionLink::Listen() {
  const QString path = socketDir_ + u"/omni-perch-form1"_s;
  // listen() would replace a file of that name, even the socket of a running program, so test first whether one
  // answers.
  if (QFileInfo::exists(path)) {
    if (!IsOrphaned(path)) return false;
    QFile::remove(path);
  }
  return server_.listen(path);
}

// Ends all connections without reading what they have still sent.
void CompanionLink::CloseConnections() {
  server_.close();
  const QHash<QLocalSocket*, Client> clients = std::exchange(clients_, {});
  for (auto socket = clients.keyBegin(); socket != clients.keyEnd(); ++socket) {
    (*socket)->disconnect(this);
    (*socket)->abort();
    (*socket)->deleteLater();
  }
}

void CompanionLink::SendClosed() {
  CloseConnections();
  QDeadlineTimer patience(kClosedPatienceMs);
  QLocalSocket companion;
  companion.connectToServer(socketDir_ + u"/tv-echo-form1"_s, QIODevice::WriteOnly);
  if (!companion.waitForConnected(static_cast<int>(patience.remainingTime()))) return;
  companion.write("Closed\n");
  while (companion.bytesToWrite() > 0) {
    if (!companion.waitForBytesWritten(static_cast<int>(patience.remainingTime()))) return;
  }
}

void CompanionLink::Accept() {
  while (QLocalSocket* socket = server_.nextPendingConnection()) {
    if (clients_.size() == kMostClients) {
      socket->abort();
      socket->deleteLater();
      continue;
    }
    socket->setReadBufferSize(kReadAtOnce);
    clients_.insert(socket, {});
    const auto read = [this, socket]() { Read(socket); };
    connect(socket, &QLocalSocket::readyRead, this, read);
    connect(socket, &QLocalSocket::disconnected, this, read);
    // For bytes that arrived before the connects above no readyRead is raised.
    ReadSoon(socket);
  }
}

void CompanionLink::ReadSoon(QLocalSocket* socket) {
  if (std::exchange(clients_[socket].readsSoon, true)) return;
  // The socket is the context, so that nothing comes of it once the connection is gone.
  QMetaObject::invokeMethod(
      socket,
      [this, socket]() {
        if (clients_.contains(socket)) clients_[socket].readsSoon = false;
        Read(socket);
      },
      Qt::QueuedConnection);
}

// Takes one line. Each line may refresh the page, so a client that sends thousands of them at once gets one of them in
// a turn of the event loop.
void CompanionLink::Read(QLocalSocket* socket) {
  if (!clients_.contains(socket) || clients_[socket].readsSoon) return;
  Client& client = clients_[socket];
  qsizetype end = client.bytes.indexOf('\n');
  if (end < 0) {
    client.bytes += socket->read(kReadAtOnce);
    end = client.bytes.indexOf('\n');
  }
  QByteArray line;
  if (end >= 0) {
    line = client.bytes.first(end);
    client.bytes.remove(0, end + 1);
    if (std::exchange(client.tooLong, false) || line.size() > kLongestLine) line.clear();
  } else if (client.bytes.size() > kLongestLine) {
    client.bytes.clear();
    client.tooLong = true;
  }
  if (client.bytes.contains('\n') || socket->bytesAvailable() > 0) {
    ReadSoon(socket);
  } else if (socket->state() == QLocalSocket::UnconnectedState) {
    clients_.remove(socket);
    socket->deleteLater();
  }
  // Last, because a handler may do anything.
  TakeLine(line);
}

void CompanionLink::TakeLine(const QByteArray& line) {
  const QString text = QString::fromUtf8(line.endsWith('\r') ? line.chopped(1) : line);
  for (const QString& item : {u"txtRxOk"_s, u"txtFromRxOk"_s}) {
    if (text.startsWith(item + u'=')) Q_EMIT TextArrived(item, text.sliced(item.size() + 1));
  }
}
