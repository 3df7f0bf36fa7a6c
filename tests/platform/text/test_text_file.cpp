// SPDX-License-Identifier: GPL-3.0-or-later
#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include "no_room.h"
#include "platform/paths.h"
#include "platform/text/text_file.h"
#include "test_suite.h"

using namespace Qt::StringLiterals;

namespace {

void MakeFile(const QString& path, const QByteArray& bytes) {
  QFile file(path);
  QVERIFY(file.open(QIODevice::WriteOnly));
  QCOMPARE(file.write(bytes), bytes.size());
}

QByteArray EveryByte() {
  QByteArray bytes;
  for (int i = 0; i < 256; ++i) bytes += static_cast<char>(i);
  return bytes;
}

}  // namespace

class TestTextFile : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void Decodes_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<CodePage>("page");
    QTest::addColumn<QString>("text");
    const CodePage western = CodePage::Western1252;
    QTest::newRow("empty") << QByteArray() << western << QString();
    QTest::newRow("utf-8") << "Jos\xC3\xA9 \xE6\x97\xA5"_ba << western << u"José 日"_s;
    QTest::newRow("utf-8 with mark") << "\xEF\xBB\xBF\xC3\x98"_ba << western << u"Ø"_s;
    QTest::newRow("only the first mark goes") << "\xEF\xBB\xBF\xEF\xBB\xBFx"_ba << western << u"\uFEFFx"_s;
    QTest::newRow("mark alone") << "\xEF\xBB\xBF"_ba << western << QString();
    QTest::newRow("1252") << "\xD8 \x80 \x93"_ba << western << u"Ø € “"_s;
    QTest::newRow("cut utf-8 is 1252") << "a\xC3"_ba << western << u"aÃ"_s;
    QTest::newRow("surrogate in utf-8 is 1252") << "\xED\xA0\x80"_ba << western << u"í\u00A0€"_s;
    QTest::newRow("undefined in 1252") << "\x81\xFF"_ba << western << u"\u0081ÿ"_s;
    QTest::newRow("nul stays") << "a\0b"_ba << western << QString::fromLatin1("a\0b", 3);
    QTest::newRow("1250") << "\x8C\x9C\xB3"_ba << CodePage::CentralEuropean1250 << u"Śśł"_s;
    QTest::newRow("1251") << "\xCF\xF0"_ba << CodePage::Cyrillic1251 << u"Пр"_s;
    QTest::newRow("932") << "\x93\xFA\x96\x7B\xB1\\"_ba << CodePage::Japanese932 << u"日本ｱ\\"_s;
    QTest::newRow("utf-8 goes before the page") << "\xD0\x9F"_ba << CodePage::Cyrillic1251 << u"П"_s;
  }
  void Decodes() {
    QFETCH(QByteArray, bytes);
    QFETCH(CodePage, page);
    QTEST(DecodeText(bytes, page), "text");
  }

  // What is written must be read back as the same text, whatever it is.
  void EncodesWithoutLoss_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("utf8");
    QTest::newRow("ascii") << u"ZZ9QX*1\r\n"_s << false;
    QTest::newRow("western") << u"Ø é €"_s << false;
    QTest::newRow("every byte of 1252") << DecodeText(EveryByte()) << false;
    QTest::newRow("cyrillic") << u"Москва"_s << true;
    QTest::newRow("beyond the base plane") << u"\U0001F426"_s << true;
    QTest::newRow("western that looks like utf-8") << u"Ã©"_s << true;
    QTest::newRow("begins with a mark") << u"\uFEFFx"_s << true;
    QTest::newRow("begins with the mark's bytes") << u"ï»¿é"_s << false;
    QTest::newRow("nul") << QString(u'\0') << false;
  }
  void EncodesWithoutLoss() {
    QFETCH(QString, text);
    QFETCH(bool, utf8);
    const QByteArray bytes = EncodeText(text);
    QCOMPARE(DecodeText(bytes), text);
    QCOMPARE(bytes.startsWith("\xEF\xBB\xBF") && bytes.isValidUtf8(), utf8);
    if (!utf8) QCOMPARE(bytes.size(), text.size());
  }
  void KeepsEveryByteOfAnOlderList() { QCOMPARE(EncodeText(DecodeText(EveryByte())), EveryByte()); }

  void SplitsLines_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("lines");
    QTest::newRow("empty") << QString() << QStringList();
    QTest::newRow("crlf") << u"a\r\nb\r\n"_s << QStringList{u"a"_s, u"b"_s};
    QTest::newRow("mixed, last without end") << u"a\nb\rc\r\nd"_s << QStringList{u"a"_s, u"b"_s, u"c"_s, u"d"_s};
    QTest::newRow("empty lines count") << u"\r\n\n\rx\n\n"_s
                                       << QStringList{QString(), QString(), QString(), u"x"_s, QString()};
    QTest::newRow("lf cr are two ends") << u"a\n\rb"_s << QStringList{u"a"_s, QString(), u"b"_s};
    QTest::newRow("lone end") << u"\r"_s << QStringList{QString()};
  }
  void SplitsLines() {
    QFETCH(QString, text);
    QTEST(SplitLines(text), "lines");
  }

  void WritesWholeFilesOrNone() {
    const QTemporaryDir dir;
    const QString path = dir.filePath(u"list.txt"_s);
    QVERIFY(WriteTextLines(path, {u"Ø1"_s, QString(), u"x"_s}));
    QCOMPARE(ReadFileBytes(path),
             "\xD8"
             "1\r\n\r\nx\r\n"_ba);
    QVERIFY(WriteTextLines(path, {}));
    QCOMPARE(ReadFileBytes(path), QByteArray());
    QVERIFY(WriteTextLines(path, {u"日"_s}));
    QCOMPARE(ReadTextFile(path), u"日\r\n"_s);

    // Targets that cannot be written, for any user: no folder, a folder, no room.
    QVERIFY(!WriteTextLines(dir.filePath(u"missing/list.txt"_s), {u"x"_s}));
    QVERIFY(QDir(dir.path()).mkdir(u"folder"_s));
    QVERIFY(!WriteTextLines(dir.filePath(u"folder"_s), {u"x"_s}));
    for (const int length : {5'000, 100'000}) {  // within the writer's buffer and beyond it
      const bool written = WithoutRoom([&]() { return WriteTextLines(path, {QString(length, u'x')}); });
      QVERIFY(!written);
      QCOMPARE(ReadTextFile(path), u"日\r\n"_s);
    }
    QCOMPARE(QDir(dir.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             (QStringList{u"folder"_s, u"list.txt"_s}));
    QVERIFY(!ReadFileBytes(dir.filePath(u"folder"_s)));
    QVERIFY(!ReadTextFile(dir.filePath(u"none"_s)));
  }

  void ResolvesNamesWithoutCase_data() {
    QTest::addColumn<QString>("asked");
    QTest::addColumn<QString>("found");
    QTest::newRow("exact") << u"Nicknames.txt"_s << u"Nicknames.txt"_s;
    QTest::newRow("other case") << u"NICKNAMES.TXT"_s << u"Nicknames.txt"_s;
    QTest::newRow("exact wins") << u"images/B"_s << u"Images/B"_s;
    QTest::newRow("exact wins, other") << u"images/b"_s << u"Images/b"_s;
    QTest::newRow("each part") << u"images/dsstv/1-1.JPG"_s << u"Images/DSSTV/1-1.jpg"_s;
    QTest::newRow("end missing") << u"images/dsstv/9-9"_s << u"Images/DSSTV/9-9"_s;
    QTest::newRow("folder missing") << u"Maps/World.jpg"_s << u"Maps/World.jpg"_s;
    QTest::newRow("not a pattern") << u"*.txt"_s << u"*.txt"_s;
    QTest::newRow("beyond ascii") << u"ÉTÉ"_s << u"été"_s;
  }
  void ResolvesNamesWithoutCase() {
    QFETCH(QString, asked);
    QFETCH(QString, found);
    const QTemporaryDir dir;
    QVERIFY(QDir(dir.path()).mkpath(u"Images/DSSTV"_s));
    for (const char* name : {"Nicknames.txt", "Images/B", "Images/b", "Images/DSSTV/1-1.jpg", "été"})
      MakeFile(dir.filePath(QString::fromUtf8(name)), "x");
    QCOMPARE(ResolvePath(dir.path(), asked), dir.filePath(found));
  }
};

OMNI_TEST(TestTextFile)
#include "test_text_file.moc"
