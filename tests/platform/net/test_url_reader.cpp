// SPDX-License-Identifier: GPL-3.0-or-later
#include <QSignalSpy>
#include <QTest>

#include "platform/net/url_reader.h"
#include "rude_server.h"
#include "test_suite.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using Then = RudeAnswer::Then;

namespace {

constexpr int kPatienceMs = 10'000;

// 3,000,000 zeros in 2,933 bytes of gzip,.
QByteArray GzipOfZeros(qsizetype count) {
  const QByteArray zlib = qCompress(QByteArray(count, '\0'), 9).sliced(4);
  // Deflate data without the wrapping of zlib; the trailer's checksum is that of zeros.
  quint32 crc = 0xFFFFFFFF;
  for (qsizetype i = 0; i < count; ++i)
    for (int bit = 0; bit < 8; ++bit) crc = (crc >> 1) ^ ((crc & 1) != 0 ? 0xEDB88320 : 0);
  QByteArray gzip("\x1F\x8B\x08\0\0\0\0\0\0\x03", 10);
  gzip += zlib.sliced(2, zlib.size() - 6);
  for (const quint32 word : {~crc, static_cast<quint32>(count)})
    for (int shift = 0; shift < 32; shift += 8) gzip += static_cast<char>(word >> shift);
  return gzip;
}

// What a reader said, in order, one text an answer.
class Listener : public QObject {
 public:
  explicit Listener(UrlReader& reader) {
    connect(&reader, &UrlReader::Done, this, [this](const QString& key, const QByteArray& body) {
      bodies[key] = body;
      said += key + u" done"_s;
    });
    connect(&reader, &UrlReader::Failed, this, [this](const QString& key) { said += key + u" failed"_s; });
  }
  QStringList said;
  QHash<QString, QByteArray> bodies;
};

}  // namespace

class TestUrlReader : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void Answers_data() {
    QTest::addColumn<RudeAnswer>("answer");
    QTest::addColumn<bool>("done");
    QTest::addColumn<qsizetype>("size");
    const QByteArray ok = "HTTP/1.1 200 OK\r\n";
    const QByteArray gzip = ok + "Content-Encoding: gzip\r\n";
    const QByteArray chunked = ok + "Transfer-Encoding: chunked\r\n";
    const auto row = [](const char* name, const RudeAnswer& answer, bool done, qsizetype size) {
      QTest::newRow(name) << answer << done << size;
    };
    row("with length", {ok + "Content-Length: 5\r\n", "abcde"}, true, 5);
    row("without length", {ok, "abcde"}, true, 5);
    row("empty", {ok + "Content-Length: 0\r\n", ""}, true, 0);
    row("not found", {"HTTP/1.1 404 Not Found\r\nContent-Length: 9\r\n", "404 html!"}, true, 9);
    row("sign-in wanted", {"HTTP/1.1 401 No\r\nWWW-Authenticate: Basic realm=x\r\nContent-Length: 2\r\n", "no"}, true,
        2);
    row("bad request", {"HTTP/1.1 400 Bad\r\nContent-Length: 3\r\n", "bad"}, true, 3);
    row("server broken", {"HTTP/1.1 500 Broken\r\n", "oops"}, true, 4);
    row("busy", {"HTTP/1.1 503 Busy\r\nContent-Length: 4\r\n", "busy"}, true, 4);
    row("teapot", {"HTTP/1.1 418 Teapot\r\nContent-Length: 3\r\n", "tea"}, true, 3);
    row("redirect to nowhere told", {"HTTP/1.1 302 Found\r\nContent-Length: 4\r\n", "here"}, true, 4);
    row("short body", {ok + "Content-Length: 500\r\n", "abcde"}, false, 0);
    row("short error page", {"HTTP/1.1 404 Not Found\r\nContent-Length: 500\r\n", "abcde"}, false, 0);
    row("chunks cut off", {chunked, "5\r\nabcde\r\n"}, false, 0);
    row("packed", {gzip, GzipOfZeros(30'000)}, true, 30'000);
    row("packed garbage", {gzip, "this is not gzip at all"}, false, 0);
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
  void Answers() {
    QFETCH(RudeAnswer, answer);
    QFETCH(bool, done);
    QFETCH(qsizetype, size);
    RudeServer server;
    server.Set("/x", answer);
    UrlNetwork network({.stall = 300ms, .deadline = 900ms, .maxBody = 100'000});
    UrlReader reader(network);
    const Listener heard(reader);
    QElapsedTimer took;
    took.start();
    reader.Start(u"7"_s, server.Url(u"/x"_s));
    QVERIFY(reader.IsPending(u"7"_s) && heard.said.isEmpty());
    QTRY_VERIFY_WITH_TIMEOUT(!heard.said.isEmpty(), kPatienceMs);
    QCOMPARE(heard.said, QStringList{done ? u"7 done"_s : u"7 failed"_s});
    QVERIFY(!reader.IsPending(u"7"_s));
    QCOMPARE(heard.bodies.value(u"7"_s).size(), size);
    // The declared size is enough; nobody waits for the rest.
    if (answer.head.contains("100001")) QVERIFY(took.elapsed() < 300);
    if (answer.then == Then::Drip) QVERIFY(took.elapsed() >= 890);
    QTRY_COMPARE_WITH_TIMEOUT(server.open, 0, kPatienceMs);
  }

  void RefusesAddresses_data() {
    QTest::addColumn<QUrl>("url");
    for (const char* url : {"", "image1", "file:///etc/hostname", "ftp://127.0.0.1/x", "data:,x", "http:///x", "qrc:/x",
                            "http://127.0.0.1:1/refused", "https://127.0.0.1:1/refused"})
      QTest::newRow(url) << QUrl(QString::fromLatin1(url));
  }
  void RefusesAddresses() {
    QFETCH(QUrl, url);
    UrlNetwork network;
    UrlReader reader(network);
    const Listener heard(reader);
    reader.Start(u"k"_s, url);
    QVERIFY(heard.said.isEmpty());
    QTRY_COMPARE_WITH_TIMEOUT(heard.said, QStringList{u"k failed"_s}, kPatienceMs);
  }

  void Redirects_data() {
    QTest::addColumn<QByteArray>("first");
    QTest::addColumn<bool>("done");
    QTest::newRow("ten") << "/hop10"_ba << true;
    QTest::newRow("eleven") << "/hop11"_ba << false;
    QTest::newRow("loop") << "/loop"_ba << false;
    QTest::newRow("relative") << "/relative"_ba << true;
    for (const char* path : {"/file", "/ftp", "/data", "/qrc", "/nonsense"})
      QTest::newRow(path) << QByteArray(path) << false;
  }
  void Redirects() {
    QFETCH(QByteArray, first);
    QFETCH(bool, done);
    RudeServer server;
    const auto redirect = [&server](const QByteArray& from, const QByteArray& to, const QByteArray& status = "302") {
      const QByteArray head = "HTTP/1.1 " + status + " Go\r\nLocation: " + to + "\r\nContent-Length: 3\r\n";
      server.Set(from, {head, "go!"});
    };
    server.Set("/hop0", {"HTTP/1.1 200 OK\r\nContent-Length: 2\r\n", "ok"});
    const QList<QByteArray> statuses{"301", "302", "303", "307", "308"};
    for (int i = 1; i <= 11; ++i)
      redirect("/hop" + QByteArray::number(i), server.Url(u"/hop%1"_s.arg(i - 1)).toEncoded(), statuses[i % 5]);
    redirect("/loop", "/loop");
    redirect("/relative", "hop3?x");
    redirect("/hop3?x", "//127.0.0.1:" + QByteArray::number(server.serverPort()) + "/hop0");
    redirect("/file", "file:///etc/hostname");
    redirect("/ftp", "ftp://127.0.0.1/x");
    redirect("/data", "data:text/plain,x");
    redirect("/qrc", "qrc:/x");
    redirect("/nonsense", "http://[::");
    UrlNetwork network({.stall = 5s, .deadline = 10s});
    UrlReader reader(network);
    const Listener heard(reader);
    reader.Start(u"k"_s, server.Url(QString::fromLatin1(first)));
    QTRY_COMPARE_WITH_TIMEOUT(heard.said, QStringList{done ? u"k done"_s : u"k failed"_s}, kPatienceMs);
    QCOMPARE(heard.bodies.value(u"k"_s), done ? "ok"_ba : QByteArray());
    QVERIFY(server.requests <= 11);
  }

  void OneAnswerForAKeyStartedAgain() {
    RudeServer server;
    server.Set("/slow", {{}, {}, Then::Stall});
    server.Set("/old", {"HTTP/1.1 200 OK\r\n", "old"});
    server.Set("/new", {"HTTP/1.1 200 OK\r\n", "new"});
    UrlNetwork network;
    UrlReader reader(network);
    UrlReader other(network);
    Listener heard(reader);
    const Listener heardByOther(other);
    other.Start(u"1"_s, server.Url(u"/old"_s));
    reader.Start(u"1"_s, server.Url(u"/slow"_s));
    reader.Start(u"1"_s, server.Url(u"/old"_s));
    reader.Start(u"1"_s, server.Url(u"/new"_s));
    reader.Start(u"2"_s, server.Url(u"/old"_s));
    reader.Cancel(u"2"_s);
    reader.Cancel(u"never begun"_s);
    QVERIFY(!reader.IsPending(u"2"_s));
    QTRY_VERIFY_WITH_TIMEOUT(!heard.said.isEmpty() && !heardByOther.said.isEmpty(), kPatienceMs);
    // A key may be started again from its own answer; an answer that has arrived but not been raised dies with Cancel.
    heard.said.clear();
    reader.Start(u"3"_s, server.Url(u"/old"_s));
    const auto again = connect(&reader, &UrlReader::Done, &reader, [&](const QString& key) {
      if (key == u"3"_s && heard.said.size() == 1) reader.Start(u"3"_s, server.Url(u"/new"_s));
    });
    QTRY_COMPARE_WITH_TIMEOUT(heard.said, (QStringList{u"3 done"_s, u"3 done"_s}), kPatienceMs);
    QCOMPARE(heard.bodies.value(u"1"_s), "new"_ba);
    QCOMPARE(heard.bodies.value(u"3"_s), "new"_ba);
    QVERIFY(!heard.bodies.contains(u"2"_s));
    QCOMPARE(heardByOther.bodies.value(u"1"_s), "old"_ba);
    disconnect(again);
  }

  void AReaderMayGoWhileItReads() {
    RudeServer server;
    server.Set("/slow", {{}, {}, Then::Stall});
    server.Set("/x", {"HTTP/1.1 200 OK\r\n", "x"});
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
    UrlReader reader(network);
    const Listener heard(reader);
    for (int i = 0; i < 3; ++i) {
      reader.Start(u"x"_s, server.Url(u"/x"_s));
      QTRY_COMPARE_WITH_TIMEOUT(heard.said.size(), i + 1, kPatienceMs);
    }
    QCOMPARE(server.requests, 3);
    const QByteArray request = server.lastRequest.toLower();
    QVERIFY(request.contains("user-agent: omni-perch/6.50\r\n") && request.contains("cache-control: no-cache\r\n"));
    QVERIFY(!request.contains("cookie") && !request.contains("if-none-match"));

    // Twelve reads of a silent host: six at a time, and the others have not begun to stall. Other hosts do not wait.
    for (int i = 0; i < 12; ++i) reader.Start(QString::number(i), server.Url(u"/slow"_s));
    reader.Start(u"last"_s, server.Url(u"/x"_s));
    RudeServer elsewhere(u"127.0.0.2"_s);
    elsewhere.Set("/x", {"HTTP/1.1 200 OK\r\n", "x"});
    reader.Start(u"elsewhere"_s, elsewhere.Url(u"/x"_s));
    QTRY_VERIFY_WITH_TIMEOUT(heard.said.contains(u"elsewhere done"_s), kPatienceMs);
    QCOMPARE(heard.said.size(), 4);
    QTRY_COMPARE_WITH_TIMEOUT(server.requests, 3 + 6, kPatienceMs);
    QTRY_VERIFY_WITH_TIMEOUT(heard.said.contains(u"last done"_s), kPatienceMs);
    QCOMPARE(server.requests, 3 + 12 + 1);
  }

  void TellsProgress() {
    RudeServer server;
    const QByteArray body(3'000'000, 'x');
    server.Set("/told", {"HTTP/1.1 200 OK\r\nContent-Length: 3000000\r\n", body});
    server.Set("/untold", {"HTTP/1.1 200 OK\r\n", body});
    UrlNetwork network;
    UrlReader reader(network);
    const Listener heard(reader);
    QHash<QString, QList<QPair<qint64, qint64>>> told;
    connect(&reader, &UrlReader::Progress, this, [&](const QString& key, qint64 max, qint64 read) {
      QVERIFY(reader.IsPending(key));
      told[key] += {max, read};
    });
    for (const auto& [key, max] : {std::pair{u"told"_s, 3'000'000}, std::pair{u"untold"_s, 0}}) {
      QElapsedTimer took;
      took.start();
      reader.Start(key, server.Url(u'/' + key));
      QTRY_VERIFY_WITH_TIMEOUT(heard.said.contains(key + u" done"_s), kPatienceMs);
      QCOMPARE(told[key].last(), (QPair<qint64, qint64>(max, body.size())));
      QVERIFY(told[key].size() <= took.elapsed() / 30 + 2);
      for (const auto& [m, read] : told[key]) QCOMPARE(m, max);
    }
  }
};

OMNI_TEST(TestUrlReader)
#include "test_url_reader.moc"
