// SPDX-License-Identifier: GPL-3.0-or-later
// The texts that a lookup begins with, and the two menus of its window.

#include "browser/page_view.h"
#include "callbook/call_entry.h"
#include "callbook/place_page.h"
#include "test_suite.h"

class TestCallEntry : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void Cuts() {
    const auto check = [](const char* what, const QString& text, const QString& clipboard, const QString& field,
                          const QString& caption) {
      const TableRow row(what);
      const QString ofCaption = CallOfCaption(text, {u"NOCALL"_s, u"N0CALL"_s});
      QCOMPARE((QStringList{CallOfClipboard(text), CallOfField(text), ofCaption}),
               (QStringList{clipboard, field, caption}));
      QVERIFY(text.startsWith(CutAtFirstOther(text)));
    };
    const QString none;
    for (const QString& call : {u"ZZ9QX"_s, u"ZZØQX"_s, u"SWL"_s}) check("call", call, call, call, call);
    check("blanks around", u" zz0qx "_s, u"ZZØQX"_s, u" zz0qx "_s, none);
    check("name behind", u"ZZ9QX Robin"_s, u"ZZ9QX"_s, u"ZZ9QX Robin"_s, u"ZZ9QX"_s);
    check("portable", u"ZZ9QX/P"_s, u"ZZ9QX"_s, u"ZZ9QX/P"_s, u"ZZ9QX"_s);
    check("de", u"DE ZZ9QX"_s, u"ZZ9QX"_s, u"DE ZZ9QX"_s, none);
    check("prefix", u"VE3/ZZ9QX"_s, u"ZZ9QX"_s, u"VE3/ZZ9QX"_s, none);
    check("listener", u"swl"_s, u"SWL"_s, none, none);
    check("accent", u"ÉE9QX"_s, none, u"ÉE9QX"_s, u"ÉE9QX"_s);
    check("no digit", u"HELLO"_s, none, none, u"HELLO"_s);
    check("refused", u"noCall-1"_s, none, none, none);
    check("refused, as menus show it", u"NØCALL sender"_s, u"NØCALL"_s, u"NØCALL sender"_s, none);
    check("nothing", none, none, none, none);
    check("lines", u"73 de\r\nZZ9QX"_s, none, none, none);
  }

  void FindsSatelliteViews() {
    const auto check = [](const char* what, double lat, double lon, const QString& url) {
      const TableRow row(what);
      Hosts hosts;
      hosts.Maps = u"https://m"_s;
      const TargetLocation target{true, lat, lon, u"Name"_s, u" 1 Mill Lane "_s, u"Café? * /"_s, u"Nowhere"_s};
      QCOMPARE(SatelliteViewUrl(hosts, target, u"ZZ9QX"_s), url);
    };
    const QString address = u"https://m/maps/place/1+Mill+Lane,Caf%C3%A9%3F+%2A+%2F,Nowhere/@"_s;
    check("coordinates", -33.9, 151.25, u"https://m/maps/place/-33.9,151.25/@-33.9,151.25,19z/data=!3m1!1e3*ZZ9QX"_s);
    for (const int lat : {89, -89, 0}) {
      check("a map's end, half a place", lat, 12.0, address + u"%1,12,19z/data=!3m1!1e3*ZZ9QX"_s.arg(lat));
    }
    Hosts hosts;
    hosts.Maps = u"https://m"_s;
    const auto view = [&hosts](double lat, double lon, bool byAddress) {
      return PlaceViewUrl(hosts, {true, lat, lon, {}, u"1 Mill Lane"_s, {}, u"A*B"_s}, u"ZZ9QX"_s, byAddress);
    };
    QCOMPARE(view(51.5, 0, false), u"https://m/maps/place/51.5,0/@51.5,0,19z/data=!3m1!1e3*ZZ9QX"_s);
    QCOMPARE(view(89, 12, true), u"https://m/maps/place/1+Mill+Lane,,A%2AB/@89,12,19z/data=!3m1!1e3*ZZ9QX"_s);
    QVERIFY(view(0, 0, true).isEmpty() && view(89, 89, false).isEmpty());
    // An address has no "*" of its own; a title may.
    const PageViewPlace place = SplitPageViewUrl(view(51.5, 0, true) + u"*2"_s);
    QCOMPARE(place.title, u"ZZ9QX*2"_s);
    QCOMPARE(place.address.host(), u"m"_s);
  }
};

OMNI_TEST(TestCallEntry)
#include "test_call_entry.moc"
