// SPDX-License-Identifier: GPL-3.0-or-later
#include <QRandomGenerator>
#include <QTest>
#include <algorithm>

#include "poll/caption.h"
#include "test_suite.h"

using namespace Qt::StringLiterals;

namespace {

const QString kNothing = u"(nothing)"_s;

QString Told(const std::optional<QString>& field) {
  return field.value_or(kNothing);
}

QStringList Fields(const Caption& caption) {
  return {caption.ModeTag, Told(caption.Caller), Told(caption.ModeText), Told(caption.SentTime),
          Told(caption.FromCall)};
}

}  // namespace

class TestCaption : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void CutsTails_data();
  void CutsTails();
  void TagsModes_data();
  void TagsModes();
  void ReadsTails_data();
  void ReadsTails();
  void HasNoCallerWithoutThreeNuls();
  void NormalisesDates_data();
  void NormalisesDates();
  void KnowsMonths_data();
  void KnowsMonths();
  void SurvivesAnyBytes();
};

void TestCaption::CutsTails_data() {
  QTest::addColumn<QByteArray>("body");
  QTest::addColumn<QString>("ofDownload");
  QTest::addColumn<QString>("ofFile");
  QTest::addColumn<bool>("found");
  const QByteArray nuls(3, '\0');
  const QByteArray filled(37, '#');
  const QByteArray sixty = QByteArray("AB1CD *snr -1 *01:24:2024 15:30").leftJustified(60);
  const QString text = QString::fromLatin1(sixty);
  QTest::newRow("both readers") << filled + nuls + sixty << text << text << true;
  QTest::newRow("stars") << filled + nuls + "x***y***AB\xD8" << u"AB\u00D8"_s << u"x***y***AB\u00D8"_s << true;
  QTest::newRow("four stars") << filled + nuls + "****AB" << u"AB"_s << u"****AB"_s << true;
  QTest::newRow("last run counts") << "A" + nuls + "B" + nuls + "C"
                                   << QString::fromLatin1("A" + nuls + "B" + nuls + "C") << u"C"_s << true;
  QTest::newRow("longer run") << nuls + nuls + "C" << QString::fromLatin1(nuls + nuls + "C") << u"C"_s << true;
  QTest::newRow("run at the end") << "ABCDE" + nuls << QString::fromLatin1("ABCDE" + nuls)
                                  << QString::fromLatin1("DE" + nuls) << false;
  QTest::newRow("no run") << QByteArray("ABCDE") << u"ABCDE"_s << u"DE"_s << false;
  QTest::newRow("two bytes") << QByteArray("AB") << u"AB"_s << u""_s << false;
  QTest::newRow("nothing") << QByteArray() << u""_s << u""_s << false;
}

void TestCaption::CutsTails() {
  QFETCH(const QByteArray, body);
  QTEST(TailOfDownload(body), "ofDownload");
  const FileTail tail = TailOfFile(body.right(100));
  QTEST(tail.tail, "ofFile");
  QTEST(tail.found, "found");
}

void TestCaption::TagsModes_data() {
  QTest::addColumn<QString>("tail");
  QTest::addColumn<QString>("download");
  QTest::addColumn<QString>("file");
  const auto row = [](const QString& tail, const QString& download, const QString& file) {
    QTest::addRow("%s", qPrintable(tail)) << tail << download << file;
  };
  row(u"snr -3"_s, u"EP"_s, u"EP"_s);
  row(u"snr 3"_s, u""_s, u""_s);
  row(u"-HYBRID- snr -3"_s, u"EPH"_s, u"EPH"_s);
  row(u"-HYBRID- snr 3"_s, u""_s, u""_s);
  row(u"FT8 FT4"_s, u"FT8"_s, u"FT8"_s);
  row(u"JS8 FT8"_s, u"JS8"_s, u"JS8"_s);
  row(u"JT9"_s, u""_s, u"JT65"_s);
  row(u"PSK JT65"_s, u"PSK"_s, u"PSK"_s);
  row(u"QK PSK"_s, u"QKP"_s, u"QKP"_s);
}

void TestCaption::TagsModes() {
  QFETCH(const QString, tail);
  QTEST(ParseTailFromDownload(tail, u'Ø').ModeTag, "download");
  QTEST(ParseTailFromFile({tail, true}, u'Ø').ModeTag, "file");
}

void TestCaption::ReadsTails_data() {
  QTest::addColumn<QString>("tail");
  QTest::addColumn<QStringList>("download");
  QTest::addColumn<QStringList>("file");
  const auto row = [](const char* name, const QString& tail, const QStringList& download, const QStringList& file) {
    QTest::newRow(name) << tail << download << file;
  };
  const auto both = [&row](const char* name, const QString& tail, const QStringList& fields) {
    row(name, tail, fields, fields);
  };
  const QString no = kNothing;
  both("worked example", u"AB1CD *FT8 snr -12 *01:24:2024 15:30xx"_s,
       {u"FT8"_s, u"AB1CD"_s, u"FT8 snr -12 "_s, u"1/24/2024 15:30"_s, u"AB1CD"_s});
  both("hybrid", u"ZZ9QX -HYBRID- * EP snr -3 *01:24:2024 15:30"_s,
       {u"EPH"_s, u"ZZ9QX"_s, u"EPH snr -3 "_s, u"1/24/2024 15:30"_s, u"ZZ9QX"_s});
  both("slashed zero", u"ab0cØ *snr 3*01:24:2024 15:30"_s,
       {u""_s, u"AB0C0"_s, u" snr 3"_s, u"1/24/2024 15:30"_s, u"ABØCØ"_s});
  row("hybrid in small letters in front", u"-hybrid-ZZ9QX *snr 3*01:24:2024 15:30"_s,
      {u""_s, u"ZZ9QX"_s, u" snr 3"_s, u"1/24/2024 15:30"_s, u"ZZ9QX"_s},
      {u""_s, u""_s, u" snr 3"_s, u"1/24/2024 15:30"_s, u""_s});
  row("listener with blanks", u" SWL *snr 3*01:24:2024 15:30"_s,
      {u""_s, u"SWL"_s, u" snr 3"_s, u"1/24/2024 15:30"_s, u"SWL"_s},
      {u""_s, u""_s, u" snr 3"_s, u"1/24/2024 15:30"_s, u""_s});
  both("no colon", u"AB1CD *snr -3 *1530"_s, {u"EP"_s, no, no, no, no});
  both("no star", u"AB1CD 15:30"_s, {u""_s, u"AB1CD"_s, no, no, no});
  both("one star, no snr", u"AB1CD *loud 15:30"_s, {u""_s, u"AB1CD"_s, no, no, u"AB1CD"_s});
  both("caller is none", u"ABCD *snr 3*01:24:2024 15:30"_s, {u""_s, u""_s, u" snr 3"_s, u"1/24/2024 15:30"_s, u""_s});
  both("line ends and a fourth field", u"AB1CD *snr\r 3\n*01:24:20\r\n24\u2028 15:30* 9:99"_s,
       {u""_s, u"AB1CD"_s, u" snr 3"_s, u"1/24/2024 15:30"_s, u"AB1CD"_s});
  row("no possible date", u"AB1CD *snr 3*13:45:2024 15:30"_s, {u""_s, u"AB1CD"_s, u" snr 3"_s, u""_s, u"AB1CD"_s},
      {u""_s, u"AB1CD"_s, u" snr 3"_s, no, u"AB1CD"_s});
  row("a short third field", u"AB1CD *snr 3*:30"_s, {u""_s, u"AB1CD"_s, u" snr 3"_s, u""_s, u"AB1CD"_s},
      {u""_s, u"AB1CD"_s, u" snr 3"_s, no, u"AB1CD"_s});
}

void TestCaption::ReadsTails() {
  QFETCH(const QString, tail);
  QTEST(Fields(ParseTailFromDownload(tail, u'Ø')), "download");
  QTEST(Fields(ParseTailFromFile({tail, true}, u'Ø')), "file");
}

void TestCaption::HasNoCallerWithoutThreeNuls() {
  const Caption caption = ParseTailFromFile({u"AB1CD *snr -3*01:24:2024 15:30"_s, false}, u'0');
  QCOMPARE(Fields(caption), (QStringList{u"EP"_s, kNothing, kNothing, kNothing, kNothing}));
  QVERIFY(!caption.TimeFound);
}

void TestCaption::NormalisesDates_data() {
  QTest::addColumn<QString>("text");
  QTest::addColumn<QString>("date");
  const auto row = [](const QString& text, const QString& date) {
    QTest::addRow("%s", qPrintable(text.simplified())) << text << date;
  };
  row(u"01/24/2024 15:30"_s, u"1/24/2024 15:30"_s);
  row(u"1/24/2024 15:30"_s, u"1/24/2024 15:30"_s);
  row(u"1-24-24 15:30:59"_s, u"1/24/2024 15:30"_s);
  row(u"on 01.24.24  15:30 UTC"_s, u"1/24/2024 15:30"_s);
  row(u"24/Mär/24 15:30"_s, u"3/24/2024 15:30"_s);
  row(u"4-Okt-2024 05:30"_s, u"10/4/2024 05:30"_s);
  row(u"24janvier2024 15:30"_s, u"1/24/2024 15:30"_s);
  row(u"01/24/1999 15:30"_s, u"1/24/3999 15:30"_s);
  row(u"24/xyz/24 15:30"_s, u"1/24/2024 15:30"_s);
  row(u"01/24/2024\r\n15:30"_s, u"1/24/2024 15:30"_s);
  row(u"01/24/2024"_s, u"1/24/2024"_s);
  row(u"24/01/2024 15:30"_s, u" 15:30"_s);
  row(u"02/29/2023 15:30"_s, u" 15:30"_s);
  row(u"00/00/0000 15:30"_s, u" 15:30"_s);
  row(u"01/24 15:30"_s, u" 15:30"_s);
  row(u"01/24/99999999999 15:30"_s, u" 15:30"_s);
  row(u"15:30"_s, u" 15:30"_s);
  row(u"24/Jan 15:30"_s, u" 15:30"_s);
  row(u":"_s, u""_s);
  row(u""_s, u""_s);
}

void TestCaption::NormalisesDates() {
  QFETCH(const QString, text);
  QFETCH(const QString, date);
  QCOMPARE(NormaliseDate(text), date);
  QCOMPARE(NormaliseDate(date), date);  // stored dates pass it again
}

// Real words of each month as stations write them, and what must fall to the first month.
void TestCaption::KnowsMonths_data() {
  QTest::addColumn<QStringList>("words");
  QTest::newRow("by month") << QStringList{u"JÄNNER"_s, u"février"_s, u"Mär"_s, u"kwi"_s, u"maj"_s, u"Giugno"_s,
                                           u"lip"_s,    u"AOÛT"_s,    u"wrz"_s, u"Okt"_s, u"lis"_s, u"gru"_s};
  QTest::newRow("first three letters") << QStringList{u"January"_s, u"luty"_s, u"ber"_s, u"avril"_s,
                                                      u"mei"_s,     u"cze"_s,  u"lug"_s, u"sie"_s,
                                                      u"Sept"_s,    u"ott"_s,  u"noi"_s};
  for (const QString& none : {u"juin"_s, u"juil"_s, u"Ioul"_s, u"iiun"_s, u"Q"_s, u""_s}) {
    QTest::addRow("no month: %s", qPrintable(none)) << QStringList{none};
  }
}

void TestCaption::KnowsMonths() {
  QFETCH(const QStringList, words);
  for (qsizetype i = 0; i < words.size(); ++i) QVERIFY2(MonthNumber(words[i]) == i + 1, qPrintable(words[i]));
}

// Random bytes with enough of the separators that the fields are reached.
void TestCaption::SurvivesAnyBytes() {
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
      const QString all = Fields(caption).join(QString());
      QVERIFY2(std::all_of(all.cbegin(), all.cend(),
                           [](QChar c) { return c.category() != QChar::Other_Control && c != u'*'; }),
               body.toHex().constData());
    }
  }
  QVERIFY(dates > 100);
  QVERIFY(modes > 100);
}

OMNI_TEST(TestCaption)
#include "test_caption.moc"
