// SPDX-License-Identifier: GPL-3.0-or-later
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include "platform/text/delimited_fields.h"
#include "station/nicknames.h"
#include "test_suite.h"

using namespace Qt::StringLiterals;

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
    const QTemporaryDir folder;
    QCOMPARE(ReadNicknames(folder.path()).lstNicknames, QStringList());

    QFile file(folder.filePath(u"nicknames.TXT"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("AB1CD*Jos\xE9\nZZ9QX*\"Q\", Max\n");
    file.close();
    const NicknameList read = ReadNicknames(folder.path());
    QCOMPARE(read.lstNicknames, (QStringList{u"AB1CD*José"_s, u"ZZ9QX*\"Q\""_s, u"Max"_s}));

    QVERIFY(WriteNicknames(folder.path(), read));
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList{u"nicknames.TXT"_s});
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("AB1CD*Jos\xE9\r\nZZ9QX*\"Q\"\r\nMax\r\n"));

    const QTemporaryDir fresh;
    QVERIFY(WriteNicknames(fresh.path(), {}));
    QCOMPARE(QDir(fresh.path()).entryList(QDir::Files), QStringList{u"Nicknames.txt"_s});
  }

  // A folder in the file's place cannot be read as a file by any user, root included. What stands there by the time of
  // closing is not known to this run.
  void LeavesAnUnreadableFile() {
    const QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkdir(u"nicknames.txt"_s));
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
