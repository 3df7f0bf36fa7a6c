// SPDX-License-Identifier: GPL-3.0-or-later
// What is read of an HTTP answer without a network: heads, bodies, and the addresses that are nobody else's business.
#include <QTest>

#include "platform/net/address_rules.h"
#include "platform/net/http_body.h"
#include "test_suite.h"

using namespace Qt::StringLiterals;

namespace {

const QByteArray kHead = "HTTP/1.1 200 OK\r\n";

QByteArray Zlib(const QByteArray& text) {
  return qCompress(text, 9).sliced(4);
}

// The body, or "broken" or "more". Given in pieces of that many bytes, the connection's end behind them.
QByteArray BodyOf(const HttpHead& head, const QByteArray& bytes, qsizetype piece, bool isClosed) {
  HttpBody body(head);
  QByteArray out;
  for (qsizetype from = 0; from < bytes.size() && body.Now() == HttpBody::State::More; from += piece) {
    QByteArrayView input = QByteArrayView(bytes).sliced(from, std::min(piece, bytes.size() - from));
    while ((!input.isEmpty() || body.IsPending()) && body.Now() == HttpBody::State::More) {
      const qsizetype before = out.size();
      input = input.sliced(body.Step(input, out));
      if (out.size() - before > HttpBody::kStep) return "a step too large";
    }
  }
  if (isClosed) body.End();
  if (body.Now() == HttpBody::State::Whole) return out;
  return body.Now() == HttpBody::State::Broken ? "broken"_ba : "more"_ba;
}

}  // namespace

class TestHttpValues : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void Heads_data() {
    QTest::addColumn<QByteArray>("head");
    QTest::addColumn<QByteArray>("reading");  // status, keep-alive, length or chunked, location; empty for no head
    const auto row = [](const char* name, const QByteArray& head, const char* reading) {
      QTest::newRow(name) << head << QByteArray(reading);
    };
    row("plain", kHead + "Content-Length: 5\r\n\r\n", "200 keep 5 ");
    row("bare line ends", "HTTP/1.1 404 No\ncontent-LENGTH:7\n\n", "404 keep 7 ");
    row("old server", "HTTP/1.0 200 OK\r\n\r\n", "200 close -1 ");
    row("old server that keeps", "HTTP/1.0 200 OK\r\nConnection: keep-alive\r\n\r\n", "200 keep -1 ");
    row("closes", kHead + "Connection: Foo, Close\r\n\r\n", "200 close -1 ");
    row("chunks", kHead + "Transfer-Encoding: chunked\r\nContent-Length: 3\r\n\r\n", "200 keep chunked ");
    row("moved", "HTTP/1.1 302 Go\r\nLocation: /a\r\nLocation: /b\r\n\r\n", "302 keep -1 /a");
    row("nothing new", "HTTP/1.1 304 Same\r\nContent-Length: 90\r\n\r\n", "304 keep 0 ");
    row("length of words", kHead + "Content-Length: many\r\n\r\n", "200 keep -1 ");
    row("negative length", kHead + "Content-Length: -5\r\n\r\n", "200 keep -1 ");
    row("length twice", kHead + "Content-Length: 5\r\nContent-Length: 5\r\n\r\n", "200 keep 5 ");
    row("two lengths", kHead + "Content-Length: 5\r\nContent-Length: 6\r\n\r\n", "");
    row("a packing of the transfer", kHead + "Transfer-Encoding: gzip, chunked\r\n\r\n", "");
    row("lines that are none", kHead + ": x\r\nwords\r\n:\r\n\r\n", "200 keep -1 ");
    row("another protocol", "SSH-2.0-Server\r\n\r\n", "");
    row("no status", "HTTP/1.1 ok\r\n\r\n", "");
  }
  void Heads() {
    QFETCH(const QByteArray, head);
    QFETCH(const QByteArray, reading);
    for (qsizetype size = 0; size < head.size(); ++size) QCOMPARE(HeadLength(head.first(size)), 0);
    for (qsizetype from = 0; from < head.size(); ++from) QCOMPARE(HeadLength(head + "body\r\n\r\n", from), head.size());
    const std::optional<HttpHead> read = ParseHead(head);
    QCOMPARE(read.has_value(), !reading.isEmpty());
    if (!read) return;
    const QByteArray length = read->isChunked ? "chunked"_ba : QByteArray::number(read->length);
    QCOMPARE(
        QByteArray::number(read->status) + (read->isKeepAlive ? " keep " : " close ") + length + ' ' + read->location,
        reading);
  }

  void Bodies_data() {
    QTest::addColumn<QByteArray>("head");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QByteArray>("open");    // what it is while the connection is open
    QTest::addColumn<QByteArray>("closed");  // and when it has been closed
    const auto row = [](const char* name, const QByteArray& head, const QByteArray& bytes, const QByteArray& open,
                        const QByteArray& closed) { QTest::newRow(name) << kHead + head << bytes << open << closed; };
    const QByteArray chunked = "Transfer-Encoding: chunked\r\n";
    const QByteArray deflate = "Content-Encoding: deflate\r\n";
    const QByteArray text = QByteArray("abcdefgh").repeated(30'000);
    const QByteArray packed = Zlib(text);
    const QByteArray length = "Content-Length: " + QByteArray::number(packed.size()) + "\r\n";
    row("by length", "Content-Length: 3\r\n", "abcdef", "abc", "abc");
    row("cut off", "Content-Length: 4\r\n", "abc", "more", "broken");
    row("up to the end", "", "abc", "more", "abc");
    row("chunks", chunked, "1\r\na\r\n2;name=value\r\nbc\r\n0\r\n\r\n", "abc", "abc");
    row("chunks with a trailer", chunked, "A\n0123456789\n0\r\nX: y\r\n\r\nrest", "0123456789", "0123456789");
    row("chunks cut off", chunked, "5\r\nabcde\r\n", "more", "broken");
    row("chunk of no size", chunked, "\r\nabc", "broken", "broken");
    row("chunk of words", chunked, "xyz\r\nabc", "broken", "broken");
    row("chunk of a negative size", chunked, "-1\r\nabc", "broken", "broken");
    row("chunk beyond its size", chunked, "1\r\nabc\r\n", "broken", "broken");
    row("chunk beyond all sizes", chunked, "FFFFFFFFFFFFFFFFF\r\n", "broken", "broken");
    row("endless size", chunked, QByteArray(100'000, '0'), "broken", "broken");
    row("endless extension", chunked, "1;" + QByteArray(100'000, 'x'), "broken", "broken");
    row("endless trailer", chunked, "0\r\n" + QByteArray("X: y\r\n").repeated(20'000), "broken", "broken");
    row("packed", deflate + length, packed, text, text);
    row("packed without wrapping", deflate, packed.sliced(2, packed.size() - 6), "more", text);
    row("packed in chunks", deflate + chunked,
        QByteArray::number(packed.size(), 16) + "\r\n" + packed + "\r\n0\r\n\r\n", text, text);
    row("packed and cut off", deflate, packed.chopped(9), "more", "broken");
    row("packed nothing", deflate + "Content-Length: 0\r\n", "", "", "");
    row("packed garbage", deflate, "not packed at all", "broken", "broken");
  }
  // The same whole and byte by byte.
  void Bodies() {
    QFETCH(const QByteArray, head);
    QFETCH(const QByteArray, bytes);
    QFETCH(const QByteArray, open);
    QFETCH(const QByteArray, closed);
    const std::optional<HttpHead> read = ParseHead(head + "\r\n");
    QVERIFY(read);
    const bool isBare = QByteArray(QTest::currentDataTag()).contains("without wrapping");
    for (const qsizetype piece : {bytes.size(), isBare ? qsizetype(2) : qsizetype(1)}) {
      QCOMPARE(BodyOf(*read, bytes, std::max<qsizetype>(piece, 1), false), open);
      QCOMPARE(BodyOf(*read, bytes, std::max<qsizetype>(piece, 1), true), closed);
    }
  }

  void PrivateAddresses_data() {
    QTest::addColumn<bool>("isPrivate");
    for (const char* address : {"127.0.0.1",
                                "127.255.0.9",
                                "10.1.2.3",
                                "172.16.0.1",
                                "172.31.255.255",
                                "192.168.1.1",
                                "169.254.169.254",
                                "100.64.0.1",
                                "100.127.255.255",
                                "0.0.0.0",
                                "224.0.0.1",
                                "255.255.255.255",
                                "::1",
                                "::",
                                "fe80::1",
                                "fec0::1",
                                "fc00::1",
                                "fd12:3456::1",
                                "ff02::1",
                                "::ffff:127.0.0.1",
                                "::ffff:192.168.0.1",
                                "::10.0.0.1",
                                "64:ff9b::10.0.0.1",
                                "64:ff9b:1::1",
                                "2002:c0a8:0101::1",
                                "2001::1",
                                "no address"})
      QTest::newRow(address) << true;
    for (const char* address :
         {"1.1.1.1", "9.255.255.255", "11.0.0.1", "100.63.255.255", "100.128.0.1", "126.0.0.1", "128.0.0.1",
          "172.15.0.1", "172.32.0.1", "192.167.0.1", "169.253.0.1", "223.0.0.1", "2a00::1", "2606:4700::1111",
          "::ffff:8.8.8.8", "64:ff9b::8.8.8.8", "2002:0808:0808::1"})
      QTest::newRow(address) << false;
  }
  void PrivateAddresses() {
    QFETCH(const bool, isPrivate);
    QCOMPARE(AddressRules().IsPrivate(QHostAddress(QString::fromLatin1(QTest::currentDataTag()))), isPrivate);
  }
};

OMNI_TEST(TestHttpValues)
#include "test_http_values.moc"
