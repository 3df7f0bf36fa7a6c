// SPDX-License-Identifier: GPL-3.0-or-later
// Servers that send without end what Qt reads to its end: the other reads of the program must go on.
#include <arpa/inet.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QSignalSpy>
#include <QTest>
#include <atomic>
#include <thread>

#include "platform/net/url_reader.h"
#include "rude_server.h"
#include "test_suite.h"
#include "tls_flood.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr int kPatienceMs = 20'000;

// Floods each connection in turn, on a thread of its own: it must not wait for the test's event loop.
class FloodServer {
 public:
  FloodServer(QByteArray head, QByteArray block) : head_(std::move(head)), block_(std::move(block)) {
    socket_ = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto* name = reinterpret_cast<sockaddr*>(&address);
    if (bind(socket_, name, size) == 0 && listen(socket_, 8) == 0 && getsockname(socket_, name, &size) == 0)
      port_ = ntohs(address.sin_port);
    thread_ = std::thread([this]() { Run(); });
  }
  ~FloodServer() {
    isOver_ = true;
    thread_.join();
    close(socket_);
  }
  Q_DISABLE_COPY_MOVE(FloodServer)

  QUrl Url() const { return QUrl(u"http://127.0.0.1:%1/"_s.arg(port_)); }
  bool HasBegun() const { return connections_ > 0; }
  int Connections() const { return connections_; }
  int Ended() const { return ended_; }

 private:
  void Run() {
    while (!isOver_) {
      pollfd waiting = {socket_, POLLIN, 0};
      if (poll(&waiting, 1, 20) <= 0) continue;
      const int client = accept4(socket_, nullptr, nullptr, SOCK_CLOEXEC);
      ++connections_;
      Send(client, head_);
      while (Send(client, block_)) {
      }
      close(client);
      ++ended_;
    }
  }

  bool Send(int client, const QByteArray& bytes) {
    qsizetype sent = 0;
    while (sent < bytes.size()) {
      // The reader's end of the connection is seen although nothing more can be sent to it.
      pollfd waiting = {client, POLLOUT | POLLRDHUP, 0};
      const int ready = poll(&waiting, 1, 20);
      if (isOver_ || (waiting.revents & POLLRDHUP) != 0) return false;
      if (ready == 0) continue;
      const ssize_t count =
          send(client, bytes.constData() + sent, static_cast<size_t>(bytes.size() - sent), MSG_NOSIGNAL | MSG_DONTWAIT);
      if (count < 0) return false;
      sent += count;
    }
    return true;
  }

  QByteArray head_;
  QByteArray block_;
  int socket_ = -1;
  quint16 port_ = 0;
  std::atomic<bool> isOver_ = false;
  std::atomic<int> connections_ = 0;
  std::atomic<int> ended_ = 0;
  std::thread thread_;
};

const QByteArray kOk = "HTTP/1.1 200 OK\r\n";

}  // namespace

class TestFlood : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void HoldsNobodyElseUp_data() {
    QTest::addColumn<QByteArray>("head");
    QTest::addColumn<QByteArray>("block");
    QTest::newRow("header lines") << kOk << ("X-Line: " + QByteArray(100, 'x') + "\r\n").repeated(500);
    QTest::newRow("a header line") << kOk + "X-Line: " << QByteArray(65536, 'x');
    QTest::newRow("the length of a chunk") << kOk + "Transfer-Encoding: chunked\r\n\r\n" << QByteArray(65536, '0');
    QTest::newRow("interim answers") << QByteArray() << "HTTP/1.1 100 Continue\r\n\r\n"_ba.repeated(2000);
  }
  void HoldsNobodyElseUp() {
    QFETCH(const QByteArray, head);
    QFETCH(const QByteArray, block);
    FloodServer flood(head, block);
    RudeServer server;
    server.Set("/x", {"HTTP/1.1 200 OK\r\n", "x"});
    server.Set("/drip", {kOk + "Content-Length: 1000000\r\n", "", RudeAnswer::Then::Drip});
    UrlNetwork network({.stall = 30s});
    UrlReader reader(network);
    QStringList said;
    connect(&reader, &UrlReader::Failed, this, [&](const QString& key) { said += key + u" failed"_s; });
    connect(&reader, &UrlReader::Done, this, [&](const QString& key) { said += key + u" done"_s; });
    // Its bytes go on coming while nobody reads them.
    bool isDripping = false;
    connect(&reader, &UrlReader::Progress, this,
            [&](const QString& key) { isDripping = isDripping || key == u"drip"_s; });
    reader.Start(u"drip"_s, server.Url(u"/drip"_s));
    QTRY_VERIFY_WITH_TIMEOUT(isDripping, kPatienceMs);
    reader.Start(u"flood"_s, flood.Url());
    QTRY_VERIFY_WITH_TIMEOUT(flood.HasBegun(), kPatienceMs);
    reader.Start(u"other"_s, server.Url(u"/x"_s));
    QTRY_COMPARE_WITH_TIMEOUT(said, (QStringList{u"flood failed"_s, u"other done"_s}), kPatienceMs);
    QTRY_COMPARE_WITH_TIMEOUT(flood.Ended(), 1, kPatienceMs);
    // It was not asked again, and the reads that follow are quick.
    reader.Start(u"next"_s, server.Url(u"/x"_s));
    QTRY_COMPARE_WITH_TIMEOUT(said.last(), u"next done"_s, kPatienceMs);
    QCOMPARE(flood.Connections(), 1);
    QVERIFY(reader.IsPending(u"drip"_s));
  }

  // The lines of a head come decrypted, in pieces as small as the server likes.
  void IsCutOverTlsToo() {
    QSslConfiguration trusting = QSslConfiguration::defaultConfiguration();
    const QSslConfiguration before = trusting;
    trusting.addCaCertificate(TlsFlood::Certificate());
    QSslConfiguration::setDefaultConfiguration(trusting);
    TlsFlood flood;
    UrlNetwork network({.stall = 30s});
    UrlReader reader(network);
    const QSignalSpy failed(&reader, &UrlReader::Failed);
    const QSignalSpy flooded(&network, &UrlNetwork::HostFlooded);
    reader.Start(u"flood"_s, flood.Url());
    QTRY_COMPARE_WITH_TIMEOUT(failed.size(), 1, kPatienceMs);
    QTRY_COMPARE_WITH_TIMEOUT(flood.ended, 1, kPatienceMs);
    QSslConfiguration::setDefaultConfiguration(before);
    QCOMPARE(flooded.size(), 1);
    QCOMPARE(flooded.first().first().toString(), u"127.0.0.1"_s);
    // What was on its way; the reader took 64 KiB of it.
    QVERIFY2(flood.sent > 50'000 && flood.sent < 20'000'000, QByteArray::number(flood.sent).constData());
  }

  // Whoever leaves a page drops its reads; that of a flood goes on all the same.
  void IsCutWhenItsReadWasDropped() {
    FloodServer flood(kOk, "X: y\r\n"_ba.repeated(5000));
    RudeServer server;
    server.Set("/x", {"HTTP/1.1 200 OK\r\n", "x"});
    UrlNetwork network({.stall = 60s});
    UrlReader reader(network);
    QStringList said;
    connect(&reader, &UrlReader::Done, this, [&](const QString& key) { said += key; });
    reader.Start(u"first"_s, server.Url(u"/x"_s));
    QTRY_COMPARE_WITH_TIMEOUT(said, QStringList{u"first"_s}, kPatienceMs);
    reader.Start(u"flood"_s, flood.Url());
    QTRY_VERIFY_WITH_TIMEOUT(flood.HasBegun(), kPatienceMs);
    reader.Cancel(u"flood"_s);
    reader.Start(u"next"_s, server.Url(u"/x"_s));
    QTRY_COMPARE_WITH_TIMEOUT(said.last(), u"next"_s, kPatienceMs);
    QTRY_COMPARE_WITH_TIMEOUT(flood.Ended(), 1, kPatienceMs);
  }

  // A thread that goes on reading would outlive its network.
  void EndsWithTheNetwork_data() {
    QTest::addColumn<bool>("isDropped");
    QTest::newRow("while it is read") << false;
    QTest::newRow("after it was dropped") << true;
  }
  void EndsWithTheNetwork() {
    QFETCH(const bool, isDropped);
    FloodServer flood(kOk, "X: y\r\n"_ba.repeated(5000));
    auto network = std::make_unique<UrlNetwork>();
    UrlReader reader(*network);
    reader.Start(u"flood"_s, flood.Url());
    QTRY_VERIFY_WITH_TIMEOUT(flood.HasBegun(), kPatienceMs);
    if (isDropped) reader.Cancel(u"flood"_s);
    network.reset();
    QTRY_COMPARE_WITH_TIMEOUT(flood.Ended(), 1, kPatienceMs);
  }
};

OMNI_TEST(TestFlood)
#include "test_flood.moc"
