// SPDX-License-Identifier: GPL-3.0-or-later
#include "no_room.h"
#include "platform/paths.h"
#include "test_folder.h"

class TestTextFile : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void Decodes() {
    const auto check = [](const QByteArray& bytes, const QString& text, CodePage page = CodePage::Western1252) {
      QCOMPARE(DecodeText(bytes, page), text);
    };
    check("", QString());
    check("Jos\xC3\xA9 \xE6\x97\xA5", u"José 日"_s);
    // Of several marks only the first one goes.
    check("\xEF\xBB\xBF\xC3\x98", u"Ø"_s);
    check("\xEF\xBB\xBF\xEF\xBB\xBFx", u"\uFEFFx"_s);
    check("\xEF\xBB\xBF", QString());
    // Bytes that are not valid UTF-8 are text of the code page: cut sequences, surrogates, bytes that the page leaves
    // undefined.
    check("\xD8 \x80 \x93", u"Ø € “"_s);
    check("a\xC3", u"aÃ"_s);
    check("\xED\xA0\x80", u"í\u00A0€"_s);
    check("\x81\xFF", u"\u0081ÿ"_s);
    check("a\0b"_ba, QString::fromLatin1("a\0b", 3));
    check("\x8C\x9C\xB3", u"Śśł"_s, CodePage::CentralEuropean1250);
    check("\xCF\xF0", u"Пр"_s, CodePage::Cyrillic1251);
    check("\x93\xFA\x96\x7B\xB1\\", u"日本ｱ\\"_s, CodePage::Japanese932);
    check("\xD0\x9F", u"П"_s, CodePage::Cyrillic1251);
  }

  // Any text that is written must be read back as the same text.
  void EncodesWithoutLoss() {
    const auto check = [](const QString& text, bool utf8) {
      const QByteArray bytes = EncodeText(text);
      QCOMPARE(DecodeText(bytes), text);
      QVERIFY2((bytes.startsWith("\xEF\xBB\xBF") && bytes.isValidUtf8()) == utf8, qPrintable(text));
      if (!utf8) QCOMPARE(bytes.size(), text.size());
    };
    check(u"ZZ9QX*1\r\n"_s, false);
    check(u"Ø é €"_s, false);
    for (const QString& text : {u"Москва"_s, u"\U0001F426"_s}) check(text, true);
    check(u"Ã©"_s, true);       // its bytes are valid UTF-8
    check(u"\uFEFFx"_s, true);  // begins with a mark
    check(u"ï»¿é"_s, false);    // begins with the bytes of one
    QByteArray everyByte;
    for (int i = 0; i < 256; ++i) everyByte += static_cast<char>(i);
    check(DecodeText(everyByte), false);
    QCOMPARE(EncodeText(DecodeText(everyByte)), everyByte);
  }

  void SplitsLines() {
    const auto check = [](const QString& text, const QString& lines) { QCOMPARE(SplitLines(text).join(u'|'), lines); };
    QCOMPARE(SplitLines(QString()), QStringList());
    QCOMPARE(SplitLines(u"\r"_s), QStringList{QString()});
    check(u"a\r\nb\r\n"_s, u"a|b"_s);
    check(u"a\nb\rc\r\nd"_s, u"a|b|c|d"_s);
    check(u"\r\n\n\rx\n\n"_s, u"|||x|"_s);
    check(u"a\n\rb"_s, u"a||b"_s);
  }

  void WritesWholeFilesOrNone() {
    const TestFolder dir;
    const QString path = dir.filePath(u"list.txt"_s);
    const auto check = [&](const QStringList& lines, const QByteArray& bytes) {
      QVERIFY(WriteTextLines(path, lines));
      QCOMPARE(dir.Bytes(u"list.txt"_s), bytes);
    };
    check({u"Ø-1"_s, QString(), u"x"_s}, "\xD8-1\r\n\r\nx\r\n");
    check({}, QByteArray());
    check({u"日"_s}, "\xEF\xBB\xBF\xE6\x97\xA5\r\n");
    QCOMPARE(ReadTextFile(path), u"日\r\n"_s);

    // Targets that no user can write: in a missing folder, a folder itself, on a full disk.
    dir.PutFolder(u"folder"_s);
    QVERIFY(!WriteTextLines(dir.filePath(u"missing/list.txt"_s), {u"x"_s}));
    QVERIFY(!WriteTextLines(dir.filePath(u"folder"_s), {u"x"_s}));
    for (const int length : {5'000, 100'000}) {  // within the writer's buffer and beyond it
      QVERIFY(!WithoutRoom([&]() { return WriteTextLines(path, {QString(length, u'x')}); }));
      QCOMPARE(ReadTextFile(path), u"日\r\n"_s);
    }
    QCOMPARE(dir.Files(), QStringList{u"list.txt"_s});
    QVERIFY(!ReadFileBytes(dir.filePath(u"folder"_s)) && !ReadTextFile(dir.filePath(u"none"_s)));
  }

  void ResolvesNamesWithoutCase() {
    const TestFolder dir;
    dir.PutFolder(u"Images/DSSTV"_s);
    const QStringList names{u"Nicknames.txt"_s, u"Images/B"_s, u"Images/b"_s, u"Images/DSSTV/1-1.jpg"_s, u"été"_s};
    for (const QString& name : names) dir.Put(name, "x");
    const auto check = [&dir](const QString& asked, const QString& found) {
      QCOMPARE(ResolvePath(dir.path(), asked), dir.filePath(found));
    };
    check(u"NICKNAMES.TXT"_s, u"Nicknames.txt"_s);
    check(u"images/B"_s, u"Images/B"_s);
    check(u"images/b"_s, u"Images/b"_s);
    check(u"images/dsstv/1-1.JPG"_s, u"Images/DSSTV/1-1.jpg"_s);
    check(u"images/dsstv/9-9"_s, u"Images/DSSTV/9-9"_s);
    check(u"Maps/World.jpg"_s, u"Maps/World.jpg"_s);
    check(u"*.txt"_s, u"*.txt"_s);
    check(u"ÉTÉ"_s, u"été"_s);
  }
};

OMNI_TEST(TestTextFile)
#include "test_text_file.moc"
