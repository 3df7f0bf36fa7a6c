// SPDX-License-Identifier: GPL-3.0-or-later
// The simulated companion against the program's end of the channel.
#include "companion.h"
#include "platform/companion_link.h"
#include "test_suite.h"

using namespace Qt::StringLiterals;

class TestCompanion : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  // It starts before the program, replaces what a station has reported before, and outlives the program.
  void TellsWhoHasReceivedThePicture() {
    const QTemporaryDir folder;
    const QDateTime when(QDate(2026, 3, 4), QTime(5, 6, 7), Qt::UTC);
    Companion companion(folder.path());
    QSignalSpy closed(&companion, &Companion::ProgramClosed);
    companion.Report({{u"ZZ1QX"_s, u"SNR 14dB"_s, when}, {u"ZZ2QX"_s, u"ä"_s, {}}});
    for (int run = 1; run <= 2; ++run) {
      CompanionLink program(folder.path());
      QSignalSpy texts(&program, &CompanionLink::TextArrived);
      QVERIFY(program.Listen());
      QTRY_COMPARE(texts.count(), 1);
      const QString first = u"ZZ1QX\tSNR 14dB\t3/4/2026 05:06:07"_s;
      const QString second = run == 1 ? u"ZZ2QX\tä"_s : u"ZZ2QX\tagain\t3/4/2026 05:06:07"_s;
      QCOMPARE(texts[0], (QVariantList{u"txtRxOk"_s, run == 1 ? first + u'*' + second : second + u'*' + first}));
      companion.Report({{u"ZZ2QX"_s, u"again"_s, when}});
      companion.Refresh();
      QTRY_COMPARE(texts.count(), 3);
      QCOMPARE(texts[1][1].toString(), u"ZZ2QX\tagain\t3/4/2026 05:06:07*"_s + first);
      QCOMPARE(texts[2], (QVariantList{u"txtFromRxOk"_s, u"Refresh"_s}));
      program.SendClosed();
      QTRY_COMPARE(closed.count(), run);
      QTRY_VERIFY(!companion.IsConnected());
    }
  }
};

OMNI_TEST(TestCompanion)
#include "test_companion.moc"
