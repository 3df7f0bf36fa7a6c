// SPDX-License-Identifier: GPL-3.0-or-later
// Pages of callbook services, old, current and broken ones, against the text that Chromium shows of them
// (html/make_expected), and pages that were made to do harm.
#include <ctime>

#include "platform/html/html_text.h"
#include "platform/text/text_file.h"
#include "test_suite.h"

namespace {

constexpr qsizetype kHostileSize = 512 * 1024;

const QDir kPages(QStringLiteral(HTML_PAGES_DIR));

QStringList Pages() {
  return kPages.entryList({u"*.html"_s});
}

QByteArray BytesOf(const QString& page) {
  return ReadFileBytes(kPages.filePath(page)).value_or(QByteArray());
}

// A pattern as often as it goes into a length; "%1" in it is numbered.
QString Filled(const QString& pattern, qsizetype length) {
  QString page;
  const bool isNumbered = pattern.contains(u"%1"_s);
  for (int i = 0; page.size() < length; ++i) page += isNumbered ? pattern.arg(i) : pattern;
  return page;
}

// Processor time of this process; the clock on the wall would tell how busy the machine is.
qint64 UsedMs() {
  return std::clock() * 1000 / CLOCKS_PER_SEC;
}

// A line end that is none for the readers, who know CR LF alone.
bool HasHalfLineEnd(const QString& text) {
  const QString rest = QString(text).remove(u"\r\n"_s);
  return rest.contains(u'\r') || rest.contains(u'\n');
}

}  // namespace

class TestHtmlText : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void ReadsLikeABrowser_data() {
    QTest::addColumn<QString>("page");
    QVERIFY(Pages().size() >= 24);
    for (const QString& page : Pages()) QTest::newRow(qPrintable(page)) << page;
  }
  void ReadsLikeABrowser() {
    QFETCH(const QString, page);
    const QString text = QString(page).replace(u".html"_s, u".txt"_s);
    QVERIFY(kPages.exists(text));
    const QString expected = QString::fromUtf8(BytesOf(text)).replace(u"\n"_s, u"\r\n"_s);
    QCOMPARE(HTMLDecode(QString::fromUtf8(BytesOf(page))), expected);
  }

  // In an old page a table does not end the paragraph around it.
  void FollowsTheDocumentType() {
    const auto check = [](const QString& type, bool isQuirky) {
      const QString text = HTMLDecode(type + u"<p>a<table><tr><td>b</table>"_s);
      QVERIFY2(text.endsWith(isQuirky ? u"a\r\nb"_s : u"a\r\n\r\nb"_s), qPrintable(type));
    };
    const auto html4 = u"<!DOCTYPE HTML PUBLIC \"-//W3C//DTD HTML 4.01 Transitional//EN\"%1>"_s;
    const auto xhtml =
        u"<!DOCTYPE html PUBLIC '-//W3C//DTD XHTML 1.0 Transitional//EN' 'http://www.w3.org/TR/x.dtd'>"_s;
    check(u" <!-- a > b --><!doctype HTML >"_s, false);
    check(u"<!DOCTYPE html SYSTEM \"about:legacy-compat\">"_s, false);
    check(html4.arg(u" \"http://www.w3.org/TR/html4/loose.dtd\""_s), false);
    check(u"<?xml version='1.0'?>"_s + xhtml, false);
    for (const QString& quirky :
         {QString(), html4.arg(QString()), u"<!DOCTYPE HTML PUBLIC \"-//w3c//dtd html 3.2 Final//EN\">"_s,
          u"<!DOCTYPE HTML PUBLIC \"-//IETF//DTD HTML//EN\">"_s, u"<!DOCTYPE>"_s, u"<!DOCTYPE svg>"_s,
          u"<!DOCTYPE html PUBLIC>"_s, u"x<!DOCTYPE html>"_s})
      check(quirky, true);
  }

  void SurvivesACutAnywhere() {
    for (const QString& page : Pages()) {
      const QByteArray whole = BytesOf(page);
      for (qsizetype size = 0; size < whole.size(); size += 31) {
        const QByteArray cut = whole.first(size);
        const QString asUtf8 = QString::fromUtf8(cut);
        QStringList sources{asUtf8};
        if (asUtf8.size() != cut.size()) sources += QString::fromLatin1(cut);  // not the same text once more
        for (const QString& source : sources) {
          const QString text = HTMLDecode(source);
          QVERIFY2(text.size() <= source.size() && !HasHalfLineEnd(text), qPrintable(source));
        }
      }
    }
  }

  // Every "Q" outside of a tag is a letter that can be seen.
  void MastersHostilePages_data() {
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QString>("behind");
    QTest::addColumn<bool>("isShown");  // every "Q" of the pattern
    const auto row = [](const char* name, const QString& before, const QString& pattern, const QString& behind = {},
                        bool isShown = true) { QTest::newRow(name) << before << pattern << behind << isShown; };
    // Deeper and deeper, or one beside the other, without a good end.
    for (const QString& pattern :
         {u"<table><tr><td>Q"_s, u"<div>Q"_s, u"<b>Q"_s, u"<font size=%1>Q"_s, u"<div><b style=display:%1>Q</div>"_s,
          u"<div><table><tr><td></div>Q"_s, u"<form><div></form>Q"_s, u"<b><div></b>Q"_s, u"<a><b><p></a>Q"_s,
          u"<button><p>Q"_s, u"<xy/>Q"_s, u"<p style=display:table-row-group><p style=display:table-row>Q"_s,
          u"<b style=x>Q"_s, u"a <i style=float:left>Q</i> "_s})
      row(qPrintable(pattern), {}, pattern);
    row("ends of nothing among many open", u"<i>"_s.repeated(400), u"</li></p></b>Q"_s);
    row("drawings", {}, u"<svg><g>"_s, u"<text>Q"_s);
    row("text thrown out of a table", u"<table>"_s, u"<i>Q</i><tr>"_s);
    row("open cells", u"<table>"_s, u"<tr><td><font size=1>Q"_s);
    row("sections of one row", u"<table>"_s, u"<tbody><tr><td>Q"_s);
    row("details without a summary", u"<details>"_s, u"<p>Q"_s, u"<summary>y</summary>"_s, false);
    row("attributes", u"<div "_s, u"a%1 "_s, u">Q"_s);
    row("attributes that count", u"<div "_s, u"hidden=%1 "_s, u">"_s);
    row("attributes of a tag that is cut", u"<div "_s, u"a%1 "_s);
    row("attributes of a drawing", u"<svg><g "_s, u"a%1 "_s, u"><text>Q"_s);
    row("style rules", u"<style>"_s, u".a .a{display:none}"_s,
        u"</style>"_s + u"<i class=a></i><b>Q</b>"_s.repeated(5000));
    row("style statements", u"<style>a{display:none}"_s, u"@a;"_s, u"</style>Q"_s);
    row("classes of one element", u"<style>"_s + Filled(u".a.a%1{display:none}"_s, 40000) + u"</style><b class='"_s,
        u"a "_s, u"'>Q"_s);
    row("words that may be styles", {}, u"style"_s.repeated(800) + u"> Q"_s);
    row("open comments", u"Q"_s, u"<!--"_s);
    row("empty comments", u"Q"_s, u"<!---->"_s);
    row("comments that end with a bang", u"Q"_s, u"<!----!>"_s);
    row("references", u"Q"_s, u"&"_s);
  }
  // Four times the length may take four times the time and somewhat more, never sixteen times.
  void MastersHostilePages() {
    QFETCH(const QString, before);
    QFETCH(const QString, pattern);
    QFETCH(const QString, behind);
    QFETCH(const bool, isShown);
    const auto read = [&](qsizetype length) {
      const QString middle = Filled(pattern, length);
      const qint64 started = UsedMs();
      const QString text = HTMLDecode(before + middle + behind);
      const qint64 took = UsedMs() - started;
      const auto letters = (before + behind).count(u'Q') + (isShown ? middle.count(u'Q') : 0);
      return text.count(u'Q') == letters ? took : -1;
    };
    const qint64 took = read(kHostileSize);
    QVERIFY(took >= 0);
    if (took < 500) return;  // fast at any rate
    const qint64 quarter = read(kHostileSize / 4);
    QVERIFY2(took < 9 * quarter, qPrintable(u"%1 and %2 ms"_s.arg(took).arg(quarter)));
  }

  void ReadsTheBeginningOfAHugePage() {
    const QString row = u"<tr><td>Latitude</td><td>51.4033</td></tr>\n"_s;
    const QString page = u"<table>"_s + row.repeated(8 * kMostHtml / row.size());
    const QString text = HTMLDecode(page);
    QVERIFY(text.startsWith(u"Latitude\t51.4033\r\nLatitude\t51.4033\r\n"_s));
    const auto rows = text.count(u'\t');
    QVERIFY(rows >= kMostHtml / row.size() - 1 && rows <= kMostHtml / row.size() + 1);
  }

  void EndsLinesInOneWay() {
    for (const QString& block : {u"pre"_s, u"p"_s, u"textarea"_s, u"p style=white-space:pre-line"_s}) {
      for (const QString& end : {u"&#13;"_s, u"&#13;&#10;"_s, u"&#xD;\r\n"_s, u"\r"_s, u"&#10;"_s}) {
        const QString text = HTMLDecode(u"<%1>a%2b</%1>c"_s.arg(block, end));
        QVERIFY2(!HasHalfLineEnd(text) && text.contains(u'c'), qPrintable(block + end));
      }
    }
  }
};

OMNI_TEST(TestHtmlText)
#include "test_html_text.moc"
