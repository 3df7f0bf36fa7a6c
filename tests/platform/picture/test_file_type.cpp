// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/picture/file_type.h"
#include "test_folder.h"

class TestFileType : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void KnowsTypesByTheirBytes() {
    const TestFolder folder;
    QCOMPARE(GetFileType(folder.filePath(u"1-1"_s)), QString());
    const auto check = [&folder](const QByteArray& bytes, const QString& type) {
      QCOMPARE(FileTypeOf(bytes), type);
      QCOMPARE(GetFileType(folder.Put(u"1-1"_s, bytes)), type);
    };
    check("GIF89a", u"gif"_s);
    check("\xFF\xD8\xFF\xDB", QString());  // a JPEG without a type mark
    check(QByteArray("\0\0\0\x0CjP  \r\n\x87\n\0\0\0\x14", 16) + "ftypjp2 ", u"jp2"_s);
    check(QByteArray("\0\0\0\x18", 4) + "ftypmp42", u"mp4"_s);
    check("<h1>404 locked</h1>", u"404"_s);
    check("\xFF\xD8 JFIF made from a Gif", u"gif"_s);
    check("jp2 exif", u"jpg"_s);
    check(QByteArray(297, '.') + "png", u"png"_s);
    check(QByteArray(298, '.') + "png", QString());  // only 300 bytes are looked at
    check(QByteArray(), QString());
  }
};

OMNI_TEST(TestFileType)
#include "test_file_type.moc"
