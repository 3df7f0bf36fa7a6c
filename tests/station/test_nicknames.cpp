// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/delimited_fields.h"
#include "station/nicknames.h"
#include "test_folder.h"

class TestNicknames : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void SplitsFields() {
    const auto check = [](const QString& text, const QString& fields) {
      QCOMPARE(SplitFields(text).join(u'|'), fields);
    };
    QCOMPARE(SplitFields(u""_s), QStringList());
    check(u"A\r\nB\nC\rD"_s, u"A|B|C|D"_s);
    check(u"A*Joe, Jr\r\nB"_s, u"A*Joe|Jr|B"_s);
    check(u"\"A*Joe, Jr\",\"B\"\n"_s, u"A*Joe, Jr|B"_s);
    check(u"A*Joe \"Jack\" X"_s, u"A*Joe \"Jack\" X"_s);
    check(u"\"A*Joe\nB"_s, u"A*Joe|B"_s);
    check(u"\"\nB"_s, u"|B"_s);
    check(u"A,\n\nB"_s, u"A|||B"_s);
  }

  void KeepsOneFileOfAnyLetterCase() {
    const TestFolder folder;
    QCOMPARE(ReadNicknames(folder.path()).lstNicknames, QStringList());
    folder.Put(u"nicknames.TXT"_s, "AB1CD*Jos\xE9\nZZ9QX*\"Q\", Max\n");
    const NicknameList read = ReadNicknames(folder.path());
    QCOMPARE(read.lstNicknames, (QStringList{u"AB1CD*José"_s, u"ZZ9QX*\"Q\""_s, u"Max"_s}));

    QVERIFY(WriteNicknames(folder.path(), read));
    QCOMPARE(folder.Files(), QStringList{u"nicknames.TXT"_s});
    QCOMPARE(folder.Bytes(u"nicknames.TXT"_s), QByteArray("AB1CD*Jos\xE9\r\nZZ9QX*\"Q\"\r\nMax\r\n"));

    const TestFolder fresh;
    QVERIFY(WriteNicknames(fresh.path(), {}));
    QCOMPARE(fresh.Files(), QStringList{u"Nicknames.txt"_s});
  }

  // What could not be read is not written over at closing, not even when a file is there by then: this run does not
  // know what is in it.
  void LeavesAnUnreadableFile() {
    const TestFolder folder;
    folder.PutFolder(u"nicknames.txt"_s);
    const NicknameList read = ReadNicknames(folder.path());
    QVERIFY(!WriteNicknames(folder.path(), read));

    QVERIFY(QDir(folder.path()).rmdir(u"nicknames.txt"_s));
    QVERIFY(WriteNicknames(folder.path(), {{u"AB1CD*Joe"_s}, false}));
    QVERIFY(!WriteNicknames(folder.path(), read));
    QCOMPARE(ReadNicknames(folder.path()).lstNicknames, QStringList{u"AB1CD*Joe"_s});
  }

  void Finds() {
    const QStringList rows = {u"AB1CDE*Long"_s, u"AB1CD*Short"_s, u"ZZ9QX"_s, u"ZZ0Q*"_s, u"K1*Bob*more"_s, u""_s};
    const std::optional<QString> none;
    QCOMPARE(Nickname(rows, u"AB1CD"_s), u"Long"_s);
    QCOMPARE(Nickname(rows, u"ab1cde"_s), u"Long"_s);
    QCOMPARE(Nickname(rows, u"K1"_s), u"Bob"_s);
    QCOMPARE(Nickname(rows, u"ZZ0Q"_s), u""_s);
    QCOMPARE(Nickname(rows, u"ZZ9QX"_s), none);
    QCOMPARE(Nickname(rows, u"ZZ9QXX"_s), none);
    QCOMPARE(Nickname(rows, u""_s), none);
  }
};

OMNI_TEST(TestNicknames)
#include "test_nicknames.moc"
