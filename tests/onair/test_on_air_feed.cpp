// SPDX-License-Identifier: GPL-3.0-or-later
#include "feed_fixture.h"
#include "on_air_pages.h"
#include "onair/on_air_caption.h"
#include "test_suite.h"

namespace {

struct Feed : FeedFixture {
  OnAirFeed feed;
  QSignalSpy changed{&feed, &OnAirFeed::ListChanged};
  QSignalSpy failed{&feed, &OnAirFeed::Failed};

  explicit Feed(bool missingLetter = false) : feed(AllDependencies(), missingLetter) {}

  QString Calls() const {
    QStringList calls;
    for (const OnAirRow& row : feed.List1()) calls << row.call;
    calls.sort();
    return calls.join(u' ');
  }
  int Answers() const { return static_cast<int>(changed.count() + failed.count()); }
  // Asks, and waits for both answers.
  void Ask() {
    const int before = Answers();
    feed.GetOnAirList();
    QTRY_COMPARE(Answers(), before + 2);
  }
};

QString Box(const QString& text) {
  return u"\r\n"_s + text + u"\r\n\r\n This message will close in 10 seconds. "_s;
}

}  // namespace

class TestOnAirFeed : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void MergesBothSources() {
    Feed f;
    f.Answer("head\nZZ1QX-EP 14.233 a &amp; b_\n", "head\r\nZZ2QX_EP_14233_a &amp; b\r\n");
    f.Ask();
    QCOMPARE(f.Calls(), u"ZZ1QX ZZ2QX"_s);
    QCOMPARE(f.changed.count(), 2);
    for (const OnAirRow& row : f.feed.List1()) QVERIFY(row.extra.isEmpty() || row.extra == "a &amp; b"_L1);
    f.Ask();
    QCOMPARE(f.Calls(), u"ZZ1QX ZZ2QX"_s);
  }

  // The page that a script may answer with holds the stations of its plain reply, and what it escapes comes out.
  void ReadsPagesAsTheyLook() {
    Feed f;
    const QDateTime now(QDate(2026, 1, 1), QTime(12, 0), Qt::UTC);
    const auto calls = [&](OnAirForm form) {
      f.Answer(OnAirReply(form, now), OnAirTextFile(form, now));
      f.Ask();
      return f.Calls();
    };
    const QString plain = calls(OnAirForm::Plain);
    QVERIFY(plain.contains("EI7QOD"_L1) && plain.contains("HB9QHX"_L1) && !plain.contains("N0CALL"_L1));
    QCOMPARE(calls(OnAirForm::Html), plain);
    QCOMPARE(calls(OnAirForm::Empty), u""_s);
    QCOMPARE(calls(OnAirForm::Many).count(u' '), 9999);
    QVERIFY(!f.feed.IsCut());
    f.Answer("<p>head<br>" + QByteArray(3'000'000, ' ') + "ZZ9QX-EP 14.233_<br>", "head");
    f.Ask();
    QVERIFY2(f.feed.IsCut(), "of a page less is read than of a list");
    QCOMPARE(f.failed.count(), 0);
    QCOMPARE(calls(OnAirForm::ErrorPage), u""_s);
    QCOMPARE(f.failed.count(), 2);
  }

  void SaysWhatCouldNotBeHad() {
    const QString good = u"head\nZZ1QX-EP 14.233_\n"_s;
    const auto told = [&](bool letter, const QByteArray& cgi, const QByteArray& text) {
      Feed f(letter);
      f.Answer(cgi, text);
      f.Ask();
      return f.failed.isEmpty() ? QString() : f.failed.last().first().toString();
    };
    QCOMPARE(told(false, "", "head"), Box(u" On air now file not found \r\n on ZB3KLM server. "_s));
    QCOMPARE(told(true, "an Error", "head"), Box(u" n air now file not found \r\n on ZB3KLM server. "_s));
    QCOMPARE(told(true, "head", "my Error"), Box(u" On air now file not found \r\n on ZZ9QX server. "_s));
    QCOMPARE(told(true, "", ""), Box(u" On air now file not found \r\n on ZB3KLM and ZZ9QX server. "_s));
    QCOMPARE(told(true, "<p>", "head"), Box(u" n air now file not found \r\n on ZB3KLM server. "_s));
    QCOMPARE(told(true, "head", "head"), u""_s);
  }

  // What stood is shown until there is something to put in its place; a read that dies says nothing.
  void KeepsTheListUntilTheFirstAnswer() {
    Feed f;
    f.Answer("head\nZZ1QX-EP 14.233_\n", "head\r\nZZ2QX_EP_14233_\r\n");
    f.Ask();
    f.Cgi().Misbehave({}, Behaviour::Stall);
    f.Text().Misbehave({}, Behaviour::Reset);
    f.feed.GetOnAirList();
    QTRY_VERIFY(f.Text().Requests(FeedFixture::TextPath()) >= 2 && f.Cgi().Requests(FeedFixture::CgiPath()) >= 2);
    QCOMPARE(f.Calls(), u"ZZ1QX ZZ2QX"_s);
    // The refresh that comes in between gives up what is under way, and counts alone.
    f.Cgi().Misbehave({}, Behaviour::Normal);
    f.Text().Misbehave({}, Behaviour::Normal);
    f.Answer("", "head\r\nZZ3QX_EP_14233_\r\n");
    f.Ask();
    QCOMPARE(f.Calls(), u"ZZ3QX"_s);
    QCOMPARE(f.failed.count(), 1);
  }

  // A reply that is being rendered when the next refresh begins is not listed beside that one's.
  void GivesUpWhatIsBeingRead() {
    Feed f;
    f.Answer("<p>head<br>ZZ1QX-EP 14.233_<br>end</p>" + QByteArray(300'000, ' '), "head");
    f.feed.GetOnAirList();
    QTRY_COMPARE(f.Cgi().Requests(FeedFixture::CgiPath()), 1);
    f.Answer("head\nZZ2QX-EP 14.233_\n", "head");
    const int before = f.Answers();
    f.feed.GetOnAirList();
    QTRY_VERIFY(f.Answers() >= before + 2 && f.Calls() == "ZZ2QX"_L1);
  }

  // Minutes pass as ticks. Only the text that cmdOnAir reads is written over, and not while the list is open.
  void Timer13WritesOverTheText() {
    const FeedFixture f;
    bool open = true;
    OnAirCaption caption(f.program, [&open]() { return open; });
    caption.Timer13.setInterval(0ms);
    QSignalSpy tick(&caption.Timer13, &QTimer::timeout);
    QTRY_VERIFY(tick.count() > 6);
    QCOMPARE(caption.Text(), f.program.language[TextLine::kOnAirText]);
    open = false;
    QTRY_COMPARE(caption.Text(), u"0"_s);
    caption.Timer13.stop();
    caption.TakeLanguage();
    QCOMPARE(caption.Text(), f.program.language[TextLine::kOnAirText]);
  }
};

OMNI_TEST(TestOnAirFeed)
#include "test_on_air_feed.moc"
