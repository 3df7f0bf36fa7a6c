// SPDX-License-Identifier: GPL-3.0-or-later
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include "platform/picture/file_type.h"
#include "test_suite.h"

using namespace Qt::StringLiterals;

class TestFileType : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void Tells_data();
  void Tells();
};

void TestFileType::Tells_data() {
  QTest::addColumn<QByteArray>("bytes");
  QTest::addColumn<QString>("type");
  QTest::newRow("gif") << QByteArray("GIF89a") << u"gif"_s;
  QTest::newRow("bare jpeg") << QByteArray("\xFF\xD8\xFF\xDB") << u""_s;
  QTest::newRow("jp2") << QByteArray(
                              "\0\0\0\x0CjP  \r\n\x87\n\0\0\0\x14"
                              "ftypjp2 ",
                              24)
                       << u"jp2"_s;
  QTest::newRow("mp4") << QByteArray(
                              "\0\0\0\x18"
                              "ftypmp42",
                              12)
                       << u"mp4"_s;
  QTest::newRow("error page") << QByteArray("<h1>404 locked</h1>") << u"404"_s;
  QTest::newRow("gif in a jpeg's comment") << QByteArray("\xFF\xD8 JFIF made from a Gif") << u"gif"_s;
  QTest::newRow("jpeg before jp2") << QByteArray("jp2 exif") << u"jpg"_s;
  QTest::newRow("the 300th byte") << QByteArray(297, '.') + "png" << u"png"_s;
  QTest::newRow("the 301st byte") << QByteArray(298, '.') + "png" << u""_s;
  QTest::newRow("empty") << QByteArray() << u""_s;
}

void TestFileType::Tells() {
  QFETCH(const QByteArray, bytes);
  QFETCH(const QString, type);
  QCOMPARE(FileTypeOf(bytes), type);

  const QTemporaryDir folder;
  const QString path = folder.filePath(u"1-1"_s);
  QCOMPARE(GetFileType(path), QString());
  QFile file(path);
  QVERIFY(file.open(QIODevice::WriteOnly));
  file.write(bytes);
  file.close();
  QCOMPARE(GetFileType(path), type);
}

OMNI_TEST(TestFileType)
#include "test_file_type.moc"
