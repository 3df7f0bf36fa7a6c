// SPDX-License-Identifier: GPL-3.0-or-later
// Servers that send without end what Qt reads to its end: the other reads of the program must go on.
#include "flood_server.h"
#include "heard_reader.h"
#include "rude_server.h"
#include "tls_flood.h"

class TestFlood : public QObject {
  Q_OBJECT

  inline static const QByteArray kOk = "HTTP/1.1 200 OK\r\n";

 private Q_SLOTS:
  void HoldsNobodyElseUp() {
    const auto check = [](const char* what, const QByteArray& head, const QByteArray& block) {
      const TableRow row(what);
      const FloodServer flood(head, block);
      RudeServer server;
      server.SetOk("/x", "x");
      server.Set("/drip", {kOk + "Content-Length: 1000000\r\n", "", RudeAnswer::Then::Drip});
      UrlNetwork network({.stall = 30s});
      HeardReader reader(network);
      // The dripping server's bytes go on coming while nobody reads them.
      reader.Start(u"drip"_s, server.Url(u"/drip"_s));
      QTRY_VERIFY_WITH_TIMEOUT(reader.read[u"drip"_s] > 0, kPatienceMs);
      reader.Start(u"flood"_s, flood.Url());
      QTRY_COMPARE_WITH_TIMEOUT(flood.Connections(), 1, kPatienceMs);
      reader.Start(u"other"_s, server.Url(u"/x"_s));
      QTRY_COMPARE_WITH_TIMEOUT(reader.said, (QStringList{u"flood failed"_s, u"other done"_s}), kPatienceMs);
      QTRY_COMPARE_WITH_TIMEOUT(flood.Ended(), 1, kPatienceMs);
      // The flooding server was not asked again, and the reads that follow are quick.
      reader.Start(u"next"_s, server.Url(u"/x"_s));
      QTRY_COMPARE_WITH_TIMEOUT(reader.said.last(), u"next done"_s, kPatienceMs);
      QCOMPARE(flood.Connections(), 1);
      QVERIFY(reader.IsPending(u"drip"_s));
    };
    check("header lines", kOk, ("X-Line: " + QByteArray(100, 'x') + "\r\n").repeated(500));
    check("a header line", kOk + "X-Line: ", QByteArray(65536, 'x'));
    check("the length of a chunk", kOk + "Transfer-Encoding: chunked\r\n\r\n", QByteArray(65536, '0'));
    check("interim answers", {}, "HTTP/1.1 100 Continue\r\n\r\n"_ba.repeated(2000));
  }

  // The lines of a head come decrypted, in pieces as small as the server likes.
  void IsCutOverTlsToo() {
    QSslConfiguration trusting = QSslConfiguration::defaultConfiguration();
    const QSslConfiguration before = trusting;
    trusting.addCaCertificate(TlsFlood::Certificate());
    QSslConfiguration::setDefaultConfiguration(trusting);
    TlsFlood flood;
    UrlNetwork network({.stall = 30s});
    HeardReader reader(network);
    const QSignalSpy flooded(&network, &UrlNetwork::HostFlooded);
    reader.Start(u"k"_s, flood.Url());
    QTRY_COMPARE_WITH_TIMEOUT(reader.said, QStringList{u"k failed"_s}, kPatienceMs);
    QTRY_COMPARE_WITH_TIMEOUT(flood.ended, 1, kPatienceMs);
    QSslConfiguration::setDefaultConfiguration(before);
    QCOMPARE(flooded, QList<QVariantList>{{u"127.0.0.1"_s}});
    // The sockets' buffers took what was on its way; the reader took 64 KiB of it.
    QVERIFY2(flood.sent > 50'000 && flood.sent < 20'000'000, QByteArray::number(flood.sent).constData());
  }

  // Whoever leaves a page drops its reads; the flooding server goes on sending all the same. A thread that goes on
  // reading it would outlive its network, too.
  void IsCutWhenItsReadOrItsNetworkGoes() {
    const auto check = [](const char* what, bool isDropped, bool networkGoes) {
      const TableRow row(what);
      const FloodServer flood(kOk, "X: y\r\n"_ba.repeated(5000));
      RudeServer server;
      server.SetOk("/x", "x");
      auto network = std::make_unique<UrlNetwork>(UrlLimits{.stall = 60s});
      HeardReader reader(*network);
      reader.Start(u"first"_s, server.Url(u"/x"_s));
      QTRY_COMPARE_WITH_TIMEOUT(reader.said, QStringList{u"first done"_s}, kPatienceMs);
      reader.Start(u"flood"_s, flood.Url());
      QTRY_COMPARE_WITH_TIMEOUT(flood.Connections(), 1, kPatienceMs);
      if (isDropped) reader.Cancel(u"flood"_s);
      if (networkGoes) {
        network.reset();
      } else {
        reader.Start(u"next"_s, server.Url(u"/x"_s));
        QTRY_COMPARE_WITH_TIMEOUT(reader.said.last(), u"next done"_s, kPatienceMs);
      }
      QTRY_COMPARE_WITH_TIMEOUT(flood.Ended(), 1, kPatienceMs);
    };
    check("the read is dropped", true, false);
    check("the network goes while it reads", false, true);
    check("the network goes after the read was dropped", true, true);
  }
};

OMNI_TEST(TestFlood)
#include "test_flood.moc"
