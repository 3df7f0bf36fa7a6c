// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/flood_watch.h"

#include <linux/tcp.h>
#include <netinet/in.h>
#include <sys/ioctl.h>
#include <sys/socket.h>

#include <QDir>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

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

bool HoldsUnread(int descriptor) {
  int unread = 0;
  return ioctl(descriptor, FIONREAD, &unread) == 0 && unread > 0;
}

quint64 ReceivedBy(int descriptor) {
  tcp_info info = {};
  socklen_t size = sizeof info;
  return getsockopt(descriptor, IPPROTO_TCP, TCP_INFO, &info, &size) == 0 ? info.tcpi_bytes_received : 0;
}

}  // namespace

QList<FloodWatch::Flood> FloodWatch::Look(const QList<Peer>& peers) {
  QHash<int, quint64> received;
  QList<Flood> floods;
  for (const Flood& one : Unread()) {
    if (!peers.contains(one.peer)) continue;
    const quint64 bytes = ReceivedBy(one.descriptor);
    if (bytes > received_.value(one.descriptor, bytes)) floods += one;
    received.insert(one.descriptor, bytes);
  }
  received_ = received;
  return floods;
}

QList<FloodWatch::Flood> FloodWatch::Unread() {
  QList<Flood> found;
  const QStringList names = QDir(u"/proc/self/fd"_s).entryList(QDir::Files | QDir::System | QDir::NoDotAndDotDot);
  for (const QString& name : names) {
    const int descriptor = name.toInt();
    const std::optional<Peer> peer = PeerOf(descriptor);
    if (peer && HoldsUnread(descriptor)) found += {descriptor, *peer};
  }
  return found;
}

void FloodWatch::Cut(const QList<Flood>& floods) {
  for (const Flood& flood : floods) shutdown(flood.descriptor, SHUT_RDWR);
}
