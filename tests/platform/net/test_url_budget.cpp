// SPDX-License-Identifier: GPL-3.0-or-later
// What many servers together may take: reads, memory, sockets.
#include <QRegularExpression>

#include "flood_server.h"
#include "heard_reader.h"
#include "rude_server.h"
#include "test_folder.h"

using Then = RudeAnswer::Then;

namespace {

constexpr qint64 kMiB = 1024LL * 1024;

// Kilobytes of a line of /proc/self/status, in MiB.
qint64 MemoryOf(const QString& line) {
  const QString text = QString::fromLatin1(ReadFileBytes(u"/proc/self/status"_s).value_or(QByteArray()));
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

int SumOf(const Servers& servers, int RudeServer::*field) {
  int sum = 0;
  for (const auto& server : servers) sum += server.get()->*field;
  return sum;
}

// Answers every read with a large body.
FloodServer LargeServer(qint64 size) {
  const QByteArray head =
      "HTTP/1.1 200 OK\r\nConnection: close\r\nContent-Length: " + QByteArray::number(size) + "\r\n\r\n";
  return {head, QByteArray(65536, 'x'), head.size() + size};
}

// A body of which the last bytes come at 50 a second.
RudeAnswer SlowBody(qsizetype atOnce, qsizetype slowly) {
  return {"HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(atOnce + slowly) + "\r\n", QByteArray(atOnce, 'x'),
          Then::Drip};
}

}  // namespace

class TestUrlBudget : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  // 22 for pages, two more for what a user waits for, and the user's read overtakes all that wait.
  void UsersFirst() {
    const Servers silent = Hosts(40, {{}, {}, Then::Stall});
    RudeServer healthy;
    healthy.SetOk("/x", "x");
    UrlNetwork network({.stall = 30s});
    HeardReader reader(network);
    for (size_t i = 0; i < 36; ++i) reader.Start(QString::number(i), silent[i]->Url(u"/x"_s));
    QTRY_COMPARE_WITH_TIMEOUT(SumOf(silent, &RudeServer::requests), 22, kPatienceMs);
    reader.Start(u"page"_s, healthy.Url(u"/x"_s));
    reader.Start(u"user"_s, healthy.Url(u"/x"_s), UrlPriority::User);
    QTRY_COMPARE_WITH_TIMEOUT(reader.said, QStringList{u"user done"_s}, kPatienceMs);
    for (size_t i = 36; i < 40; ++i) reader.Start(QString::number(i), silent[i]->Url(u"/x"_s), UrlPriority::User);
    QTRY_COMPARE_WITH_TIMEOUT(SumOf(silent, &RudeServer::requests), 24, kPatienceMs);
    // Five places become free: two users have waited, and one page fits in below the two places of users.
    for (int i = 0; i < 5; ++i) reader.Cancel(QString::number(i));
    QTRY_COMPARE_WITH_TIMEOUT(silent[38]->requests + silent[39]->requests, 2, kPatienceMs);
    QTRY_COMPARE_WITH_TIMEOUT(SumOf(silent, &RudeServer::requests), 24 + 3, kPatienceMs);
    QVERIFY(reader.IsPending(u"page"_s));
  }

  // Reads behind the page's give their places to these, and wait until these have had their time.
  void BehindThePage() {
    const Servers behind = Hosts(20, {{}, {}, Then::Stall});
    const Servers page = Hosts(60, {{}, {}, Then::Stall});
    const auto heard = [](const Servers& servers) { return SumOf(servers, &RudeServer::requests); };
    UrlNetwork network({.stall = 30s});
    HeardReader reader(network);
    const auto start = [&](const Servers& servers, size_t i, UrlPriority priority) {
      reader.Start(servers[i]->Url(u"/x"_s).host(), servers[i]->Url(u"/x"_s), priority);
    };
    for (size_t i = 0; i < 20; ++i) start(behind, i, UrlPriority::Behind);
    QTRY_COMPARE_WITH_TIMEOUT(heard(behind), 12, kPatienceMs);
    for (size_t i = 20; i < 60; ++i) start(page, i, UrlPriority::Page);
    QTRY_COMPARE_WITH_TIMEOUT(heard(page), 22, kPatienceMs);
    QTRY_COMPARE_WITH_TIMEOUT(SumOf(behind, &RudeServer::open), 0, kPatienceMs);
    for (size_t i = 30; i < 60; ++i) reader.Cancel(page[i]->Url(u"/x"_s).host());
    // The page's reads are silent still, but have become old.
    QTRY_COMPARE_WITH_TIMEOUT(heard(behind), 24, kPatienceMs);
    QCOMPARE(heard(page), 22);
  }

  // Beyond forty the oldest are closed, and each after its time without a read.
  void SocketsAreClosed() {
    const Servers kept = Hosts(120, {"HTTP/1.1 200 OK\r\nContent-Length: 1\r\n", "x", Then::Keep});
    const auto readAll = [&kept](HeardReader& reader) {
      for (int i = 0; i < 120; ++i) reader.Start(QString::number(i), kept[static_cast<size_t>(i)]->Url(u"/x"_s));
      QTRY_COMPARE_WITH_TIMEOUT(reader.said.size(), 120, kPatienceMs);
    };
    {
      UrlNetwork network({.idle = 1h});
      HeardReader reader(network);
      readAll(reader);
      QTRY_COMPARE_WITH_TIMEOUT(SumOf(kept, &RudeServer::open), 40, kPatienceMs);
      // The last that were read are open, and used again.
      reader.Start(u"again"_s, kept[119]->Url(u"/x"_s));
      QTRY_COMPARE_WITH_TIMEOUT(reader.said.last(), u"again done"_s, kPatienceMs);
      QCOMPARE(kept[119]->connections, 1);
    }
    UrlNetwork network({.idle = 100ms});
    HeardReader reader(network);
    readAll(reader);
    QTRY_COMPARE_WITH_TIMEOUT(SumOf(kept, &RudeServer::open), 0, kPatienceMs);
  }

  // A server closes an idle connection just when the next request is on its way.
  void AsksAgainWhereAnIdleConnectionWasClosed() {
    RudeServer server;
    server.SetOk("/x", "x", Then::KeepOnce);
    UrlNetwork network;
    HeardReader reader(network);
    for (int i = 1; i <= 3; ++i) {
      reader.Start(u"k"_s, server.Url(u"/x"_s));
      QTRY_COMPARE_WITH_TIMEOUT(reader.said, QStringList(i, u"k done"_s), kPatienceMs);
    }
    QCOMPARE(server.connections, 3);
  }

  // All of them come, one after the other; without a budget they would be in memory together.
  void ManyLargeBodies() {
    constexpr int kBodies = 20;
    constexpr qint64 kSize = 62 * kMiB;
    const FloodServer server = LargeServer(kSize);
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
    for (int i = 0; i < kBodies; ++i) reader.Start(QString::number(i), server.Url());
    QTRY_COMPARE_WITH_TIMEOUT(done + failed, kBodies, 15 * kPatienceMs);
    QCOMPARE(failed, 0);
    const qint64 grown = MemoryOf(u"VmHWM"_s) - before;
    qInfo("%lld MiB more in memory at the most", static_cast<long long>(grown));
    // 256, the rest of the oldest and a little of the others; a sanitizer keeps freed memory for a while.
    QVERIFY2(grown < 700, QByteArray::number(grown).constData());
  }

  // The oldest read goes on however slowly; the other's stillness is not its server's fault meanwhile.
  void APausedReadDoesNotStall() {
    const FloodServer large = LargeServer(4 * kMiB);
    RudeServer slow;
    slow.Set("/x", SlowBody(2 * kMiB, 150));
    UrlNetwork network({.stall = 1500ms, .maxMemory = kMiB});
    HeardReader reader(network);
    reader.Start(u"slow"_s, slow.Url(u"/x"_s));
    QTRY_VERIFY_WITH_TIMEOUT(reader.read[u"slow"_s] >= 2 * kMiB, kPatienceMs);
    reader.Start(u"large"_s, large.Url());
    QTRY_COMPARE_WITH_TIMEOUT(reader.said, (QStringList{u"slow done"_s, u"large done"_s}), kPatienceMs);
  }

  // A body counts as long as its reader's handler has it somewhere: the last read waits until the slow one is through.
  void BodiesThatAreHeldCount() {
    const FloodServer large = LargeServer(4 * kMiB);
    RudeServer slow;
    slow.Set("/x", SlowBody(1'500'000, 60));
    UrlNetwork network({.maxMemory = 6 * kMiB});
    HeardReader reader(network);  // holds each body
    reader.Start(u"held"_s, large.Url());
    QTRY_COMPARE_WITH_TIMEOUT(reader.said.size(), 1, kPatienceMs);
    reader.Start(u"slow"_s, slow.Url(u"/x"_s));
    QTRY_VERIFY_WITH_TIMEOUT(reader.read[u"slow"_s] > 0, kPatienceMs);
    reader.Start(u"last"_s, large.Url());
    QTRY_COMPARE_WITH_TIMEOUT(reader.said, (QStringList{u"held done"_s, u"slow done"_s, u"last done"_s}), kPatienceMs);
  }
};

OMNI_TEST(TestUrlBudget)
#include "test_url_budget.moc"
