// SPDX-License-Identifier: GPL-3.0-or-later
#include <zlib.h>

#include "heard_reader.h"
#include "rude_server.h"

using Then = RudeAnswer::Then;

namespace {

// 3,000,000 zeros take 2,933 bytes.
QByteArray GzipOfZeros(qsizetype count) {
  const QByteArray zeros(count, '\0');
  const QByteArray zlib = qCompress(zeros, 9).sliced(4);
  const auto crc = static_cast<quint32>(
      crc32(0, reinterpret_cast<const Bytef*>(zeros.constData()), static_cast<uInt>(zeros.size())));
  // Deflate data without the wrapping of zlib, between the head and the trailer of gzip.
  QByteArray gzip = QByteArray("\x1F\x8B\x08\0\0\0\0\0\0\x03", 10) + zlib.sliced(2, zlib.size() - 6);
  for (const quint32 word : {crc, static_cast<quint32>(count)}) {
    for (int shift = 0; shift < 32; shift += 8) gzip += static_cast<char>(word >> shift);
  }
  return gzip;
}

// On loopback: the second and third address play public servers.
class PlayedRules : public AddressRules {
 public:
  bool IsPrivate(const QHostAddress& address) const override {
    return address != QHostAddress(u"127.0.0.2"_s) && address != QHostAddress(u"127.0.0.3"_s);
  }
};

}  // namespace

class TestUrlReader : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void Answers() {
    const auto row = [](const char* what, const RudeAnswer& answer, bool done, qsizetype size) {
      const TableRow named(what);
      RudeServer server;
      server.Set("/x", answer);
      UrlNetwork network({.stall = 300ms, .deadline = 900ms, .maxBody = 100'000});
      HeardReader reader(network);
      QElapsedTimer took;
      took.start();
      reader.Start(u"7"_s, server.Url(u"/x"_s));
      QVERIFY(reader.IsPending(u"7"_s) && reader.said.isEmpty());
      QTRY_COMPARE_WITH_TIMEOUT(reader.said, QStringList{done ? u"7 done"_s : u"7 failed"_s}, kPatienceMs);
      QVERIFY(!reader.IsPending(u"7"_s));
      QCOMPARE(reader.bodies.value(u"7"_s).size(), size);
      // The declared size is enough; nobody waits for the rest.
      if (answer.head.contains("100001")) QVERIFY(took.elapsed() < 300);
      if (answer.then == Then::Drip) QVERIFY(took.elapsed() >= 890);
      QTRY_COMPARE_WITH_TIMEOUT(server.open, 0, kPatienceMs);
    };
    const QByteArray ok = "HTTP/1.1 200 OK\r\n";
    const QByteArray gzip = ok + "Content-Encoding: gzip\r\n";
    row("with length", {ok + "Content-Length: 5\r\n", "abcde"}, true, 5);
    row("without length", {ok, "abcde"}, true, 5);
    row("empty", {ok + "Content-Length: 0\r\n", ""}, true, 0);
    for (const char* status : {"400 Bad", "404 Not Found", "418 Teapot", "500 Broken", "503 Busy"}) {
      row(status, {QByteArray("HTTP/1.1 ") + status + "\r\nContent-Length: 9\r\n", "404 html!"}, true, 9);
    }
    row("sign-in wanted", {"HTTP/1.1 401 No\r\nWWW-Authenticate: Basic realm=x\r\n", "no"}, true, 2);
    row("redirect to nowhere told", {"HTTP/1.1 302 Found\r\nContent-Length: 4\r\n", "here"}, true, 4);
    row("short body", {ok + "Content-Length: 500\r\n", "abcde"}, false, 0);
    row("short error page", {"HTTP/1.1 404 Not Found\r\nContent-Length: 500\r\n", "abcde"}, false, 0);
    row("packed", {gzip, GzipOfZeros(30'000)}, true, 30'000);
    row("not http", {"hello\r\n", "world"}, false, 0);
    row("reset at once", {{}, {}, Then::Reset}, false, 0);
    row("closed at once", {{}, {}, Then::Close}, false, 0);
    row("reset in the body", {ok + "Content-Length: 500\r\n", "abcde", Then::Reset}, false, 0);
    row("silent", {{}, {}, Then::Stall}, false, 0);
    row("stalls in the body", {ok + "Content-Length: 500\r\n", "abcde", Then::Stall}, false, 0);
    row("drips past the deadline", {ok + "Content-Length: 5000\r\n", "", Then::Drip}, false, 0);
    row("as large as may be", {ok, QByteArray(100'000, 'x')}, true, 100'000);
    row("too large", {ok, QByteArray(100'001, 'x')}, false, 0);
    row("says it is too large", {ok + "Content-Length: 100001\r\n", "abcde", Then::Stall}, false, 0);
    row("endless", {ok, "x", Then::Endless}, false, 0);
    row("bomb", {gzip, GzipOfZeros(3'000'000)}, false, 0);
  }

  void RefusesAddresses() {
    UrlNetwork network;
    HeardReader reader(network);
    for (const QString& url : {QString(), u"image1"_s, u"file:///etc/hostname"_s, u"ftp://127.0.0.1/x"_s, u"data:,x"_s,
                               u"http:///x"_s, u"qrc:/x"_s, u"http://127.0.0.1:1/x"_s, u"https://127.0.0.1:1/x"_s}) {
      reader.Start(url, QUrl(url));
      QVERIFY(reader.said.isEmpty());
      QTRY_COMPARE_WITH_TIMEOUT(reader.said, QStringList{url + u" failed"_s}, kPatienceMs);
      reader.said.clear();
    }
  }

  // Ten steps are followed, an eleventh and a circle are not.
  void Redirects() {
    RudeServer server;
    server.SetOk("/hop0", "ok");
    const QList<QByteArray> statuses{"301", "302", "303", "307", "308"};
    for (int i = 1; i <= 10; ++i) {
      const QUrl next = server.Url(u"/hop%1"_s.arg(i - 1));
      server.SetRedirect("/hop" + QByteArray::number(i), next.toEncoded(), statuses[i % 5]);
    }
    server.SetRedirect("/side?x", "//127.0.0.1:" + QByteArray::number(server.serverPort()) + "/hop0");
    const auto check = [&server](bool done, const QByteArrayList& targets) {
      for (const QByteArray& target : targets) {
        const TableRow row(target.constData());
        server.SetRedirect("/start", target);
        server.requests = 0;
        UrlNetwork network({.stall = 5s, .deadline = 10s});
        HeardReader reader(network);
        reader.Start(u"k"_s, server.Url(u"/start"_s));
        QTRY_COMPARE_WITH_TIMEOUT(reader.said, QStringList{done ? u"k done"_s : u"k failed"_s}, kPatienceMs);
        QCOMPARE(reader.bodies.value(u"k"_s), done ? "ok"_ba : QByteArray());
        QVERIFY(server.requests <= 11);
      }
    };
    check(true, {"/hop9", "side?x"});
    check(false, {"/hop10", "/start", "file:///etc/hostname", "ftp://127.0.0.1/x", "data:text/plain,x", "qrc:/x",
                  "http://[::"});
  }

  // A stranger's redirect must not make the program ask servers of the user's own network.
  void RedirectsStayOutside() {
    // The servers of a route: a is private, b and c are public, l is a by its name.
    const auto check = [](const QByteArray& route, bool isReached) {
      const TableRow row(route.constData());
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
        const QByteArray head = "HTTP/1.1 302 Go\r\nContent-Length: 2\r\nLocation: " + urlOf(step + 1).toEncoded();
        serverOf(step).Set("/" + QByteArray::number(step), {head + "\r\n", "go", Then::Keep});
      }
      serverOf(route.size() - 1).SetOk("/" + QByteArray::number(route.size() - 1), "ok", Then::Keep);
      own.SetOk("/warm", "ok", Then::Keep);
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
    };
    for (const char* route : {"a", "b", "l", "bc", "aa", "al", "ab", "abc"}) check(route, true);
    for (const char* route : {"ba", "bl", "bca", "aba", "abla"}) check(route, false);
  }

  void OneAnswerForAKeyStartedAgain() {
    RudeServer server;
    server.Set("/slow", {{}, {}, Then::Stall});
    server.SetOk("/old", "old");
    server.SetOk("/new", "new");
    UrlNetwork network;
    HeardReader reader(network);
    HeardReader other(network);
    other.Start(u"1"_s, server.Url(u"/old"_s));
    reader.Start(u"1"_s, server.Url(u"/slow"_s));
    reader.Start(u"1"_s, server.Url(u"/old"_s));
    reader.Start(u"1"_s, server.Url(u"/new"_s));
    reader.Start(u"2"_s, server.Url(u"/old"_s));
    reader.Cancel(u"2"_s);
    reader.Cancel(u"never begun"_s);
    QVERIFY(!reader.IsPending(u"2"_s));
    QTRY_VERIFY_WITH_TIMEOUT(!reader.said.isEmpty() && !other.said.isEmpty(), kPatienceMs);
    // A key may be started again from its own answer; an answer that has arrived but not been raised dies with Cancel.
    reader.said.clear();
    reader.Start(u"3"_s, server.Url(u"/old"_s));
    connect(&reader, &UrlReader::Done, &reader, [&](const QString& key) {
      if (key == u"3"_s && reader.said.size() == 1) reader.Start(u"3"_s, server.Url(u"/new"_s));
    });
    QTRY_COMPARE_WITH_TIMEOUT(reader.said, (QStringList{u"3 done"_s, u"3 done"_s}), kPatienceMs);
    QCOMPARE(reader.bodies, (QHash<QString, QByteArray>{{u"1"_s, "new"}, {u"3"_s, "new"}}));
    QCOMPARE(other.bodies.value(u"1"_s), "old"_ba);
  }

  void AReaderMayGoWhileItReads() {
    RudeServer server;
    server.Set("/slow", {{}, {}, Then::Stall});
    server.SetOk("/x", "x");
    auto network = std::make_unique<UrlNetwork>();
    auto reader = std::make_unique<UrlReader>(*network);
    connect(reader.get(), &UrlReader::Done, this, [&reader]() { reader.reset(); });
    reader->Start(u"slow"_s, server.Url(u"/slow"_s));
    reader->Start(u"x"_s, server.Url(u"/x"_s));
    QTRY_VERIFY_WITH_TIMEOUT(!reader, kPatienceMs);
    QTRY_COMPARE_WITH_TIMEOUT(server.open, 0, kPatienceMs);
    UrlReader late(*network);
    late.Start(u"slow"_s, server.Url(u"/slow"_s));
    network.reset();
    late.Start(u"slow"_s, server.Url(u"/slow"_s));
    late.Cancel(u"slow"_s);
  }

  void IsKindToServersAndHonest() {
    RudeServer server;
    server.Set("/x", {"HTTP/1.1 200 OK\r\nSet-Cookie: a=b\r\nCache-Control: max-age=9999\r\nETag: \"1\"\r\n", "x"});
    server.Set("/slow", {{}, {}, Then::Stall});
    UrlNetwork network({.stall = 1s});
    HeardReader reader(network);
    for (int i = 0; i < 3; ++i) {
      reader.Start(u"x"_s, server.Url(u"/x"_s));
      QTRY_COMPARE_WITH_TIMEOUT(reader.said.size(), i + 1, kPatienceMs);
    }
    QCOMPARE(server.requests, 3);
    const QByteArray request = server.lastRequest.toLower();
    QVERIFY(request.contains("user-agent: omni-perch/6.50\r\n") && request.contains("cache-control: no-cache\r\n"));
    QVERIFY(!request.contains("cookie") && !request.contains("if-none-match"));

    // Twelve reads of a silent host: six at a time, and the others have not begun to stall. Other hosts do not wait.
    for (int i = 0; i < 12; ++i) reader.Start(QString::number(i), server.Url(u"/slow"_s));
    reader.Start(u"last"_s, server.Url(u"/x"_s));
    RudeServer elsewhere(u"127.0.0.2"_s);
    elsewhere.SetOk("/x", "x");
    reader.Start(u"elsewhere"_s, elsewhere.Url(u"/x"_s));
    QTRY_VERIFY_WITH_TIMEOUT(reader.said.contains(u"elsewhere done"_s), kPatienceMs);
    QCOMPARE(reader.said.size(), 4);
    QTRY_COMPARE_WITH_TIMEOUT(server.requests, 3 + 6, kPatienceMs);
    QTRY_VERIFY_WITH_TIMEOUT(reader.said.contains(u"last done"_s), kPatienceMs);
    QCOMPARE(server.requests, 3 + 12 + 1);
  }

  void TellsProgress() {
    RudeServer server;
    const QByteArray body(3'000'000, 'x');
    server.Set("/told", {"HTTP/1.1 200 OK\r\nContent-Length: 3000000\r\n", body});
    server.Set("/untold", {"HTTP/1.1 200 OK\r\n", body});
    UrlNetwork network;
    HeardReader reader(network);
    QHash<QString, QList<QPair<qint64, qint64>>> told;
    connect(&reader, &UrlReader::Progress, this, [&](const QString& key, qint64 max, qint64 read) {
      QVERIFY(reader.IsPending(key));
      told[key] += {max, read};
    });
    for (const auto& [key, max] : {std::pair{u"told"_s, 3'000'000}, std::pair{u"untold"_s, 0}}) {
      QElapsedTimer took;
      took.start();
      reader.Start(key, server.Url(u'/' + key));
      QTRY_VERIFY_WITH_TIMEOUT(reader.said.contains(key + u" done"_s), kPatienceMs);
      QCOMPARE(told[key].last(), (QPair<qint64, qint64>(max, body.size())));
      QVERIFY(told[key].size() <= took.elapsed() / 30 + 2);
      for (const auto& [m, read] : told[key]) QCOMPARE(m, max);
    }
  }
};

OMNI_TEST(TestUrlReader)
#include "test_url_reader.moc"
