// SPDX-License-Identifier: GPL-3.0-or-later
// A stranger's redirect must not make the program ask servers of the user's own network.
#include "heard_reader.h"
#include "rude_server.h"

namespace {

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
    QTest::addColumn<bool>("isReached");
    // The servers of a route: a is private, b and c are public, l is a by its name.
    for (const char* route : {"a", "b", "l", "bc", "aa", "al", "ab", "abc"}) QTest::newRow(route) << true;
    for (const char* route : {"ba", "bl", "bca", "aba", "abla"}) QTest::newRow(route) << false;
  }
  void StayOutside() {
    QFETCH(const bool, isReached);
    const QByteArray route = QTest::currentDataTag();
    RudeServer own;
    RudeServer second(u"127.0.0.2"_s);
    RudeServer third(u"127.0.0.3"_s);
    const auto serverOf = [&](qsizetype step) -> RudeServer& {
      return route.at(step) == 'b' ? second : route.at(step) == 'c' ? third : own;
    };
    const auto urlOf = [&](qsizetype step) {
      QUrl url = serverOf(step).Url(u"/%1"_s.arg(step));
      if (route.at(step) == 'l') url.setHost(u"localhost"_s);
      return url;
    };
    for (qsizetype step = 0; step + 1 < route.size(); ++step) {
      const QByteArray head =
          "HTTP/1.1 302 Go\r\nContent-Length: 2\r\nLocation: " + urlOf(step + 1).toEncoded() + "\r\n";
      serverOf(step).Set("/" + QByteArray::number(step), {head, "go", RudeAnswer::Then::Keep});
    }
    serverOf(route.size() - 1).SetOk("/" + QByteArray::number(route.size() - 1), "ok", RudeAnswer::Then::Keep);
    own.SetOk("/warm", "ok", RudeAnswer::Then::Keep);
    UrlNetwork network({}, std::make_shared<PlayedRules>());
    HeardReader reader(network);
    // An idle connection to the private server is no way in either.
    reader.Start(u"warm"_s, own.Url(u"/warm"_s));
    QTRY_COMPARE_WITH_TIMEOUT(reader.said, QStringList{u"warm done"_s}, kPatienceMs);
    const int asked = own.requests;
    const int connections = own.connections;
    reader.Start(u"k"_s, urlOf(0));
    QTRY_COMPARE_WITH_TIMEOUT(reader.said.size(), 2, kPatienceMs);
    QCOMPARE(reader.said.last(), isReached ? u"k done"_s : u"k failed"_s);
    if (isReached) return;
    // Only what came before the public server has asked the private one, and nobody has knocked.
    QCOMPARE(own.requests - asked, route.startsWith('a') ? 1 : 0);
    QCOMPARE(own.connections, connections);
  }
};

OMNI_TEST(TestUrlRedirects)
#include "test_url_redirects.moc"
