// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/companion_link.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kLongestLine = 1024LL * 1024;
constexpr qint64 kReadAtOnce = 64LL * 1024;
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
  const QHash<QLocalSocket*, PartialLine> partialLines = std::exchange(partialLines_, {});
  for (auto socket = partialLines.keyBegin(); socket != partialLines.keyEnd(); ++socket) {
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
    socket->setReadBufferSize(kReadAtOnce);
    partialLines_.insert(socket, {});
    connect(socket, &QLocalSocket::readyRead, this, [this, socket]() { Read(socket); });
    connect(socket, &QLocalSocket::disconnected, this, [this, socket]() {
      Read(socket);
      partialLines_.remove(socket);
      socket->deleteLater();
    });
    // For bytes that arrived before the connects above no readyRead is raised.
    Read(socket);
  }
}

void CompanionLink::Read(QLocalSocket* socket) {
  PartialLine& partial = partialLines_[socket];
  QList<QByteArray> lines;
  while (socket->bytesAvailable() > 0) {
    const QByteArray bytes = socket->read(kReadAtOnce);
    qsizetype start = 0;
    for (qsizetype end = bytes.indexOf('\n'); end >= 0; end = bytes.indexOf('\n', start)) {
      partial.bytes += bytes.sliced(start, end - start);
      if (!partial.tooLong && partial.bytes.size() <= kLongestLine) lines += partial.bytes;
      partial = {};
      start = end + 1;
    }
    if (!partial.tooLong) partial.bytes += bytes.sliced(start);
    if (partial.bytes.size() > kLongestLine) partial = {{}, true};
  }
  // Raised after the loop: a handler may do anything, even lead to a further Read(), and partial would then no longer
  // be valid.
  for (const QByteArray& line : lines) TakeLine(line);
}

void CompanionLink::TakeLine(const QByteArray& line) {
  const QString text = QString::fromUtf8(line.endsWith('\r') ? line.chopped(1) : line);
  for (const QString& item : {u"txtRxOk"_s, u"txtFromRxOk"_s}) {
    if (text.startsWith(item + u'=')) Q_EMIT TextArrived(item, text.sliced(item.size() + 1));
  }
}
