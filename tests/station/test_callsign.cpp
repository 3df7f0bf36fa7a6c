// SPDX-License-Identifier: GPL-3.0-or-later
#include "station/callsign.h"
#include "test_suite.h"

class TestCallsign : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void Cleans() {
    // left: what stays of the text.
    const auto check = [](const QStringList& texts, const QString& call, const QString& left) {
      for (const QString& given : texts) {
        QString text = given;
        QVERIFY2(CleanCall(text) == call && text == left, qPrintable(given));
      }
    };
    check({u""_s, u"swl"_s, u" SWL"_s, u"Z9Q"_s, u"ZZ9QXABC"_s, u"Ж/ZZ9QX"_s}, u""_s, u""_s);
    check({u" ZZ9QX "_s, u"zz9qx/p"_s, u"ZZ9QX JT65"_s, u"VE3/ZZ9QX"_s, u"EA8/ZZ9QX/P"_s, u"/ ZZ9QX"_s, u"DE ZZ9QX"_s},
          u"ZZ9QX"_s, u"ZZ9QX"_s);
    check({u"zzØqx"_s, u"zzøqx"_s}, u"ZZ0QX"_s, u"ZZ0QX"_s);
    check({u"ZZ9Q"_s, u"ZZ9QЖ"_s}, u"ZZ9Q"_s, u"ZZ9Q"_s);
    check({u"zzé9q"_s}, u"ZZÉ9Q"_s, u"ZZÉ9Q"_s);
    for (const QString& kept : {u"SWL"_s, u"1234"_s}) check({kept}, kept, kept);
    check({u"ABCD/ZZ9QX"_s}, u""_s, u"ABCD"_s);
    check({u"ZZ²QX"_s}, u""_s, u"ZZ²QX"_s);
    // Calls of three characters stay behind a prefix.
    check({u"EA8/Z9Q"_s}, u"Z9Q"_s, u"Z9Q"_s);
  }

  void TellsBadCalls() {
    const auto check = [](const QStringList& texts, const QStringList& list, bool bad) {
      for (const QString& given : texts) {
        QString call = given;
        QVERIFY2(IsBadCall(call, list) == bad && call == given.trimmed().toUpper(), qPrintable(given));
      }
    };
    const QStringList builtIn = BuiltInBadCalls();
    check({u""_s, u" nocall "_s, u"CALLSIGN"_s, u"MARS JT65"_s, u"ZZ9"_s, u"ABCD5FGHIJ"_s}, builtIn, true);
    check({u"ZZ9 JT65"_s, u"ABCD5FGHI JT65"_s}, builtIn, false);
    check({u"SWL"_s}, {u"SWL"_s}, false);
    check({u"N0CALL"_s}, {}, false);
  }

  void ShowsZeros() {
    QCOMPARE(ShownCall(u"ZZ0Q0"_s, u'Ø'), u"ZZØQØ"_s);
    QCOMPARE(ZeroGlyphFor(u"2026-01-24 15:30"_s), QChar(u'0'));
    for (const QString& date : {u"2000/01/24"_s, u"1/24/2026 15:30"_s, u"24.01.2026"_s, QString()}) {
      QVERIFY2(ZeroGlyphFor(date) == QChar(u'Ø'), qPrintable(date));
    }
  }
};

OMNI_TEST(TestCallsign)
#include "test_callsign.moc"
