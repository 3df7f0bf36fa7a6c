// SPDX-License-Identifier: GPL-3.0-or-later
// A server on loopback that sends every connection a head and then one block again and again. It works on a thread of
// its own, because it must not wait for the test's event loop, and keeps nothing that it sends.
#pragma once

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QTcpServer>
#include <QUrl>
#include <algorithm>
#include <atomic>
#include <limits>
#include <thread>

#include "test_suite.h"

class FloodServer {
 public:
  static constexpr qint64 kEndless = std::numeric_limits<qint64>::max();

  // size: bytes for each connection, the head among them.
  FloodServer(QByteArray head, QByteArray block, qint64 size = kEndless)
      : head_(std::move(head)), block_(std::move(block)), size_(size) {
    (void)listener_.listen(QHostAddress::LocalHost);
    listener_.pauseAccepting();  // the thread accepts
    thread_ = std::thread([this]() { Run(static_cast<int>(listener_.socketDescriptor())); });
  }
  ~FloodServer() {
    isOver_ = true;
    thread_.join();
  }
  Q_DISABLE_COPY_MOVE(FloodServer)

  QUrl Url() const { return QUrl(u"http://127.0.0.1:%1/"_s.arg(listener_.serverPort())); }
  int Connections() const { return connections_; }
  // Connections that the reader has closed.
  int Ended() const { return ended_; }

 private:
  struct Client {
    int socket;
    qint64 sent;
  };

  void Run(int listener) {
    std::vector<Client> clients;
    while (!isOver_) {
      std::vector<pollfd> waiting = {{listener, POLLIN, 0}};
      for (const Client& client : clients) {
        // POLLRDHUP reports a reader that has closed its end even while the full socket takes no more bytes.
        waiting.push_back(
            {client.socket, static_cast<short>(client.sent < size_ ? POLLOUT | POLLRDHUP : POLLRDHUP), 0});
      }
      if (poll(waiting.data(), waiting.size(), 20) <= 0) continue;
      for (size_t i = clients.size(); i > 0; --i) {
        if (waiting[i].revents == 0 || Feed(clients[i - 1], waiting[i].revents)) continue;
        close(clients[i - 1].socket);
        clients.erase(clients.begin() + static_cast<std::ptrdiff_t>(i - 1));
        ++ended_;
      }
      if (waiting[0].revents == 0) continue;
      clients.push_back({accept4(listener, nullptr, nullptr, SOCK_CLOEXEC), 0});
      ++connections_;
    }
    for (const Client& client : clients) close(client.socket);
  }

  // False when the reader has gone.
  bool Feed(Client& client, int events) const {
    if ((events & POLLOUT) == 0 || (events & POLLRDHUP) != 0) return false;
    const bool isHead = client.sent < head_.size();
    const qsizetype from = isHead ? client.sent : (client.sent - head_.size()) % block_.size();
    const QByteArrayView rest = QByteArrayView(isHead ? head_ : block_).sliced(from);
    const auto most = static_cast<size_t>(std::min<qint64>(rest.size(), size_ - client.sent));
    const ssize_t count = send(client.socket, rest.data(), most, MSG_NOSIGNAL | MSG_DONTWAIT);
    if (count > 0) client.sent += count;
    return count >= 0 || errno == EAGAIN;
  }

  const QByteArray head_;
  const QByteArray block_;
  const qint64 size_;
  QTcpServer listener_;
  std::atomic<bool> isOver_ = false;
  std::atomic<int> connections_ = 0;
  std::atomic<int> ended_ = 0;
  std::thread thread_;
};
