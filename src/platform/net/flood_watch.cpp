// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/net/flood_watch.h"

#include <linux/tcp.h>
#include <netinet/in.h>
#include <sys/ioctl.h>
#include <sys/socket.h>

#include <QDir>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

// What comes in between the two counts of TakenFrom looks as if it had been taken. A flood's reader takes far more.
constexpr qint64 kLeastTaken = 16384;

std::optional<FloodWatch::Peer> PeerOf(int descriptor) {
  sockaddr_storage name = {};
  socklen_t size = sizeof name;
  auto* address = reinterpret_cast<sockaddr*>(&name);
  if (getpeername(descriptor, address, &size) != 0) return std::nullopt;
  if (name.ss_family == AF_INET)
    return FloodWatch::Peer{QHostAddress(address), ntohs(reinterpret_cast<const sockaddr_in*>(&name)->sin_port)};
  if (name.ss_family == AF_INET6)
    return FloodWatch::Peer{QHostAddress(address), ntohs(reinterpret_cast<const sockaddr_in6*>(&name)->sin6_port)};
  return std::nullopt;
}

qint64 UnreadIn(int descriptor) {
  int unread = 0;
  return ioctl(descriptor, FIONREAD, &unread) == 0 ? unread : 0;
}

// Bytes that the connection has ever handed to its reader.
qint64 TakenFrom(int descriptor) {
  tcp_info info = {};
  socklen_t size = sizeof info;
  if (getsockopt(descriptor, IPPROTO_TCP, TCP_INFO, &info, &size) != 0) return 0;
  return static_cast<qint64>(info.tcpi_bytes_received) - UnreadIn(descriptor);
}

}  // namespace

QList<FloodWatch::Flood> FloodWatch::Look(const QList<Peer>& peers) {
  QHash<int, qint64> taken;
  QList<Flood> floods;
  for (const Flood& one : Unread()) {
    if (!peers.contains(one.peer)) continue;
    const qint64 bytes = TakenFrom(one.descriptor);
    if (bytes > taken_.value(one.descriptor, bytes) + kLeastTaken) floods += one;
    taken.insert(one.descriptor, bytes);
  }
  taken_ = taken;
  return floods;
}

QList<FloodWatch::Flood> FloodWatch::Unread() {
  QList<Flood> found;
  const QStringList names = QDir(u"/proc/self/fd"_s).entryList(QDir::Files | QDir::System | QDir::NoDotAndDotDot);
  for (const QString& name : names) {
    const int descriptor = name.toInt();
    const std::optional<Peer> peer = PeerOf(descriptor);
    if (peer && UnreadIn(descriptor) > 0) found += {descriptor, *peer};
  }
  return found;
}

void FloodWatch::Cut(const QList<Flood>& floods) {
  for (const Flood& flood : floods) shutdown(flood.descriptor, SHUT_RDWR);
}
