// SPDX-License-Identifier: GPL-3.0-or-later
// The parts of reading an HTTP answer that need no network: heads, bodies, and which addresses are private.
#include "platform/net/address_rules.h"
#include "platform/net/first_part.h"
#include "platform/net/http_body.h"
#include "test_suite.h"

namespace {

const QByteArray kHead = "HTTP/1.1 200 OK\r\n";

// The first part of a stream that comes in pieces of that many bytes; "none" where its end is not reached.
QByteArray PartOf(const QByteArray& bytes, qsizetype piece, bool isClosed) {
  FirstPart part;
  for (qsizetype size = 0; size < bytes.size(); size += piece) {
    const QByteArrayView seen = QByteArrayView(bytes).first(std::min(size + piece, bytes.size()));
    if (part.IsWhole(seen)) return part.In(seen);
  }
  const QByteArray rest = isClosed ? part.AtEnd(bytes) : QByteArray();
  return rest.isEmpty() ? "none"_ba : rest;
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
  // The first part ends with its announced length, with the next delimiter, or with the connection.
  void FirstParts() {
    const auto check = [](const char* name, const QByteArray& stream, const QByteArray& part, bool isClosed = false) {
      const TableRow row(name);
      for (const qsizetype piece : {1, 2, 7, 100000}) QCOMPARE(PartOf(stream, piece, isClosed), part);
    };
    const QByteArray head = "--b\r\nContent-Type: image/jpeg\r\n";
    check("told length", head + "content-length: 4\r\n\r\nabcd", "abcd");
    check("no length", head + "\r\nab\r\n--\r\ncd\r\n--b\r\n", "ab\r\n--\r\ncd");
    check("bare line ends and a preamble", "hello\n\n--b c\nX: y\n\nab\n--b c--", "ab");
    check("a length that is too large", head + "Content-Length: 900\r\n\r\nabcd\r\n--b", "abcd");
    check("the connection ends", head + "\r\nabcd", "abcd", true);
    check("it ends too early", head + "Content-Length: 9\r\n\r\nabcd", "none", true);
    check("no end", head + "\r\n" + QByteArray("ab\n--").repeated(500), "none");
    check("no delimiter", QByteArray("GIF89a").repeated(500) + '\n', "none", true);
    check("an empty part", head + "\r\n--b\r\n", "");
  }

  // reading: status, keep-alive, length or chunked, location; empty for bytes that are no head.
  void Heads() {
    const auto check = [](const QByteArray& head, const QByteArray& reading) {
      for (qsizetype size = 0; size < head.size(); ++size) QCOMPARE(HeadLength(head.first(size)), 0);
      for (qsizetype from = 0; from < head.size(); ++from)
        QCOMPARE(HeadLength(head + "body\r\n\r\n", from), head.size());
      const std::optional<HttpHead> read = ParseHead(head);
      QCOMPARE(read.has_value(), !reading.isEmpty());
      if (!read) return;
      const QByteArray length = read->isChunked ? "chunked"_ba : QByteArray::number(read->length);
      const QByteArray keeps = read->isKeepAlive ? " keep " : " close ";
      QCOMPARE(QByteArray::number(read->status) + keeps + length + ' ' + read->location, reading);
    };
    check(kHead + "Content-Length: 5\r\n\r\n", "200 keep 5 ");
    check("HTTP/1.1 404 No\ncontent-LENGTH:7\n\n", "404 keep 7 ");
    check("HTTP/1.0 200 OK\r\n\r\n", "200 close -1 ");
    check("HTTP/1.0 200 OK\r\nConnection: keep-alive\r\n\r\n", "200 keep -1 ");
    check(kHead + "Connection: Foo, Close\r\n\r\n", "200 close -1 ");
    check(kHead + "Transfer-Encoding: chunked\r\nContent-Length: 3\r\n\r\n", "200 keep chunked ");
    check("HTTP/1.1 302 Go\r\nLocation: /a\r\nLocation: /b\r\n\r\n", "302 keep -1 /a");
    check("HTTP/1.1 304 Same\r\nContent-Length: 90\r\n\r\n", "304 keep 0 ");
    check(kHead + "Content-Length: many\r\n\r\n", "200 keep -1 ");
    check(kHead + "Content-Length: -5\r\n\r\n", "200 keep -1 ");
    check(kHead + "Content-Length: 5\r\nContent-Length: 5\r\n\r\n", "200 keep 5 ");
    check(kHead + ": x\r\nwords\r\n:\r\n\r\n", "200 keep -1 ");
    for (const QByteArray& none :
         {kHead + "Content-Length: 5\r\nContent-Length: 6\r\n\r\n", kHead + "Transfer-Encoding: gzip, chunked\r\n\r\n",
          "SSH-2.0-Server\r\n\r\n"_ba, "HTTP/1.1 ok\r\n\r\n"_ba})
      check(none, "");
  }

  // What a body is while the connection is open, and when it has been closed; the same whole and in the smallest
  // pieces.
  void Bodies() {
    const auto check = [](const QByteArray& head, const QByteArray& bytes, const QByteArray& open,
                          const QByteArray& closed, qsizetype smallest = 1) {
      const std::optional<HttpHead> read = ParseHead(kHead + head + "\r\n");
      QVERIFY(read);
      for (const qsizetype piece : {std::max(bytes.size(), smallest), smallest}) {
        QVERIFY2(BodyOf(*read, bytes, piece, false) == open, bytes.left(99).constData());
        QVERIFY2(BodyOf(*read, bytes, piece, true) == closed, bytes.left(99).constData());
      }
    };
    const QByteArray chunked = "Transfer-Encoding: chunked\r\n";
    const QByteArray deflate = "Content-Encoding: deflate\r\n";
    const QByteArray text = QByteArray("abcdefgh").repeated(30'000);
    const QByteArray packed = qCompress(text, 9).sliced(4);  // as zlib packs
    const QByteArray length = "Content-Length: " + QByteArray::number(packed.size()) + "\r\n";
    check("Content-Length: 3\r\n", "abcdef", "abc", "abc");
    check("Content-Length: 4\r\n", "abc", "more", "broken");
    check("", "abc", "more", "abc");
    check(chunked, "1\r\na\r\n2;name=value\r\nbc\r\n0\r\n\r\n", "abc", "abc");
    check(chunked, "A\n0123456789\n0\r\nX: y\r\n\r\nrest", "0123456789", "0123456789");
    check(chunked, "5\r\nabcde\r\n", "more", "broken");
    for (const QByteArray& broken :
         {"\r\nabc"_ba, "xyz\r\nabc"_ba, "-1\r\nabc"_ba, "1\r\nabc\r\n"_ba, "FFFFFFFFFFFFFFFFF\r\n"_ba,
          QByteArray(100'000, '0'), "1;" + QByteArray(100'000, 'x'), "0\r\n" + QByteArray("X: y\r\n").repeated(20'000)})
      check(chunked, broken, "broken", "broken");
    check(deflate + length, packed, text, text);
    check(deflate, packed.sliced(2, packed.size() - 6), "more", text, 2);
    check(deflate + chunked, QByteArray::number(packed.size(), 16) + "\r\n" + packed + "\r\n0\r\n\r\n", text, text);
    check(deflate, packed.chopped(9), "more", "broken");
    check(deflate + "Content-Length: 0\r\n", "", "", "");
    check(deflate, "not packed at all", "broken", "broken");
  }

  void PrivateAddresses() {
    const auto check = [](const QString& addresses, bool isPrivate) {
      for (const QString& address : addresses.split(u' ')) {
        QVERIFY2(AddressRules().IsPrivate(QHostAddress(address)) == isPrivate, qPrintable(address));
      }
    };
    check(u"127.0.0.1 127.255.0.9 10.1.2.3 172.16.0.1 172.31.255.255 192.168.1.1 169.254.169.254 100.64.0.1"_s, true);
    check(u"100.127.255.255 0.0.0.0 224.0.0.1 255.255.255.255 none ::1 :: fe80::1 fec0::1 fc00::1 fd12:3456::1"_s,
          true);
    check(u"ff02::1 ::ffff:127.0.0.1 ::ffff:192.168.0.1 ::10.0.0.1 64:ff9b::10.0.0.1 64:ff9b:1::1"_s, true);
    check(u"2002:c0a8:0101::1 2001::1"_s, true);
    check(u"1.1.1.1 9.255.255.255 11.0.0.1 100.63.255.255 100.128.0.1 126.0.0.1 128.0.0.1 172.15.0.1 172.32.0.1"_s,
          false);
    check(u"192.167.0.1 169.253.0.1 223.0.0.1 2a00::1 2606:4700::1111 ::ffff:8.8.8.8 64:ff9b::8.8.8.8"_s, false);
    check(u"2002:0808:0808::1"_s, false);
  }
};

OMNI_TEST(TestHttpValues)
#include "test_http_values.moc"
