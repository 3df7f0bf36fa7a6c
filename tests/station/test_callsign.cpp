// SPDX-License-Identifier: GPL-3.0-or-later
#include <QRandomGenerator>
#include <QTest>
#include <algorithm>

#include "station/callsign.h"
#include "test_suite.h"

using namespace Qt::StringLiterals;

class TestCallsign : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void Cleans_data();
  void Cleans();
  void CleansAnythingToACallOrNothing();
  void TellsBadCalls_data();
  void TellsBadCalls();
  void ShowsZeros();
};

void TestCallsign::Cleans_data() {
  QTest::addColumn<QString>("text");
  QTest::addColumn<QString>("call");
  QTest::addColumn<QString>("left");  // what stands in the argument afterwards
  const auto row = [](const QString& text, const QString& call, const QString& left) {
    QTest::addRow("%s", qPrintable(text)) << text << call << left;
  };
  row(u""_s, u""_s, u""_s);
  row(u"SWL"_s, u"SWL"_s, u"SWL"_s);
  row(u"swl"_s, u""_s, u""_s);
  row(u" SWL"_s, u""_s, u""_s);
  row(u" ZZ9QX "_s, u"ZZ9QX"_s, u"ZZ9QX"_s);
  row(u"zz9qx/p"_s, u"ZZ9QX"_s, u"ZZ9QX"_s);
  row(u"ZZ9QX JT65"_s, u"ZZ9QX"_s, u"ZZ9QX"_s);
  row(u"VE3/ZZ9QX"_s, u"ZZ9QX"_s, u"ZZ9QX"_s);
  row(u"EA8/ZZ9QX/P"_s, u"ZZ9QX"_s, u"ZZ9QX"_s);
  row(u"/ ZZ9QX"_s, u"ZZ9QX"_s, u"ZZ9QX"_s);
  row(u"ABCD/ZZ9QX"_s, u""_s, u"ABCD"_s);
  row(u"DE ZZ9QX"_s, u"ZZ9QX"_s, u"ZZ9QX"_s);
  row(u"ZZ9Q"_s, u"ZZ9Q"_s, u"ZZ9Q"_s);
  row(u"Z9Q"_s, u""_s, u""_s);
  row(u"ZZ9QXABC"_s, u""_s, u""_s);
  row(u"zzØqx"_s, u"ZZ0QX"_s, u"ZZ0QX"_s);
  row(u"zzøqx"_s, u"ZZ0QX"_s, u"ZZ0QX"_s);
  row(u"1234"_s, u"1234"_s, u"1234"_s);
  row(u"zzé9q"_s, u"ZZÉ9Q"_s, u"ZZÉ9Q"_s);
  row(u"ZZ9QЖ"_s, u"ZZ9Q"_s, u"ZZ9Q"_s);
  row(u"Ж/ZZ9QX"_s, u""_s, u""_s);
  row(u"ZZ²QX"_s, u""_s, u"ZZ²QX"_s);
}

void TestCallsign::Cleans() {
  QFETCH(QString, text);
  QFETCH(const QString, call);
  QFETCH(const QString, left);
  QCOMPARE(CleanCall(text), call);
  QCOMPARE(text, left);
}

void TestCallsign::CleansAnythingToACallOrNothing() {
  QRandomGenerator random(20240124);
  const QString alphabet = u"AZaz09/- *.ØéßŠЖ²\0\n\u2028µÿ"_s;
  int calls = 0;
  for (int run = 0; run < 10000; ++run) {
    QString text;
    for (int length = random.bounded(14); length > 0; --length) text += alphabet[random.bounded(alphabet.size())];
    const QString given = text;
    const QString call = CleanCall(text);
    if (call.isEmpty()) continue;
    ++calls;
    QVERIFY2(call.size() <= 7 && call == text, qPrintable(given));
    QVERIFY2(std::any_of(call.cbegin(), call.cend(), [](QChar c) { return c >= u'0' && c <= u'9'; }),
             qPrintable(given));
    QVERIFY2(std::all_of(call.cbegin(), call.cend(), [](QChar c) { return c.isLetterOrNumber() && c != u'Ø'; }),
             qPrintable(given));
    // Calls of three characters stay behind a prefix and die when they are cleaned again; longer ones are stable.
    QString again = call;
    if (call.size() > 3) QCOMPARE(CleanCall(again), call);
  }
  QVERIFY(calls > 500);
}

void TestCallsign::TellsBadCalls_data() {
  QTest::addColumn<QString>("call");
  QTest::addColumn<QStringList>("list");
  QTest::addColumn<bool>("bad");
  QTest::addColumn<QString>("left");
  const QStringList builtIn = BuiltInBadCalls();
  QTest::newRow("SWL") << u"SWL"_s << QStringList{u"SWL"_s} << false << u"SWL"_s;
  QTest::newRow("empty") << u""_s << builtIn << true << u""_s;
  QTest::newRow("in the list") << u" nocall "_s << builtIn << true << u"NOCALL"_s;
  QTest::newRow("row in mixed case") << u"CALLSIGN"_s << builtIn << true << u"CALLSIGN"_s;
  QTest::newRow("listed with mode") << u"MARS JT65"_s << builtIn << true << u"MARS JT65"_s;
  QTest::newRow("short") << u"ZZ9"_s << builtIn << true << u"ZZ9"_s;
  QTest::newRow("short, with mode") << u"ZZ9 JT65"_s << builtIn << false << u"ZZ9 JT65"_s;
  QTest::newRow("nine") << u"ABCD5FGHI JT65"_s << builtIn << false << u"ABCD5FGHI JT65"_s;
  QTest::newRow("ten") << u"ABCD5FGHIJ"_s << builtIn << true << u"ABCD5FGHIJ"_s;
  QTest::newRow("list emptied") << u"N0CALL"_s << QStringList() << false << u"N0CALL"_s;
}

void TestCallsign::TellsBadCalls() {
  QFETCH(QString, call);
  QFETCH(const QStringList, list);
  QFETCH(const QString, left);
  QTEST(IsBadCall(call, list), "bad");
  QCOMPARE(call, left);
}

void TestCallsign::ShowsZeros() {
  QCOMPARE(ShownCall(u"ZZ0Q0"_s, u'Ø'), u"ZZØQØ"_s);
  QCOMPARE(ZeroGlyphFor(u"2026-01-24 15:30"_s), QChar(u'0'));
  QCOMPARE(ZeroGlyphFor(u"2000/01/24"_s), QChar(u'Ø'));
  QCOMPARE(ZeroGlyphFor(u"1/24/2026 15:30"_s), QChar(u'Ø'));
  QCOMPARE(ZeroGlyphFor(u"24.01.2026"_s), QChar(u'Ø'));
  QCOMPARE(ZeroGlyphFor(QString()), QChar(u'Ø'));
}

OMNI_TEST(TestCallsign)
#include "test_callsign.moc"
