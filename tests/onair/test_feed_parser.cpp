// SPDX-License-Identifier: GPL-3.0-or-later
#include "onair/feed_parser.h"
#include "onair/html_entities.h"
#include "station/callsign.h"
#include "test_suite.h"

namespace {

QString Text(const FeedRows& read) {
  QStringList rows;
  for (const OnAirRow& row : read.rows) rows << QStringList{row.call, row.mode, row.frequency, row.extra}.join(u'|');
  return rows.join(u'\n');
}

QString CgiLine(const QString& line) {
  return Text(ParseCgiReply(u"head\n"_s + line + u"\nend"_s, FeedLoop::ToLastButOne, BuiltInBadCalls()));
}

QString TextLine(const QString& line) {
  return Text(ParseTextFile(u"head\r\n"_s + line + u"\r\nend"_s, FeedLoop::ToLastButOne, BuiltInBadCalls()));
}

}  // namespace

class TestFeedParser : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void ReadsTheScriptsLines() {
    const auto check = [](const QString& line, const QString& row) { QCOMPARE(CgiLine(line), row); };
    check(u"ZZ9QX-EP  14.233 hello_1.5"_s, u"ZZ9QX|EP |14233|"_s);
    check(u"ZZ9QX-EP  14.233\r"_s, u"ZZ9QX|EP |14233|"_s);
    check(u"VE3/ZZ9QX/P-JT65 14.0761_"_s, u"ZZ9QX|JT|14076|"_s);
    check(u"ZZ9QX-EP .5"_s, u"ZZ9QX|EP |5|"_s);
    check(u"ZZ9QX-EP  .,"_s, u"ZZ9QX|EP |0|"_s);
    check(u"ZZ9QX-EPH 144.500"_s, u"ZZ9QX|EPH|144500|"_s);
    check(u"ZZ9QX-EP 1296.500"_s, u"ZZ9QX|EP ||"_s);
    check(u"ZZ9QX-EP on VRadio"_s, u"ZZ9QX|EP |VRadio|"_s);
    check(u"ZZ9QX-EP VRadio PEANUT"_s, u"ZZ9QX|EP |PEANUT|"_s);
    check(u"ZZ9QX-EP _PEANUT"_s, u"ZZ9QX|EP ||"_s);
    check(u"ZZ9QX-EP 5*9*9"_s, u"ZZ9QX|EP ||"_s);
    check(u"ZZ9QX-"_s, u"ZZ9QX|||"_s);
    check(u"12.3ABC-EP"_s, u"3ABC|EP||"_s);
    for (const QString& none : {u""_s, u"_"_s, u"ZZ9QX EP 14.233"_s, u"NOCALL-EP 14.233"_s, u"ABC-EP 14.233"_s}) {
      check(none, u""_s);
    }
  }

  void ReadsTheTextFilesLines() {
    const auto check = [](const QString& line, const QString& row) { QCOMPARE(TextLine(line), row); };
    check(u"zz9qx/p_EP_14233_QRV & <b>"_s, u"ZZ9QX|EP|14233|QRV & <b>"_s);
    check(u"ZZ9QX_EP__a_b"_s, u"ZZ9QX|EP|0|a"_s);
    check(u"ZZ9QX"_s, u"ZZ9QX||0|"_s);
    check(u"ZZ9QX_*_*_*"_s, u"ZZ9QX|*|*|*"_s);
    check(u"Callsign_EP_14233_"_s, u""_s);
    // Line feeds only part the lines of a file that has no other ends.
    check(u"ZZ9QX_EP_14233_one\nZZ8QX_EP_14233_two"_s, u"ZZ9QX|EP|14233|one\nZZ8QX"_s);
    QCOMPARE(Text(ParseTextFile(u"head\nZZ9QX_EP_1_\nend"_s, FeedLoop::ToLastButOne, {})), u"ZZ9QX|EP|1|"_s);
  }

  void LeavesOutTheEndsOfAReply() {
    const auto count = [](const QString& reply, FeedLoop loop) {
      QString lines = reply;
      const qsizetype cgi = ParseCgiReply(lines.replace(u'_', u'-'), loop, {}).rows.size();
      lines = reply;
      const qsizetype text = ParseTextFile(lines.replace(u'\n', u"\r\n"_s), loop, {}).rows.size();
      return cgi == text ? cgi : -1;
    };
    const QString three = u"ZZ1QX_EP\nZZ2QX_EP\nZZ3QX_EP"_s;
    QCOMPARE(count(three, FeedLoop::ToLastButOne), 1);
    QCOMPARE(count(three, FeedLoop::ToLast), 2);
    QCOMPARE(count(three + u'\n', FeedLoop::ToLastButOne), 2);
    for (const QString& none : {u""_s, u"ZZ1QX_EP"_s, u"\n"_s}) {
      QCOMPARE(count(none, FeedLoop::ToLastButOne), 0);
      QCOMPARE(count(none, FeedLoop::ToLast), 0);
    }
  }

  void FailsByAWordAnywhere() {
    QVERIFY(HasFailed(u""_s));
    QVERIFY(HasFailed(u"head\nZZ9QX-EP 14.233 no Errors here_\n"_s));
    QVERIFY(!HasFailed(u"head\nZZ9QX-EP 14.233 error_\n"_s));
  }

  void DecodesEntitiesInPlace() {
    const auto check = [](const QString& text, const QString& decoded) {
      QCOMPARE(WithEntitiesDecoded(text), decoded);
    };
    check(u"a\n&lt;b&gt;\r\n&amp;lt;"_s, u"a\n<b>\r\n&lt;"_s);
    check(u"&Uuml;&yuml;&nbsp;&#65;&#x42;&#128;"_s, u"Üÿ\u00A0AB€"_s);
    check(u"&#0;&#xD800;&#9999999;&#99999999999;"_s, u"\uFFFD\uFFFD\uFFFD&#99999999999;"_s);
    check(u"&& &; &what; R&D; &"_s, u"&& &; &what; R&D; &"_s);
    QVERIFY(!HasTags(u"1 < 2, 3<4, <3"_s));
    for (const QString& tag : {u"a<br>"_s, u"</p"_s, u"<!--"_s}) QVERIFY(HasTags(tag));
  }

  void HoldsOnlyWhatItMay() {
    QString reply = u"head\n"_s;
    for (int i = 0; i < kMostFeedRows + 5; ++i) reply += u"ZZ9QX-EP 14.233_\n"_s;
    const FeedRows read = ParseCgiReply(reply, FeedLoop::ToLastButOne, {});
    QCOMPARE(read.rows.size(), kMostFeedRows);
    QCOMPARE(read.leftOut, 5);
    // One line as long as a reply may be, of anything that a field is searched for: a step of quadratic cost would not
    // end.
    for (const QChar c : {u'A', u'0', u'.', u'&', u'<', u' ', u'\0'}) {
      const QString line = u"head\r\n"_s + QString(kMostFeedCharacters - 20, c) + u"-EP_1_2\r\nend"_s;
      ParseCgiReply(line, FeedLoop::ToLastButOne, {});
      ParseTextFile(line, FeedLoop::ToLastButOne, {});
      QVERIFY(!HasTags(line));
      QVERIFY(!WithEntitiesDecoded(line).isEmpty());
    }
  }
};

OMNI_TEST(TestFeedParser)
#include "test_feed_parser.moc"
