// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "station/callsign.h"
#include "test_suite.h"

using namespace Qt::StringLiterals;

class TestCallsign : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void Cleans() {
    const auto check = [](QString text, const QString& call, const QString& left) {
      const QString given = text;
      QVERIFY2(CleanCall(text) == call, qPrintable(given));
      QVERIFY2(text == left, qPrintable(given));
    };
    check(u""_s, u""_s, u""_s);
    check(u"SWL"_s, u"SWL"_s, u"SWL"_s);
    check(u"swl"_s, u""_s, u""_s);
    check(u" SWL"_s, u""_s, u""_s);
    check(u" ZZ9QX "_s, u"ZZ9QX"_s, u"ZZ9QX"_s);
    check(u"zz9qx/p"_s, u"ZZ9QX"_s, u"ZZ9QX"_s);
    check(u"ZZ9QX JT65"_s, u"ZZ9QX"_s, u"ZZ9QX"_s);
    check(u"VE3/ZZ9QX"_s, u"ZZ9QX"_s, u"ZZ9QX"_s);
    check(u"EA8/ZZ9QX/P"_s, u"ZZ9QX"_s, u"ZZ9QX"_s);
    check(u"/ ZZ9QX"_s, u"ZZ9QX"_s, u"ZZ9QX"_s);
    check(u"ABCD/ZZ9QX"_s, u""_s, u"ABCD"_s);
    check(u"DE ZZ9QX"_s, u"ZZ9QX"_s, u"ZZ9QX"_s);
    check(u"ZZ9Q"_s, u"ZZ9Q"_s, u"ZZ9Q"_s);
    check(u"Z9Q"_s, u""_s, u""_s);
    check(u"ZZ9QXABC"_s, u""_s, u""_s);
    check(u"zzØqx"_s, u"ZZ0QX"_s, u"ZZ0QX"_s);
    check(u"zzøqx"_s, u"ZZ0QX"_s, u"ZZ0QX"_s);
    check(u"1234"_s, u"1234"_s, u"1234"_s);
    check(u"zzé9q"_s, u"ZZÉ9Q"_s, u"ZZÉ9Q"_s);
    check(u"ZZ9QЖ"_s, u"ZZ9Q"_s, u"ZZ9Q"_s);
    check(u"Ж/ZZ9QX"_s, u""_s, u""_s);
    check(u"ZZ²QX"_s, u""_s, u"ZZ²QX"_s);
    // Calls of three characters stay behind a prefix.
    check(u"EA8/Z9Q"_s, u"Z9Q"_s, u"Z9Q"_s);
  }

  void TellsBadCalls() {
    const auto check = [](QString call, const QStringList& list, bool bad, const QString& left) {
      const QString given = call;
      QVERIFY2(IsBadCall(call, list) == bad, qPrintable(given));
      QCOMPARE(call, left);
    };
    const QStringList builtIn = BuiltInBadCalls();
    check(u"SWL"_s, {u"SWL"_s}, false, u"SWL"_s);
    check(u""_s, builtIn, true, u""_s);
    check(u" nocall "_s, builtIn, true, u"NOCALL"_s);
    check(u"CALLSIGN"_s, builtIn, true, u"CALLSIGN"_s);
    check(u"MARS JT65"_s, builtIn, true, u"MARS JT65"_s);
    check(u"ZZ9"_s, builtIn, true, u"ZZ9"_s);
    check(u"ZZ9 JT65"_s, builtIn, false, u"ZZ9 JT65"_s);
    check(u"ABCD5FGHI JT65"_s, builtIn, false, u"ABCD5FGHI JT65"_s);
    check(u"ABCD5FGHIJ"_s, builtIn, true, u"ABCD5FGHIJ"_s);
    check(u"N0CALL"_s, {}, false, u"N0CALL"_s);
  }

  void ShowsZeros() {
    QCOMPARE(ShownCall(u"ZZ0Q0"_s, u'Ø'), u"ZZØQØ"_s);
    QCOMPARE(ZeroGlyphFor(u"2026-01-24 15:30"_s), QChar(u'0'));
    QCOMPARE(ZeroGlyphFor(u"2000/01/24"_s), QChar(u'Ø'));
    QCOMPARE(ZeroGlyphFor(u"1/24/2026 15:30"_s), QChar(u'Ø'));
    QCOMPARE(ZeroGlyphFor(u"24.01.2026"_s), QChar(u'Ø'));
    QCOMPARE(ZeroGlyphFor(QString()), QChar(u'Ø'));
  }
};

OMNI_TEST(TestCallsign)
#include "test_callsign.moc"
