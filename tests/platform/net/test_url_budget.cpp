// SPDX-License-Identifier: GPL-3.0-or-later
// What many servers together may take: reads, memory, sockets.
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QElapsedTimer>
#include <QFile>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>
#include <atomic>
#include <memory>
#include <thread>
#include <vector>

#include "platform/net/url_reader.h"
#include "rude_server.h"
#include "test_suite.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using Then = RudeAnswer::Then;

namespace {

constexpr int kPatienceMs = 60'000;
constexpr qint64 kMiB = 1024LL * 1024;

// Kilobytes of a line of /proc/self/status, in MiB.
qint64 MemoryOf(const QString& line) {
  QFile file(u"/proc/self/status"_s);
  if (!file.open(QIODevice::ReadOnly)) return -1;
  const QString text = QString::fromLatin1(file.readAll());
  return QRegularExpression(line + u":\\s+(\\d+)"_s).match(text).captured(1).toLongLong() / 1024;
}

void ForgetPeak() {
  QFile file(u"/proc/self/clear_refs"_s);
  if (file.open(QIODevice::WriteOnly)) file.write("5");
}

using Servers = std::vector<std::unique_ptr<RudeServer>>;

// Each at an address of its own.
Servers Hosts(int count, const RudeAnswer& answer) {
  Servers servers;
  for (int i = 0; i < count; ++i) {
    servers.push_back(std::make_unique<RudeServer>(u"127.0.%1.%2"_s.arg(1 + i / 200).arg(1 + i % 200)));
    servers.back()->Set("/x", answer);
  }
  return servers;
}

int Sum(const Servers& servers, int RudeServer::*field) {
  int sum = 0;
  for (const auto& server : servers) sum += server.get()->*field;
  return sum;
}

// Answers every connection with a large body, on a thread of its own and without keeping it in memory.
class LargeServer {
 public:
  explicit LargeServer(qint64 size) : size_(size) {
    (void)listener_.listen(QHostAddress::LocalHost);
    // The thread accepts, not the test's event loop.
    listener_.pauseAccepting();
    thread_ = std::thread([this]() { Run(static_cast<int>(listener_.socketDescriptor())); });
  }
  ~LargeServer() {
    isOver_ = true;
    thread_.join();
  }
  Q_DISABLE_COPY_MOVE(LargeServer)
  QUrl Url(int host) const { return QUrl(u"http://127.0.0.1:%1/%2"_s.arg(listener_.serverPort()).arg(host)); }

 private:
  struct Client {
    int socket;
    qint64 left;
  };
  void Run(int listener) {
    const QByteArray head = "HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(size_) + "\r\n\r\n";
    const QByteArray block(65536, 'x');
    std::vector<Client> clients;
    while (!isOver_) {
      std::vector<pollfd> waiting = {{listener, POLLIN, 0}};
      for (const Client& client : clients) waiting.push_back({client.socket, POLLOUT, 0});
      if (poll(waiting.data(), waiting.size(), 20) <= 0) continue;
      for (size_t i = 0; i < clients.size(); ++i) {
        Client& client = clients[i];
        if (waiting[i + 1].revents == 0 || client.left == 0) continue;
        const auto most = static_cast<size_t>(std::min<qint64>(client.left, block.size()));
        const ssize_t sent = send(client.socket, block.constData(), most, MSG_NOSIGNAL | MSG_DONTWAIT);
        if (sent > 0) client.left -= sent;
        // Closed by the reader, which has all.
        if (sent < 0 && errno != EAGAIN) client.left = 0;
        if (client.left == 0) shutdown(client.socket, SHUT_WR);
      }
      if (waiting[0].revents == 0) continue;
      const int socket = accept4(listener, nullptr, nullptr, SOCK_CLOEXEC);
      if (socket < 0) continue;
      send(socket, head.constData(), static_cast<size_t>(head.size()), MSG_NOSIGNAL);
      clients.push_back({socket, size_});
    }
    for (const Client& client : clients) close(client.socket);
  }

  const qint64 size_;
  QTcpServer listener_;
  std::atomic<bool> isOver_ = false;
  std::thread thread_;
};

}  // namespace

class TestUrlBudget : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  // 22 for pages, two more for what a user waits for, and that one overtakes all that wait.
  void UsersFirst() {
    const Servers silent = Hosts(40, {{}, {}, Then::Stall});
    RudeServer healthy;
    healthy.Set("/x", {"HTTP/1.1 200 OK\r\n", "x"});
    UrlNetwork network({.stall = 30s});
    UrlReader reader(network);
    const QSignalSpy done(&reader, &UrlReader::Done);
    for (size_t i = 0; i < 36; ++i) reader.Start(QString::number(i), silent[i]->Url(u"/x"_s));
    QTRY_COMPARE_WITH_TIMEOUT(Sum(silent, &RudeServer::requests), 22, kPatienceMs);
    reader.Start(u"page"_s, healthy.Url(u"/x"_s));
    reader.Start(u"user"_s, healthy.Url(u"/x"_s), UrlPriority::User);
    QTRY_COMPARE_WITH_TIMEOUT(done.size(), 1, kPatienceMs);
    QCOMPARE(done.first().first().toString(), u"user"_s);
    for (size_t i = 36; i < 40; ++i) reader.Start(QString::number(i), silent[i]->Url(u"/x"_s), UrlPriority::User);
    QTRY_COMPARE_WITH_TIMEOUT(Sum(silent, &RudeServer::requests), 24, kPatienceMs);
    // Five places become free: two users have waited, and one page fits in below the two places of users.
    for (int i = 0; i < 5; ++i) reader.Cancel(QString::number(i));
    QTRY_COMPARE_WITH_TIMEOUT(silent[38]->requests + silent[39]->requests, 2, kPatienceMs);
    QTRY_COMPARE_WITH_TIMEOUT(Sum(silent, &RudeServer::requests), 24 + 3, kPatienceMs);
    QVERIFY(reader.IsPending(u"page"_s));
  }

  void SocketsAreClosed() {
    const Servers kept = Hosts(120, {"HTTP/1.1 200 OK\r\nContent-Length: 1\r\n", "x", Then::Keep});
    UrlNetwork network({.idle = 3s});
    UrlReader reader(network);
    const QSignalSpy done(&reader, &UrlReader::Done);
    for (int i = 0; i < 120; ++i) reader.Start(QString::number(i), kept[static_cast<size_t>(i)]->Url(u"/x"_s));
    QTRY_COMPARE_WITH_TIMEOUT(done.size(), 120, kPatienceMs);
    QTRY_VERIFY_WITH_TIMEOUT(Sum(kept, &RudeServer::open) <= 40, kPatienceMs);
    // An open one is used again; the last that were read are open.
    reader.Start(u"again"_s, kept[119]->Url(u"/x"_s));
    QTRY_COMPARE_WITH_TIMEOUT(done.size(), 121, kPatienceMs);
    QVERIFY(kept[119]->connections <= 2);
    QTRY_COMPARE_WITH_TIMEOUT(Sum(kept, &RudeServer::open), 0, kPatienceMs);
  }

  // A server closes an idle connection just when the next request is on its way.
  void AsksAgainWhereAnIdleConnectionWasClosed() {
    RudeServer server;
    server.Set("/x", {"HTTP/1.1 200 OK\r\nContent-Length: 1\r\n", "x", Then::KeepOnce});
    UrlNetwork network;
    UrlReader reader(network);
    const QSignalSpy done(&reader, &UrlReader::Done);
    for (int i = 1; i <= 3; ++i) {
      reader.Start(u"k"_s, server.Url(u"/x"_s));
      QTRY_COMPARE_WITH_TIMEOUT(done.size(), i, kPatienceMs);
    }
    QCOMPARE(server.connections, 3);
  }

  // All of them come, one after the other; without a budget they would be in memory together.
  void ManyLargeBodies() {
    constexpr int kBodies = 35;
    constexpr qint64 kSize = 62 * kMiB;
    const LargeServer server(kSize);
    UrlNetwork network({.maxReadsPerHost = 24});
    UrlReader reader(network);
    int done = 0;
    int failed = 0;
    connect(&reader, &UrlReader::Failed, this, [&failed]() { ++failed; });
    connect(&reader, &UrlReader::Done, this, [&done](const QString&, const QByteArray& body) {
      QCOMPARE(body.size(), kSize);
      ++done;
    });
    ForgetPeak();
    const qint64 before = MemoryOf(u"VmRSS"_s);
    for (int i = 0; i < kBodies; ++i) reader.Start(QString::number(i), server.Url(i));
    QTRY_COMPARE_WITH_TIMEOUT(done + failed, kBodies, 5 * kPatienceMs);
    QCOMPARE(failed, 0);
    const qint64 grown = MemoryOf(u"VmHWM"_s) - before;
    qInfo("%lld MiB more in memory at the most", static_cast<long long>(grown));
    // 256, the rest of the oldest and a little of the others; a sanitizer keeps freed memory for a while.
    QVERIFY2(grown < 700, QByteArray::number(grown).constData());
  }

  // The oldest read goes on however slowly; the other's stillness is not its server's fault meanwhile.
  void APausedReadDoesNotStall() {
    constexpr qint64 kSize = 4 * kMiB;
    const LargeServer large(kSize);
    RudeServer slow;
    slow.Set("/x", {"HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(2 * kMiB + 150) + "\r\n",
                    QByteArray(2 * kMiB, 'x'), Then::Drip});
    UrlNetwork network({.stall = 1500ms, .maxMemory = kMiB});
    UrlReader reader(network);
    QStringList said;
    qint64 read = 0;
    connect(&reader, &UrlReader::Done, this, [&said](const QString& key) { said += key; });
    connect(&reader, &UrlReader::Progress, this,
            [&read](const QString& key, qint64, qint64 count) { read = key == u"slow"_s ? count : read; });
    reader.Start(u"slow"_s, slow.Url(u"/x"_s));
    QTRY_VERIFY_WITH_TIMEOUT(read >= 2 * kMiB, kPatienceMs);
    reader.Start(u"large"_s, large.Url(1));
    QTRY_COMPARE_WITH_TIMEOUT(said, (QStringList{u"slow"_s, u"large"_s}), kPatienceMs);
  }

  // A body counts as long as its reader's handler has it somewhere: the last read waits until the slow one is through.
  void BodiesThatAreHeldCount() {
    const LargeServer large(4 * kMiB);
    RudeServer slow;
    slow.Set("/x", {"HTTP/1.1 200 OK\r\nContent-Length: 1500060\r\n", QByteArray(1'500'000, 'x'), Then::Drip});
    UrlNetwork network({.maxMemory = 6 * kMiB});
    UrlReader reader(network);
    QList<QByteArray> held;
    QStringList said;
    bool isRunning = false;
    connect(&reader, &UrlReader::Done, this, [&](const QString& key, const QByteArray& body) {
      said += key;
      held += body;
    });
    connect(&reader, &UrlReader::Progress, this,
            [&isRunning](const QString& key) { isRunning = isRunning || key == u"slow"_s; });
    reader.Start(u"held"_s, large.Url(1));
    QTRY_COMPARE_WITH_TIMEOUT(said.size(), 1, kPatienceMs);
    reader.Start(u"slow"_s, slow.Url(u"/x"_s));
    QTRY_VERIFY_WITH_TIMEOUT(isRunning, kPatienceMs);
    reader.Start(u"last"_s, large.Url(2));
    QTRY_COMPARE_WITH_TIMEOUT(said, (QStringList{u"held"_s, u"slow"_s, u"last"_s}), kPatienceMs);
  }
};

OMNI_TEST(TestUrlBudget)
#include "test_url_budget.moc"
