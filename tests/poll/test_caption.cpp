// SPDX-License-Identifier: GPL-3.0-or-later
// The tail of a picture: where it begins, and the sender, mode and time in it.
#include <QRandomGenerator>
#include <algorithm>

#include "poll/caption.h"
#include "test_suite.h"

class TestCaption : public QObject {
  Q_OBJECT

  // Mode, sender, text of the mode, time and call of the sender; a field that is not read is "-".
  static QString Fields(const Caption& caption) {
    QStringList fields{caption.ModeTag};
    for (const auto& field : {caption.Caller, caption.ModeText, caption.SentTime, caption.FromCall}) {
      fields += field.value_or(u"-"_s);
    }
    return fields.join(u'|');
  }

 private Q_SLOTS:
  void CutsTails() {
    const auto check = [](const QByteArray& body, const QByteArray& download, const QByteArray& file, bool found) {
      QCOMPARE(TailOfDownload(body), QString::fromLatin1(download));
      const FileTail tail = TailOfFile(body.right(100));
      QCOMPARE(tail.tail, QString::fromLatin1(file));
      QVERIFY2(tail.found == found, body.constData());
    };
    const QByteArray nuls(3, '\0');
    const QByteArray filled(37, '#');
    const QByteArray sixty = QByteArray("AB1CD *snr -1 *01:24:2024 15:30").leftJustified(60);
    check(filled + nuls + sixty, sixty, sixty, true);
    check(filled + nuls + "x***y***AB\xD8", "AB\xD8", "x***y***AB\xD8", true);
    check(filled + nuls + "****AB", "AB", "****AB", true);
    // The last run of NULs counts, but for one that reaches the end.
    check("A" + nuls + "B" + nuls + "C", "A" + nuls + "B" + nuls + "C", "C", true);
    check(nuls + nuls + "C", nuls + nuls + "C", "C", true);
    check("ABCDE" + nuls, "ABCDE" + nuls, "DE" + nuls, false);
    check("ABCDE", "ABCDE", "DE", false);
    check("AB", "AB", "", false);
    check("", "", "", false);
  }

  void TagsModes() {
    const auto check = [](const QString& tail, const QString& download, const QString& file) {
      QVERIFY2(ParseTailFromDownload(tail, u'Ø').ModeTag == download, qPrintable(tail));
      QVERIFY2(ParseTailFromFile({tail, true}, u'Ø').ModeTag == file, qPrintable(tail));
    };
    check(u"snr -3"_s, u"EP"_s, u"EP"_s);
    check(u"-HYBRID- snr -3"_s, u"EPH"_s, u"EPH"_s);
    for (const QString& none : {u"snr 3"_s, u"-HYBRID- snr 3"_s}) check(none, u""_s, u""_s);
    check(u"FT8 FT4"_s, u"FT8"_s, u"FT8"_s);
    check(u"JS8 FT8"_s, u"JS8"_s, u"JS8"_s);
    check(u"JT9"_s, u""_s, u"JT65"_s);
    check(u"PSK JT65"_s, u"PSK"_s, u"PSK"_s);
    check(u"QK PSK"_s, u"QKP"_s, u"QKP"_s);
  }

  void ReadsTails() {
    const auto row = [](const QString& tail, const QString& download, const QString& file) {
      QCOMPARE(Fields(ParseTailFromDownload(tail, u'Ø')), download);
      QCOMPARE(Fields(ParseTailFromFile({tail, true}, u'Ø')), file);
    };
    const auto both = [&row](const QString& tail, const QString& fields) { row(tail, fields, fields); };
    const QString snr = u" snr 3|1/24/2024 15:30|"_s;
    both(u"AB1CD *FT8 snr -12 *01:24:2024 15:30xx"_s, u"FT8|AB1CD|FT8 snr -12 |1/24/2024 15:30|AB1CD"_s);
    both(u"ZZ9QX -HYBRID- * EP snr -3 *01:24:2024 15:30"_s, u"EPH|ZZ9QX|EPH snr -3 |1/24/2024 15:30|ZZ9QX"_s);
    both(u"ab0cØ *snr 3*01:24:2024 15:30"_s, u"|AB0C0|"_s + snr + u"ABØCØ"_s);
    row(u"-hybrid-ZZ9QX *snr 3*01:24:2024 15:30"_s, u"|ZZ9QX|"_s + snr + u"ZZ9QX"_s, u"||"_s + snr);
    row(u" SWL *snr 3*01:24:2024 15:30"_s, u"|SWL|"_s + snr + u"SWL"_s, u"||"_s + snr);
    both(u"AB1CD *snr -3 *1530"_s, u"EP|-|-|-|-"_s);
    both(u"AB1CD 15:30"_s, u"|AB1CD|-|-|-"_s);
    both(u"AB1CD *loud 15:30"_s, u"|AB1CD|-|-|AB1CD"_s);
    both(u"ABCD *snr 3*01:24:2024 15:30"_s, u"||"_s + snr);
    both(u"AB1CD *snr\r 3\n*01:24:20\r\n24\u2028 15:30* 9:99"_s, u"|AB1CD|"_s + snr + u"AB1CD"_s);
    for (const QString& noTime : {u"AB1CD *snr 3*13:45:2024 15:30"_s, u"AB1CD *snr 3*:30"_s}) {
      row(noTime, u"|AB1CD| snr 3||AB1CD"_s, u"|AB1CD| snr 3|-|AB1CD"_s);
    }
    // Without three NULs only the mode is read.
    const Caption caption = ParseTailFromFile({u"AB1CD *snr -3*01:24:2024 15:30"_s, false}, u'0');
    QCOMPARE(Fields(caption), u"EP|-|-|-|-"_s);
    QVERIFY(!caption.TimeFound);
  }

  void NormalisesDates() {
    const auto check = [](const QString& text, const QString& date) {
      QVERIFY2(NormaliseDate(text) == date, qPrintable(text));
      QCOMPARE(NormaliseDate(date), date);  // stored dates pass it again
    };
    for (const QString& text :
         {u"01/24/2024 15:30"_s, u"1/24/2024 15:30"_s, u"1-24-24 15:30:59"_s, u"on 01.24.24  15:30 UTC"_s,
          u"24janvier2024 15:30"_s, u"24/xyz/24 15:30"_s, u"01/24/2024\r\n15:30"_s})
      check(text, u"1/24/2024 15:30"_s);
    check(u"24/Mär/24 15:30"_s, u"3/24/2024 15:30"_s);
    check(u"4-Okt-2024 05:30"_s, u"10/4/2024 05:30"_s);
    check(u"01/24/1999 15:30"_s, u"1/24/3999 15:30"_s);
    check(u"01/24/2024"_s, u"1/24/2024"_s);
    for (const QString& none : {u":"_s, u""_s}) check(none, u""_s);
    for (const QString& none : {u"24/01/2024 15:30"_s, u"02/29/2023 15:30"_s, u"00/00/0000 15:30"_s, u"01/24 15:30"_s,
                                u"01/24/99999999999 15:30"_s, u"15:30"_s, u"24/Jan 15:30"_s})
      check(none, u" 15:30"_s);
  }

  // Real words of each month as stations write them; any other word counts as January.
  void KnowsMonths() {
    const auto check = [](const QString& words) {
      const QStringList months = words.split(u' ');
      for (qsizetype i = 0; i < months.size(); ++i) QVERIFY2(MonthNumber(months[i]) == i + 1, qPrintable(months[i]));
    };
    check(u"JÄNNER février Mär kwi maj Giugno lip AOÛT wrz Okt lis gru"_s);
    check(u"January luty ber avril mei cze lug sie Sept ott noi"_s);
    for (const QString& none : {u"juin"_s, u"juil"_s, u"Ioul"_s, u"iiun"_s, u"Q"_s, u""_s}) check(none);
  }

  // Random bytes with enough of the separators that the fields are reached.
  void SurvivesAnyBytes() {
    QRandomGenerator random(20240124);
    const QByteArray likely("**::0124/ -AB1CDsnr\0\r\n\x85\xD8", 24);
    int dates = 0;
    int modes = 0;
    for (int run = 0; run < 10000; ++run) {
      QByteArray body;
      for (int length = random.bounded(120); length > 0; --length) {
        body += random.bounded(4) == 0 ? static_cast<char>(random.bounded(256)) : likely[random.bounded(likely.size())];
      }
      if (run % 2 == 0) body += "*snr -1\n*1:2:3\n" + body.right(2) + "4 1\r1:22";
      const Caption captions[] = {ParseTailFromDownload(TailOfDownload(body), u'Ø'),
                                  ParseTailFromFile(TailOfFile(body.right(100)), u'Ø')};
      for (const Caption& caption : captions) {
        if (caption.SentTime && !caption.SentTime->isEmpty()) ++dates;
        if (caption.ModeText) ++modes;
        const QString all = Fields(caption);
        const auto isPlain = [](QChar c) { return c.category() != QChar::Other_Control && c != u'*'; };
        QVERIFY2(std::all_of(all.cbegin(), all.cend(), isPlain), body.toHex().constData());
      }
    }
    QVERIFY(dates > 100 && modes > 100);
  }
};

OMNI_TEST(TestCaption)
#include "test_caption.moc"
