// SPDX-License-Identifier: GPL-3.0-or-later
// A stranger's redirect must not make the program ask servers of the user's own network.
#include <QSignalSpy>
#include <QTest>

#include "platform/net/url_reader.h"
#include "rude_server.h"
#include "test_suite.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kPatienceMs = 10'000;

// On loopback: the second and third address play public servers.
class PlayedRules : public AddressRules {
 public:
  bool IsPrivate(const QHostAddress& address) const override {
    return address != QHostAddress(u"127.0.0.2"_s) && address != QHostAddress(u"127.0.0.3"_s);
  }
};

}  // namespace

class TestUrlRedirects : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void StayOutside_data() {
    QTest::addColumn<QByteArray>("route");  // a: private, b and c: public, l: a by its name
    QTest::addColumn<bool>("isReached");
    for (const char* route : {"a", "b", "l", "bc", "aa", "al", "ab", "abc"})
      QTest::newRow(route) << QByteArray(route) << true;
    for (const char* route : {"ba", "bl", "bca", "aba", "abla"}) QTest::newRow(route) << QByteArray(route) << false;
  }
  void StayOutside() {
    QFETCH(const QByteArray, route);
    QFETCH(const bool, isReached);
    RudeServer own;
    RudeServer second(u"127.0.0.2"_s);
    RudeServer third(u"127.0.0.3"_s);
    const auto urlOf = [&](qsizetype step) {
      const QString path = u"/%1"_s.arg(step);
      const char server = route.at(step);
      QUrl url = (server == 'b' ? second : server == 'c' ? third : own).Url(path);
      if (server == 'l') url.setHost(u"localhost"_s);
      return url;
    };
    for (qsizetype step = 0; step < route.size(); ++step) {
      RudeServer& server = route.at(step) == 'b' ? second : route.at(step) == 'c' ? third : own;
      const bool isLast = step + 1 == route.size();
      const QByteArray head =
          isLast ? "HTTP/1.1 200 OK\r\n"_ba : "HTTP/1.1 302 Go\r\nLocation: " + urlOf(step + 1).toEncoded() + "\r\n";
      server.Set("/" + QByteArray::number(step), {head + "Content-Length: 2\r\n", "ok", RudeAnswer::Then::Keep});
    }
    own.Set("/warm", {"HTTP/1.1 200 OK\r\nContent-Length: 2\r\n", "ok", RudeAnswer::Then::Keep});
    UrlNetwork network({}, std::make_shared<PlayedRules>());
    UrlReader reader(network);
    const QSignalSpy done(&reader, &UrlReader::Done);
    const QSignalSpy failed(&reader, &UrlReader::Failed);
    // An idle connection to the private server is no way in either.
    reader.Start(u"warm"_s, own.Url(u"/warm"_s));
    QTRY_COMPARE_WITH_TIMEOUT(done.size(), 1, kPatienceMs);
    const int asked = own.requests;
    const int connections = own.connections;
    reader.Start(u"k"_s, urlOf(0));
    QTRY_COMPARE_WITH_TIMEOUT(done.size() + failed.size(), 2, kPatienceMs);
    QCOMPARE(failed.isEmpty(), isReached);
    if (isReached) return;
    // Only what came before the public server has asked it, and nobody has knocked.
    const qsizetype allowed = route.startsWith('a') ? 1 : 0;
    QCOMPARE(own.requests - asked, allowed);
    QCOMPARE(own.connections, connections);
  }
};

OMNI_TEST(TestUrlRedirects)
#include "test_url_redirects.moc"
