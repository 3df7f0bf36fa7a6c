// SPDX-License-Identifier: GPL-3.0-or-later
#include <sys/stat.h>

#include <QDir>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include "no_room.h"
#include "platform/net/cookie_store.h"
#include "platform/net/url_reader.h"
#include "rude_server.h"
#include "test_suite.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kPatienceMs = 10'000;

QNetworkCookie Cookie(const QByteArray& line) {
  return QNetworkCookie::parseCookies(line).value(0);
}

// name=value of all, in order of name.
QByteArray Pairs(const QList<QNetworkCookie>& cookies) {
  QByteArrayList pairs;
  for (const QNetworkCookie& cookie : cookies) pairs += cookie.toRawForm(QNetworkCookie::NameAndValueOnly);
  std::sort(pairs.begin(), pairs.end());
  return pairs.join(' ');
}

QByteArray CookieLineOf(const RudeServer& server) {
  for (const QByteArray& line : server.lastRequest.split('\n'))
    if (line.toLower().startsWith("cookie:")) return line.sliced(7).trimmed();
  return {};
}

QByteArray FileOf(const QTemporaryDir& folder) {
  QFile file(folder.filePath(u"cookies"_s));
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace

class TestCookieStore : public QObject {
  Q_OBJECT

  static void Read(UrlNetwork& network, const QUrl& url) {
    UrlReader reader(network);
    const QSignalSpy done(&reader, &UrlReader::Done);
    reader.Start(u"page"_s, url);
    QTRY_COMPARE_WITH_TIMEOUT(done.count(), 1, kPatienceMs);
  }

 private Q_SLOTS:
  void GoWhereTheyBelong_data() {
    QTest::addColumn<QString>("url");
    QTest::addColumn<QByteArray>("sent");
    const auto row = [](const char* url, const char* sent) {
      QTest::newRow(url) << QString::fromUtf8(url) << QByteArray(sent);
    };
    row("http://calls.example/", "host=1");
    row("https://calls.example/", "domain=1 host=1");
    row("https://www.calls.example/x", "domain=1");
    row("https://a.b.calls.example/", "domain=1");
    row("http://www.calls.example/x", "");
    row("https://othercalls.example/", "");
    row("https://example/", "");
    row("http://calls.example/db", "host=1 path=1");
    row("http://calls.example/db/ZZ1AA?p=1", "host=1 path=1");
    row("http://calls.example/dbx", "host=1");
    row("http://CALLS.example:8080/DB", "host=1");
    row("http://127.0.0.1/", "digits=1");
    row("http://27.0.0.1/", "");
    row("http://m\u00FCller.example/", "word=1");
  }
  void GoWhereTheyBelong() {
    QFETCH(QString, url);
    QFETCH(QByteArray, sent);
    const QTemporaryDir folder;
    {
      CookieStore store(folder.path());
      store.Add(Cookie("host=1"), u"Calls.example"_s);
      store.Add(Cookie("domain=1; secure; domain=.calls.example"), {});
      store.Add(Cookie("path=1; path=/db"), u"calls.example"_s);
      store.Add(Cookie("digits=1; domain=127.0.0.1"), {});
      store.Add(Cookie("below=1; domain=.0.0.1"), {});
      store.Add(Cookie("word=1"), u"xn--mller-kva.example"_s);
      QCOMPARE(Pairs(store.CookiesFor(QUrl(url))), sent);
    }
    const CookieStore after(folder.path());
    QCOMPARE(Pairs(after.CookiesFor(QUrl(url))), sent);
  }

  void LongestPathFirst() {
    CookieList list;
    for (const char* line : {"id=root", "id=deep; path=/db/call", "id=db; path=/db"}) list.Add(Cookie(line), u"h.x"_s);
    QCOMPARE(list.HeaderFor(QUrl(u"http://h.x/db/call/1"_s)), QByteArray("id=deep; id=db; id=root"));
  }

  void KeptAndDropped_data() {
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<bool>("kept");
    QTest::newRow("session") << QByteArray("a=1; domain=h.x") << true;
    QTest::newRow("later") << QByteArray("a=1; expires=Fri, 01-Jan-2100 00:00:00 GMT; HttpOnly; domain=h.x") << true;
    QTest::newRow("expired") << QByteArray("a=1; expires=Thu, 01-Jan-2015 00:00:00 GMT; domain=h.x") << false;
    QTest::newRow("no host") << QByteArray("a=1") << false;
    QTest::newRow("no name") << QByteArray("=1; domain=h.x") << false;
    QTest::newRow("words") << QByteArray("not a cookie at all") << false;
    QTest::newRow("nothing") << QByteArray() << false;
    QTest::newRow("NULs") << QByteArray("a=\0\1; domain=h.x", 17) << false;
    QTest::newRow("too long") << "a=" + QByteArray(8192, 'x') + "; domain=h.x" << false;
  }
  // One file with a sound line on both sides of each.
  void KeptAndDropped() {
    QFETCH(QByteArray, line);
    QFETCH(bool, kept);
    const QTemporaryDir folder;
    QFile file(folder.filePath(u"cookies"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("first=1; domain=h.x\r\n" + line + "\nlast=1; domain=h.x");
    file.close();
    CookieStore store(folder.path());
    QCOMPARE(Pairs(store.All()), QByteArray(kept ? "a=1 first=1 last=1" : "first=1 last=1"));
    store.Add(Cookie("new=1"), u"h.x"_s);
    QCOMPARE(Pairs(CookieStore(folder.path()).All()), QByteArray(kept ? "a=1 " : "") + "first=1 last=1 new=1");
  }

  void SaysWhatChanged() {
    const QTemporaryDir folder;
    CookieStore store(folder.path());
    const QSignalSpy changed(&store, &CookieStore::Changed);
    store.Add(Cookie("a=1"), u"h.x"_s);
    store.Add(Cookie("a=1"), u"h.x"_s);
    QCOMPARE(changed.count(), 1);
    store.Add(Cookie("a=2"), u"h.x"_s);
    QCOMPARE(Pairs(store.All()), QByteArray("a=2"));
    QCOMPARE(changed.count(), 2);
    store.Apply({{Cookie("b=1; domain=h.x")}, {Cookie("a=2; domain=h.x"), true}, {Cookie("c=1; domain=h.x")}});
    QCOMPARE(Pairs(store.All()), QByteArray("b=1 c=1"));
    QCOMPARE(changed.count(), 3);
    store.Remove(Cookie("none=1; domain=h.x"));
    QCOMPARE(changed.count(), 3);
  }

  void EndOfASignIn() {
    const QTemporaryDir folder;
    CookieStore store(folder.path());
    for (const char* line :
         {"a=1; domain=www.q.x", "b=1; domain=.q.x; secure; path=/login", "c=1; domain=ssl.q.x", "d=1; domain=q.x",
          "e=1; domain=.x.q.x", "f=1; domain=aq.x", "g=1; domain=www.r.x", "h=1; domain=ssl.r.x"})
      store.Add(Cookie(line), {});
    store.RemoveOf(QUrl(u"http://www.q.x/"_s));
    QCOMPARE(Pairs(store.All()), QByteArray("f=1 g=1 h=1"));
    store.RemoveOf(QUrl(u"https://www.r.x/login"_s));
    QCOMPARE(Pairs(CookieStore(folder.path()).All()), QByteArray("f=1 h=1"));
  }

  void AFloodCostsItsOwnSite() {
    CookieList list;
    list.Add(Cookie("signin=1"), u"calls.x"_s);
    for (int i = 0; i < 500; ++i) list.Add(Cookie("n" + QByteArray::number(i) + "=1"), u"flood.x"_s);
    QCOMPARE(list.All().size(), 200);
    QCOMPARE(Pairs(list.For(QUrl(u"http://calls.x/"_s))), QByteArray("signin=1"));
    QVERIFY(Pairs(list.For(QUrl(u"http://flood.x/"_s))).contains("n499=1"));
  }

  void ForTheUserAlone() {
    const QTemporaryDir folder;
    const QByteArray path = QFile::encodeName(folder.filePath(u"cookies"_s));
    struct stat info {};
    const mode_t usual = umask(0);
    CookieStore(folder.path()).Add(Cookie("a=1"), u"h.x"_s);
    const int found = stat(path.constData(), &info);
    umask(usual);
    QCOMPARE(found, 0);
    QCOMPARE(info.st_mode & 07777, mode_t(0600));
    // Out of a careless copy.
    chmod(path.constData(), 0666);
    QCOMPARE(Pairs(CookieStore(folder.path()).All()), QByteArray("a=1"));
    stat(path.constData(), &info);
    QCOMPARE(info.st_mode & 07777, mode_t(0600));
  }

  void WholeOrNotAtAll() {
    const QTemporaryDir folder;
    CookieStore store(folder.path());
    store.Add(Cookie("a=1"), u"h.x"_s);
    const QByteArray before = FileOf(folder);
    WithoutRoom([&store]() {
      store.Add(Cookie("b=" + QByteArray(2000, 'b')), u"h.x"_s);
      return 0;
    });
    QCOMPARE(FileOf(folder), before);
    QCOMPARE(store.All().size(), 2);
    store.Remove(Cookie("a=1; domain=h.x"));
    QCOMPARE(CookieStore(folder.path()).All().size(), 1);
  }

  void WhatCannotBeReadIsLeftAlone() {
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"cookies"_s);
    QVERIFY(QDir().mkdir(path));
    CookieStore store(folder.path());
    QVERIFY(QDir().rmdir(path));
    // It is there again, and nobody knows what was in it.
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("a=1; domain=h.x\n");
    file.close();
    store.Add(Cookie("b=1"), u"h.x"_s);
    QCOMPARE(Pairs(store.All()), QByteArray("b=1"));
    QCOMPARE(FileOf(folder), QByteArray("a=1; domain=h.x\n"));
  }

  void ReadsCarryThemPastNoHost() {
    const QTemporaryDir folder;
    CookieStore store(folder.path());
    RudeServer calls;
    RudeServer other(u"127.0.0.2"_s);
    calls.Set("/db/1", {"HTTP/1.1 200 OK\r\n", "x"});
    calls.Set("/db/2", {"HTTP/1.1 302 Found\r\nLocation: " + other.Url(u"/db/3"_s).toEncoded() + "\r\n", "x"});
    calls.Set("/home", {"HTTP/1.1 200 OK\r\n", "x"});
    other.Set("/db/3", {"HTTP/1.1 302 Found\r\nLocation: " + calls.Url(u"/home"_s).toEncoded() + "\r\n", "x"});
    other.Set("/db/4", {"HTTP/1.1 200 OK\r\n", "x"});
    store.Add(Cookie("id=1; path=/db"), u"127.0.0.1"_s);
    UrlNetwork network;
    Read(network, calls.Url(u"/db/1"_s));
    QCOMPARE(CookieLineOf(calls), QByteArray());
    network.SetCookies(store);
    store.Add(Cookie("tls=1; secure"), u"127.0.0.1"_s);
    Read(network, calls.Url(u"/db/1"_s));
    QCOMPARE(CookieLineOf(calls), QByteArray("id=1"));
    Read(network, other.Url(u"/db/4"_s));
    QCOMPARE(CookieLineOf(other), QByteArray());
    Read(network, calls.Url(u"/db/2"_s));
    QCOMPARE(other.requests, 2);
    QCOMPARE(CookieLineOf(other), QByteArray());
    QCOMPARE(CookieLineOf(calls), QByteArray());  // of /home
    store.Add(Cookie("second=1; path=/db/"), u"127.0.0.2"_s);
    Read(network, calls.Url(u"/db/2"_s));
    QCOMPARE(CookieLineOf(other), QByteArray("second=1"));
    store.RemoveOf(calls.Url({}));
    Read(network, calls.Url(u"/db/1"_s));
    QCOMPARE(CookieLineOf(calls), QByteArray());
  }

  void ServersRenewTheirOwn_data() {
    QTest::addColumn<QByteArray>("told");
    QTest::addColumn<QByteArray>("left");
    const auto row = [](const char* name, const char* told, const char* left) {
      QTest::newRow(name) << QByteArray(told) << QByteArray(left);
    };
    row("renewed", "id=2; path=/", "id=2 tls=1");
    row("at its own path", "id=2; path=/db", "id=1 id=2 tls=1");
    row("path of the page", "id=2", "id=1 id=2 tls=1");
    row("one more of a known host", "more=1", "id=1 more=1 tls=1");
    row("expired", "id=; path=/; expires=Thu, 01-Jan-1970 00:00:00 GMT", "tls=1");
    row("expired by age", "id=1; path=/; Max-Age=0", "tls=1");
    row("own host as domain", "id=2; path=/; domain=127.0.0.1", "id=2 tls=1");
    row("domain of others", "id=2; path=/; domain=h.x", "id=1 tls=1");
    row("part of the address", "id=2; path=/; domain=0.0.1", "id=1 tls=1");
    row("secure one touched in the open", "tls=2; path=/", "id=1 tls=1");
    row("secure one expired in the open", "tls=; path=/; Max-Age=0", "id=1 tls=1");
    row("secure one made in the open", "new=2; path=/; secure", "id=1 tls=1");
  }
  void ServersRenewTheirOwn() {
    QFETCH(QByteArray, told);
    QFETCH(QByteArray, left);
    const QTemporaryDir folder;
    CookieStore store(folder.path());
    RudeServer calls;
    RudeServer stranger(u"127.0.0.2"_s);
    calls.Set("/db/1", {"HTTP/1.1 302 Found\r\nLocation: /db/2\r\nSet-Cookie: " + told + "\r\n", ""});
    calls.Set("/db/2", {"HTTP/1.1 200 OK\r\n", "x"});
    stranger.Set("/db/1", {"HTTP/1.1 200 OK\r\nSet-Cookie: " + told + "\r\nSet-Cookie: second=2\r\n", "x"});
    store.Add(Cookie("id=1"), u"127.0.0.1"_s);
    store.Add(Cookie("tls=1; secure"), u"127.0.0.1"_s);
    UrlNetwork network;
    network.SetCookies(store);
    Read(network, stranger.Url(u"/db/1"_s));
    QCOMPARE(Pairs(store.All()), QByteArray("id=1 tls=1"));
    Read(network, calls.Url(u"/db/1"_s));
    QTRY_COMPARE_WITH_TIMEOUT(Pairs(store.All()), left, kPatienceMs);
    QCOMPARE(Pairs(CookieStore(folder.path()).All()), left);
    // The redirect's target had them at once.
    const QByteArrayList sent = CookieLineOf(calls).split(' ');
    QCOMPARE(sent.size() - (sent.first().isEmpty() ? 1 : 0), store.CookiesFor(calls.Url(u"/db/2"_s)).size());
  }

  void NoneComesBackAfterTheEnd() {
    CookieList list;
    list.Add(Cookie("id=1; domain=.q.x"), {});
    const QUrl url(u"https://www.q.x/"_s);
    QVERIFY(list.Renew(url, {Cookie("id=2; domain=q.x")}));
    QVERIFY(!list.Renew(url, {Cookie("id=2")}));  // the host itself has none
    QVERIFY(!list.Renew(QUrl(u"https://www.p.x/"_s), {Cookie("id=2; domain=x"), Cookie("id=2; domain=q.x")}));
    QCOMPARE(Pairs(list.All()), QByteArray("id=2"));
    list.RemoveOf(u"www.q.x"_s);
    QVERIFY(!list.Renew(url, {Cookie("id=3; domain=q.x")}));
    QVERIFY(list.All().isEmpty());
  }
};

OMNI_TEST(TestCookieStore)

#include "test_cookie_store.moc"
