// SPDX-License-Identifier: GPL-3.0-or-later
// The texts that a lookup begins with, and the two menus of its window.
#include <QTest>

#include "callbook/call_entry.h"
#include "callbook/place_page.h"
#include "test_suite.h"

using namespace Qt::StringLiterals;

class TestCallEntry : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void Cuts_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("clipboard");
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("caption");
    const QString none;
    QTest::newRow("a call") << u"ZZ9QX"_s << u"ZZ9QX"_s << u"ZZ9QX"_s << u"ZZ9QX"_s;
    QTest::newRow("blanks around") << u" zz0qx "_s << u"ZZØQX"_s << u" zz0qx "_s << none;
    QTest::newRow("slashed zero") << u"ZZØQX"_s << u"ZZØQX"_s << u"ZZØQX"_s << u"ZZØQX"_s;
    QTest::newRow("name behind") << u"ZZ9QX Robin"_s << u"ZZ9QX"_s << u"ZZ9QX Robin"_s << u"ZZ9QX"_s;
    QTest::newRow("portable") << u"ZZ9QX/P"_s << u"ZZ9QX"_s << u"ZZ9QX/P"_s << u"ZZ9QX"_s;
    QTest::newRow("de") << u"DE ZZ9QX"_s << u"ZZ9QX"_s << u"DE ZZ9QX"_s << none;
    QTest::newRow("prefix") << u"VE3/ZZ9QX"_s << u"ZZ9QX"_s << u"VE3/ZZ9QX"_s << none;
    QTest::newRow("listener") << u"swl"_s << u"SWL"_s << none << none;
    QTest::newRow("listener in capitals") << u"SWL"_s << u"SWL"_s << u"SWL"_s << u"SWL"_s;
    QTest::newRow("accent") << u"ÉE9QX"_s << none << u"ÉE9QX"_s << u"ÉE9QX"_s;
    QTest::newRow("no digit") << u"HELLO"_s << none << none << u"HELLO"_s;
    QTest::newRow("refused") << u"noCall-1"_s << none << none << none;
    QTest::newRow("refused, as menus show it") << u"NØCALL sender"_s << u"NØCALL"_s << u"NØCALL sender"_s << none;
    QTest::newRow("nothing") << none << none << none << none;
    QTest::newRow("lines") << u"73 de\r\nZZ9QX"_s << none << none << none;
  }

  void Cuts() {
    QFETCH(const QString, text);
    QTEST(CallOfClipboard(text), "clipboard");
    QTEST(CallOfField(text), "field");
    QTEST(CallOfCaption(text, {u"NOCALL"_s, u"N0CALL"_s}), "caption");
    QVERIFY(text.startsWith(CutAtFirstOther(text)));
  }

  void FindsSatelliteViews_data() {
    QTest::addColumn<double>("lat");
    QTest::addColumn<double>("lon");
    QTest::addColumn<QString>("url");
    const QString address = u"https://m/maps/place/1+Mill+Lane,Caf%C3%A9%3F+%2A+%2F,Nowhere/@"_s;
    QTest::newRow("coordinates") << -33.9 << 151.25
                                 << u"https://m/maps/place/-33.9,151.25/@-33.9,151.25,19z/data=!3m1!1e3*ZZ9QX"_s;
    QTest::newRow("the map's end") << 89.0 << 12.0 << address + u"89,12,19z/data=!3m1!1e3*ZZ9QX"_s;
    QTest::newRow("the map's other end") << -89.0 << 12.0 << address + u"-89,12,19z/data=!3m1!1e3*ZZ9QX"_s;
    QTest::newRow("half a place") << 0.0 << 12.0 << address + u"0,12,19z/data=!3m1!1e3*ZZ9QX"_s;
  }

  void FindsSatelliteViews() {
    QFETCH(const double, lat);
    QFETCH(const double, lon);
    Hosts hosts;
    hosts.Maps = u"https://m"_s;
    const TargetLocation target{true, lat, lon, u"Name"_s, u" 1 Mill Lane "_s, u"Café? * /"_s, u"Nowhere"_s};
    QTEST(SatelliteViewUrl(hosts, target, u"ZZ9QX"_s), "url");
  }
};

OMNI_TEST(TestCallEntry)
#include "test_call_entry.moc"
