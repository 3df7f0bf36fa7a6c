// SPDX-License-Identifier: GPL-3.0-or-later
#include "heard_reader.h"
#include "no_room.h"
#include "platform/net/cookie_store.h"
#include "rude_server.h"
#include "test_folder.h"

class TestCookieStore : public QObject {
  Q_OBJECT

  static QNetworkCookie Cookie(const QByteArray& line) { return QNetworkCookie::parseCookies(line).value(0); }
  // name=value of all, in order of name.
  static QByteArray Pairs(const QList<QNetworkCookie>& cookies) {
    QByteArrayList pairs;
    for (const QNetworkCookie& cookie : cookies) pairs += cookie.toRawForm(QNetworkCookie::NameAndValueOnly);
    std::sort(pairs.begin(), pairs.end());
    return pairs.join(' ');
  }
  static QByteArray CookieLineOf(const RudeServer& server) { return RudeServer::Field(server.lastRequest, "cookie"); }
  static void Read(UrlNetwork& network, const QUrl& url) {
    HeardReader reader(network);
    reader.Start(u"page"_s, url);
    QTRY_COMPARE_WITH_TIMEOUT(reader.said, QStringList{u"page done"_s}, kPatienceMs);
  }

 private Q_SLOTS:
  void GoWhereTheyBelong() {
    const TestFolder folder;
    CookieStore store(folder.path());
    store.Add(Cookie("host=1"), u"Calls.example"_s);
    store.Add(Cookie("domain=1; secure; domain=.calls.example"), {});
    store.Add(Cookie("path=1; path=/db"), u"calls.example"_s);
    store.Add(Cookie("digits=1; domain=127.0.0.1"), {});
    store.Add(Cookie("below=1; domain=.0.0.1"), {});
    store.Add(Cookie("word=1"), u"xn--mller-kva.example"_s);
    const CookieStore after(folder.path());
    const auto check = [&](const QByteArray& sent, const QStringList& urls) {
      for (const QString& url : urls) {
        QVERIFY2(Pairs(store.CookiesFor(QUrl(url))) == sent, qPrintable(url));
        QVERIFY2(Pairs(after.CookiesFor(QUrl(url))) == sent, qPrintable(url));
      }
    };
    check("host=1", {u"http://calls.example/"_s, u"http://calls.example/dbx"_s, u"http://CALLS.example:8080/DB"_s});
    check("domain=1 host=1", {u"https://calls.example/"_s});
    check("domain=1", {u"https://www.calls.example/x"_s, u"https://a.b.calls.example/"_s});
    check("host=1 path=1", {u"http://calls.example/db"_s, u"http://calls.example/db/ZZ1AA?p=1"_s});
    check("digits=1", {u"http://127.0.0.1/"_s});
    check("word=1", {u"http://m\u00FCller.example/"_s});
    check("", {u"http://www.calls.example/x"_s, u"https://othercalls.example/"_s, u"https://example/"_s,
               u"http://27.0.0.1/"_s});
  }

  void LinesKeptAndDropped() {
    const auto check = [](bool kept, const QByteArrayList& lines) {
      for (const QByteArray& line : lines) {
        const TestFolder folder;
        folder.Put(u"cookies"_s, "first=1; domain=h.x\r\n" + line + "\nlast=1; domain=h.x");
        CookieStore store(folder.path());
        const QByteArray left = QByteArray(kept ? "a=1 " : "") + "first=1 last=1";
        QVERIFY2(Pairs(store.All()) == left, line.constData());
        store.Add(Cookie("new=1"), u"h.x"_s);
        QVERIFY2(Pairs(CookieStore(folder.path()).All()) == left + " new=1", line.constData());
      }
    };
    check(true, {"a=1; domain=h.x", "a=1; expires=Fri, 01-Jan-2100 00:00:00 GMT; HttpOnly; domain=h.x"});
    check(false, {"a=1; expires=Thu, 01-Jan-2015 00:00:00 GMT; domain=h.x", "a=1", "=1; domain=h.x", "not a cookie", "",
                  QByteArray("a=\0\1; domain=h.x", 17), "a=" + QByteArray(8192, 'x') + "; domain=h.x"});
  }

  void SaysWhatChanged() {
    const TestFolder folder;
    CookieStore store(folder.path());
    const QSignalSpy changed(&store, &CookieStore::Changed);
    store.Add(Cookie("a=1"), u"h.x"_s);
    store.Add(Cookie("a=1"), u"h.x"_s);
    QCOMPARE(changed.count(), 1);
    store.Add(Cookie("a=2"), u"h.x"_s);
    QVERIFY(Pairs(store.All()) == "a=2" && changed.count() == 2);
    store.Apply({{Cookie("b=1; domain=h.x")}, {Cookie("a=2; domain=h.x"), true}, {Cookie("c=1; domain=h.x")}});
    store.Remove(Cookie("none=1; domain=h.x"));
    QVERIFY(Pairs(store.All()) == "b=1 c=1" && changed.count() == 3);
  }

  void EndOfASignIn() {
    const TestFolder folder;
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
    const TestFolder folder;
    const mode_t usual = umask(0);
    CookieStore(folder.path()).Add(Cookie("a=1"), u"h.x"_s);
    umask(usual);
    QCOMPARE(folder.Mode(u"cookies"_s), 0600);
    // A careless copy of the file is readable by others until the program reads it.
    QCOMPARE(chmod(QFile::encodeName(folder.filePath(u"cookies"_s)).constData(), 0666), 0);
    QCOMPARE(Pairs(CookieStore(folder.path()).All()), QByteArray("a=1"));
    QCOMPARE(folder.Mode(u"cookies"_s), 0600);
  }

  void WholeOrNotAtAll() {
    const TestFolder folder;
    CookieStore store(folder.path());
    store.Add(Cookie("a=1"), u"h.x"_s);
    const QByteArray before = folder.Bytes(u"cookies"_s);
    WithoutRoom([&store]() { return store.Add(Cookie("b=" + QByteArray(2000, 'b')), u"h.x"_s), 0; });
    QCOMPARE(folder.Bytes(u"cookies"_s), before);
    QCOMPARE(store.All().size(), 2);
    store.Remove(Cookie("a=1; domain=h.x"));
    QCOMPARE(CookieStore(folder.path()).All().size(), 1);
  }

  void WhatCannotBeReadIsLeftAlone() {
    const TestFolder folder;
    folder.PutFolder(u"cookies"_s);
    CookieStore store(folder.path());
    QVERIFY(QDir(folder.path()).rmdir(u"cookies"_s));
    // The file is there again, and the store does not know what was in it.
    folder.Put(u"cookies"_s, "a=1; domain=h.x\n");
    store.Add(Cookie("b=1"), u"h.x"_s);
    QCOMPARE(Pairs(store.All()), QByteArray("b=1"));
    QCOMPARE(folder.Bytes(u"cookies"_s), QByteArray("a=1; domain=h.x\n"));
  }

  void ReadsCarryThemPastNoHost() {
    const TestFolder folder;
    CookieStore store(folder.path());
    RudeServer calls;
    RudeServer other(u"127.0.0.2"_s);
    calls.SetOk("/db/1", "x");
    calls.SetRedirect("/db/2", other.Url(u"/db/3"_s).toEncoded());
    calls.SetOk("/home", "x");
    other.SetRedirect("/db/3", calls.Url(u"/home"_s).toEncoded());
    other.SetOk("/db/4", "x");
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
    QCOMPARE(CookieLineOf(other) + CookieLineOf(calls), QByteArray());  // the latter of /home
    store.Add(Cookie("second=1; path=/db/"), u"127.0.0.2"_s);
    Read(network, calls.Url(u"/db/2"_s));
    QCOMPARE(CookieLineOf(other), QByteArray("second=1"));
    store.RemoveOf(calls.Url({}));
    Read(network, calls.Url(u"/db/1"_s));
    QCOMPARE(CookieLineOf(calls), QByteArray());
  }

  void ServersRenewTheirOwn() {
    const auto check = [](const QByteArray& left, const QByteArrayList& lines) {
      for (const QByteArray& told : lines) {
        CookieList list;
        list.Add(Cookie("id=1"), u"127.0.0.1"_s);
        list.Add(Cookie("tls=1; secure"), u"127.0.0.1"_s);
        QVERIFY2(!list.Renew(QUrl(u"http://127.0.0.2/db/1"_s), {Cookie(told)}), told.constData());
        const bool changes = list.Renew(QUrl(u"http://127.0.0.1/db/1"_s), {Cookie(told)});
        QVERIFY2(changes == (left != "id=1 tls=1") && Pairs(list.All()) == left, told.constData());
      }
    };
    check("id=2 tls=1", {"id=2; path=/", "id=2; path=/; domain=127.0.0.1"});
    check("id=1 id=2 tls=1", {"id=2; path=/db", "id=2"});  // without a path: the page's
    check("id=1 more=1 tls=1", {"more=1"});
    check("tls=1", {"id=; path=/; expires=Thu, 01-Jan-1970 00:00:00 GMT", "id=1; path=/; Max-Age=0"});
    // Another host's domain, and secure cookies, which a page that was not read over TLS neither touches nor makes.
    check("id=1 tls=1", {"id=2; path=/; domain=h.x", "id=2; path=/; domain=0.0.1", "tls=2; path=/",
                         "tls=; path=/; Max-Age=0", "new=2; path=/; secure"});
  }

  // What a redirect's answer renews is sent to its target at once, and kept.
  void ReadsRenewThem() {
    const TestFolder folder;
    CookieStore store(folder.path());
    RudeServer calls;
    RudeServer stranger(u"127.0.0.2"_s);
    calls.SetRedirect("/db/1", "/db/2\r\nSet-Cookie: id=2; path=/\r\nSet-Cookie: more=1; path=/db");
    calls.SetOk("/db/2", "x");
    stranger.Set("/db/1", {"HTTP/1.1 200 OK\r\nSet-Cookie: id=3; path=/\r\nSet-Cookie: second=2\r\n", "x"});
    store.Add(Cookie("id=1"), u"127.0.0.1"_s);
    UrlNetwork network;
    network.SetCookies(store);
    Read(network, stranger.Url(u"/db/1"_s));
    QCOMPARE(Pairs(store.All()), QByteArray("id=1"));
    Read(network, calls.Url(u"/db/1"_s));
    QCOMPARE(CookieLineOf(calls), QByteArray("more=1; id=2"));
    QTRY_COMPARE_WITH_TIMEOUT(Pairs(CookieStore(folder.path()).All()), QByteArray("id=2 more=1"), kPatienceMs);
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
    QVERIFY(!list.Renew(url, {Cookie("id=3; domain=q.x")}) && list.All().isEmpty());
  }
};

OMNI_TEST(TestCookieStore)

#include "test_cookie_store.moc"
