// SPDX-License-Identifier: GPL-3.0-or-later
// Pages of callbook services, old, current and broken ones, against the text that Chromium shows of them
// (html/make_expected), and pages that were made to do harm.
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTest>

#include "platform/html/html_text.h"
#include "test_suite.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kMany = 100000;
// Far above what a page takes, far below what a parse takes that goes with the square of the nesting.
constexpr qint64 kMostMs = 60000;

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

QString Numbered(const QString& pattern, int count) {
  QString page;
  for (int i = 0; i < count; ++i) page += pattern.arg(i);
  return page;
}

// A line feed that ends no line: nothing but CR LF parts lines for the readers.
bool HasLoneLineFeed(const QString& text) {
  for (qsizetype at = text.indexOf(u'\n'); at >= 0; at = text.indexOf(u'\n', at + 1))
    if (at == 0 || text[at - 1] != u'\r') return true;
  return false;
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
  for (qsizetype size = 0; size < whole.size(); size += 7) {
    const QByteArray cut = whole.first(size);
    for (const QString& source : {QString::fromUtf8(cut), QString::fromLatin1(cut)}) {
      const QString text = HTMLDecode(source);
      QVERIFY2(text.size() <= source.size() && !HasLoneLineFeed(text), qPrintable(source));
    }
  }
}

void TestHtmlText::MastersHostilePages_data() {
  QTest::addColumn<QString>("page");
  QTest::addColumn<int>("letters");  // that can be seen
  const auto many = [](const QString& text) { return text.repeated(kMany); };
  QTest::newRow("nested tables") << many(u"<table><tr><td>x"_s) << kMany;
  QTest::newRow("nested divs") << many(u"<div>x"_s) << kMany;
  QTest::newRow("nested bold") << many(u"<b>x"_s) << kMany;
  QTest::newRow("nested fonts, each another") << Numbered(u"<font size=%1>x"_s, kMany) << kMany;
  QTest::newRow("fonts that every paragraph opens again")
      << Numbered(u"<font size=%1>x"_s, 20000) + u"<p>x"_s.repeated(20000) << 40000;
  QTest::newRow("ends that reach nothing") << many(u"<div><table><tr><td></div>x"_s) << kMany;
  QTest::newRow("anchors in paragraphs") << many(u"<a><b><p></a>x"_s) << kMany;
  QTest::newRow("drawings") << many(u"<svg><g>"_s) + u"<text>x"_s << 1;
  QTest::newRow("unknown elements") << many(u"<xy/>x"_s) << kMany;
  QTest::newRow("text thrown out of a table") << u"<table>"_s + many(u"<i>x</i><tr>"_s) << kMany;
  QTest::newRow("open cells") << u"<table>"_s + many(u"<tr><td><font size=1>x"_s) << kMany;
  QTest::newRow("attributes") << u"<div "_s + Numbered(u"a%1 "_s, kMany) + u">x"_s << 1;
  QTest::newRow("attributes of a drawing") << u"<svg><g "_s + Numbered(u"a%1 "_s, kMany) + u">"_s + u"<text>x"_s << 1;
  QTest::newRow("bold with a style") << many(u"<b style=x>x"_s) << kMany;
  QTest::newRow("style rules") << u"<style>"_s + many(u".a .a{display:none}"_s) + u"</style>"_s +
                                      u"<i class=a></i><b>x</b>"_s.repeated(kMany / 2)
                               << kMany / 2;
  QTest::newRow("floats") << many(u"a <i style=float:left>x</i> "_s) << kMany;
  QTest::newRow("comments") << u"x"_s + many(u"<!--"_s) << 1;
}

void TestHtmlText::MastersHostilePages() {
  QFETCH(const QString, page);
  QFETCH(const int, letters);
  QElapsedTimer clock;
  clock.start();
  QCOMPARE(HTMLDecode(page).count(u'x'), letters);
  QVERIFY2(clock.elapsed() < kMostMs, qPrintable(QString::number(clock.elapsed())));
}

void TestHtmlText::ReadsTheBeginningOfAHugePage() {
  const QString row = u"<tr><td>Latitude</td><td>51.4033</td></tr>\n"_s;
  const QString page = u"<table>"_s + row.repeated(64 * 1024 * 1024 / row.size());
  const QString text = HTMLDecode(page);
  QVERIFY(text.startsWith(u"Latitude\t51.4033\r\nLatitude\t51.4033\r\n"_s));
  const auto rows = text.count(u'\t');
  QVERIFY(rows >= kMostHtml / row.size() - 1 && rows <= kMostHtml / row.size() + 1);
}

OMNI_TEST(TestHtmlText)
#include "test_html_text.moc"
