// SPDX-License-Identifier: GPL-3.0-or-later
// Pages of callbook services, old, current and broken ones, against the text that Chromium shows of them
// (html/make_expected), and pages that were made to do harm.
#include <QDir>
#include <QFile>
#include <QTest>
#include <ctime>

#include "platform/html/html_text.h"
#include "test_suite.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kHostileSize = 512 * 1024;

QByteArray BytesOf(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QStringList Pages() {
  return QDir(u"" HTML_PAGES_DIR ""_s).entryList({u"*.html"_s});
}

QString PathOf(const QString& page) {
  return QDir(u"" HTML_PAGES_DIR ""_s).filePath(page);
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
  void ReadsLikeABrowser_data();
  void ReadsLikeABrowser();
  void FollowsTheDocumentType_data();
  void FollowsTheDocumentType();
  void SurvivesACutAnywhere_data();
  void SurvivesACutAnywhere();
  void MastersHostilePages_data();
  void MastersHostilePages();
  void ReadsTheBeginningOfAHugePage();
  void EndsLinesInOneWay();
};

void TestHtmlText::ReadsLikeABrowser_data() {
  QTest::addColumn<QString>("page");
  QVERIFY(Pages().size() >= 24);
  for (const QString& page : Pages()) QTest::newRow(qPrintable(page)) << page;
}

void TestHtmlText::ReadsLikeABrowser() {
  QFETCH(const QString, page);
  const QString expectedPath = PathOf(page).replace(u".html"_s, u".txt"_s);
  QVERIFY(QFile::exists(expectedPath));
  const QString expected = QString::fromUtf8(BytesOf(expectedPath)).replace(u"\n"_s, u"\r\n"_s);
  QCOMPARE(HTMLDecode(QString::fromUtf8(BytesOf(PathOf(page)))), expected);
}

void TestHtmlText::FollowsTheDocumentType_data() {
  QTest::addColumn<QString>("type");
  QTest::addColumn<bool>("isQuirky");
  const auto html4 = u"<!DOCTYPE HTML PUBLIC \"-//W3C//DTD HTML 4.01 Transitional//EN\"%1>"_s;
  const auto xhtml = u"<!DOCTYPE html PUBLIC '-//W3C//DTD XHTML 1.0 Transitional//EN' 'http://www.w3.org/TR/x.dtd'>"_s;
  QTest::newRow("none") << QString() << true;
  QTest::newRow("html 5") << u" <!-- a > b --><!doctype HTML >"_s << false;
  QTest::newRow("legacy html 5") << u"<!DOCTYPE html SYSTEM \"about:legacy-compat\">"_s << false;
  QTest::newRow("html 4.01 with its address") << html4.arg(u" \"http://www.w3.org/TR/html4/loose.dtd\""_s) << false;
  QTest::newRow("html 4.01 alone") << html4.arg(QString()) << true;
  QTest::newRow("html 3.2") << u"<!DOCTYPE HTML PUBLIC \"-//w3c//dtd html 3.2 Final//EN\">"_s << true;
  QTest::newRow("html 2") << u"<!DOCTYPE HTML PUBLIC \"-//IETF//DTD HTML//EN\">"_s << true;
  QTest::newRow("xhtml") << u"<?xml version='1.0'?>"_s + xhtml << false;
  QTest::newRow("no name") << u"<!DOCTYPE>"_s << true;
  QTest::newRow("another name") << u"<!DOCTYPE svg>"_s << true;
  QTest::newRow("public without identifier") << u"<!DOCTYPE html PUBLIC>"_s << true;
  QTest::newRow("too late") << u"x<!DOCTYPE html>"_s << true;
}

// In an old page a table does not end the paragraph that it stands in.
void TestHtmlText::FollowsTheDocumentType() {
  QFETCH(const QString, type);
  QFETCH(const bool, isQuirky);
  const QString text = HTMLDecode(type + u"<p>a<table><tr><td>b</table>"_s);
  QVERIFY(text.endsWith(isQuirky ? u"a\r\nb"_s : u"a\r\n\r\nb"_s));
}

void TestHtmlText::SurvivesACutAnywhere_data() {
  QTest::addColumn<QString>("page");
  for (const QString& page : Pages()) QTest::newRow(qPrintable(page)) << page;
}

void TestHtmlText::SurvivesACutAnywhere() {
  QFETCH(const QString, page);
  const QByteArray whole = BytesOf(PathOf(page));
  for (qsizetype size = 0; size < whole.size(); size += 31) {
    const QByteArray cut = whole.first(size);
    for (const QString& source : {QString::fromUtf8(cut), QString::fromLatin1(cut)}) {
      const QString text = HTMLDecode(source);
      QVERIFY2(text.size() <= source.size() && !HasHalfLineEnd(text), qPrintable(source));
    }
  }
}

// A "Q" is what can be seen.
void TestHtmlText::MastersHostilePages_data() {
  QTest::addColumn<QString>("before");
  QTest::addColumn<QString>("pattern");
  QTest::addColumn<QString>("behind");
  QTest::addColumn<bool>("isShown");  // every "Q" of the pattern
  const auto row = [](const char* name, const QString& before, const QString& pattern, const QString& behind = {},
                      bool isShown = true) { QTest::newRow(name) << before << pattern << behind << isShown; };
  const QString none;
  row("nested tables", none, u"<table><tr><td>Q"_s);
  row("nested divs", none, u"<div>Q"_s);
  row("nested bold", none, u"<b>Q"_s);
  row("nested fonts, each another", none, u"<font size=%1>Q"_s);
  row("bold that every block opens again", none, u"<div><b style=display:%1>Q</div>"_s);
  row("ends that reach nothing", none, u"<div><table><tr><td></div>Q"_s);
  row("ends of nothing among many open", u"<i>"_s.repeated(400), u"</li></p></b>Q"_s);
  row("blocks that outlive their form", none, u"<form><div></form>Q"_s);
  row("blocks that outlive their bold", none, u"<b><div></b>Q"_s);
  row("anchors in paragraphs", none, u"<a><b><p></a>Q"_s);
  row("paragraphs in buttons", none, u"<button><p>Q"_s);
  row("drawings", none, u"<svg><g>"_s, u"<text>Q"_s);
  row("unknown elements", none, u"<xy/>Q"_s);
  row("text thrown out of a table", u"<table>"_s, u"<i>Q</i><tr>"_s);
  row("open cells", u"<table>"_s, u"<tr><td><font size=1>Q"_s);
  row("sections of one row", u"<table>"_s, u"<tbody><tr><td>Q"_s);
  row("rows without cells", none, u"<p style=display:table-row-group><p style=display:table-row>Q"_s);
  row("details without a summary", u"<details>"_s, u"<p>Q"_s, u"<summary>y</summary>"_s, false);
  row("attributes", u"<div "_s, u"a%1 "_s, u">Q"_s);
  row("attributes that count", u"<div "_s, u"hidden=%1 "_s, u">"_s);
  row("attributes of a tag that is cut", u"<div "_s, u"a%1 "_s);
  row("attributes of a drawing", u"<svg><g "_s, u"a%1 "_s, u"><text>Q"_s);
  row("bold with a style", none, u"<b style=x>Q"_s);
  row("style rules", u"<style>"_s, u".a .a{display:none}"_s,
      u"</style>"_s + u"<i class=a></i><b>Q</b>"_s.repeated(5000));
  row("style statements", u"<style>a{display:none}"_s, u"@a;"_s, u"</style>Q"_s);
  row("classes of one element", u"<style>"_s + Filled(u".a.a%1{display:none}"_s, 40000) + u"</style><b class='"_s,
      u"a "_s, u"'>Q"_s);
  row("words that may be styles", none, u"style"_s.repeated(800) + u"> Q"_s);
  row("floats", none, u"a <i style=float:left>Q</i> "_s);
  row("open comments", u"Q"_s, u"<!--"_s);
  row("empty comments", u"Q"_s, u"<!---->"_s);
  row("comments that end with a bang", u"Q"_s, u"<!----!>"_s);
  row("references", u"Q"_s, u"&"_s);
}

// Four times the length may take four times the time and somewhat more, never sixteen times.
void TestHtmlText::MastersHostilePages() {
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

void TestHtmlText::ReadsTheBeginningOfAHugePage() {
  const QString row = u"<tr><td>Latitude</td><td>51.4033</td></tr>\n"_s;
  const QString page = u"<table>"_s + row.repeated(64 * 1024 * 1024 / row.size());
  const QString text = HTMLDecode(page);
  QVERIFY(text.startsWith(u"Latitude\t51.4033\r\nLatitude\t51.4033\r\n"_s));
  const auto rows = text.count(u'\t');
  QVERIFY(rows >= kMostHtml / row.size() - 1 && rows <= kMostHtml / row.size() + 1);
}

void TestHtmlText::EndsLinesInOneWay() {
  for (const QString& block : {u"pre"_s, u"p"_s, u"textarea"_s, u"p style=white-space:pre-line"_s}) {
    for (const QString& end : {u"&#13;"_s, u"&#13;&#10;"_s, u"&#xD;\r\n"_s, u"\r"_s, u"&#10;"_s}) {
      const QString text = HTMLDecode(u"<%1>a%2b</%1>c"_s.arg(block, end));
      QVERIFY2(!HasHalfLineEnd(text) && text.contains(u'c'), qPrintable(block + end));
    }
  }
}

OMNI_TEST(TestHtmlText)
#include "test_html_text.moc"
