// SPDX-License-Identifier: GPL-3.0-or-later
// The file that an action is about, and what a copy of it puts on the clipboard.
#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include "display/picture_copy.h"
#include "display/picture_info.h"
#include "display/picture_save.h"
#include "no_room.h"
#include "sample_pictures.h"
#include "test_folder.h"

namespace {

// Finds and copies pictures of a folder.
struct CopyFixture {
  TestFolder folder;
  PictureTool tool{QStringLiteral(PICTURE_TOOL), folder.path()};
  Background background;
  SourceFiles files{{tool, background}};
  PictureCopy copy{{tool, background, folder.path()}};
  QList<CopyResult> results;

  CopyFixture() { folder.PutFolder(u"images"_s); }

  void Find(const QString& name, const SourceFiles::Found& found) {
    SourcePicture picture;
    picture.file = folder.filePath(name);
    files.FindSourceFile(picture, &copy, found);
  }
  void Copy(const QString& name) {
    Find(name, [this](const SourceFile& file) {
      copy.CopyPicture(file, [this](CopyResult result) { results.append(result); });
    });
  }
  static QByteArray Held(const QString& format) {
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    return data == nullptr ? QByteArray() : data->data(format);
  }
};

}  // namespace

class TestPictureCopy : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void PutsAnImageOnTheClipboard() {
    const auto check = [](const char* kind, const QByteArray& bytes, const QString& own, bool animated) {
      const TableRow row(kind);
      CopyFixture f;
      f.folder.Put(u"1-1"_s, bytes);
      f.Copy(u"1-1"_s);
      QTRY_COMPARE(f.results, QList{CopyResult::Copied});
      QStringList formats{u"image/png"_s, u"image/bmp"_s};
      if (!own.isEmpty()) formats.append(own);
      QCOMPARE(QGuiApplication::clipboard()->mimeData()->formats(), formats);  // never a list of files
      if (!own.isEmpty()) QCOMPARE(CopyFixture::Held(own), bytes);
      const QImage png = QImage::fromData(CopyFixture::Held(u"image/png"_s), "PNG");
      QCOMPARE(png.size(), QSize(60, 40));
      QVERIFY(qAbs(qRed(png.pixel(5, 5)) - 255) < 10 && qGreen(png.pixel(5, 5)) < 10);
      const QImage bmp = QImage::fromData(CopyFixture::Held(u"image/bmp"_s), "BMP");
      QCOMPARE(bmp.convertToFormat(QImage::Format_RGB32), png.convertToFormat(QImage::Format_RGB32));
      QCOMPARE(f.folder.Bytes(u"images/paste.gif"_s), animated ? bytes : "none"_ba);
    };
    const QSize size(60, 40);
    check("jpg", SamplePicture(u"jpg"_s, size), u"image/jpeg"_s, false);
    check("png", SamplePicture(u"png"_s, size), {}, false);
    check("jp2", SamplePicture(u"jp2"_s, size), {}, false);
    check("gif", SamplePicture(u"gif"_s, size), u"image/gif"_s, false);
    check("animated", AnimatedGif(size, {{qRgb(255, 0, 0), 10}, {qRgb(0, 0, 255), 10}}), u"image/gif"_s, true);
  }

  // Whatever comes into the file's place after the click, the picture of the click is copied.
  void CopiesThePictureOfTheClick() {
    CopyFixture f;
    const QByteArray clicked = SamplePicture(u"jpg"_s, QSize(60, 40));
    f.folder.Put(u"newer"_s, SamplePicture(u"jpg"_s, QSize(90, 90)));
    f.folder.Put(u"1-1"_s, clicked);
    f.Copy(u"1-1"_s);
    QVERIFY(QFile::remove(f.folder.filePath(u"1-1"_s)));
    QVERIFY(QFile::rename(f.folder.filePath(u"newer"_s), f.folder.filePath(u"1-1"_s)));
    QTRY_COMPARE(f.results, QList{CopyResult::Copied});
    QCOMPARE(CopyFixture::Held(u"image/jpeg"_s), clicked);
  }

  void ANewerCopyEndsTheOneUnderWay() {
    CopyFixture f;
    f.folder.Put(u"1"_s, SamplePicture(u"jpg"_s, QSize(2000, 1500)));
    f.folder.Put(u"2.jpg"_s, SamplePicture(u"jpg"_s, QSize(60, 40)));
    f.Copy(u"1"_s);
    f.Copy(u"2"_s);  // found by its extension
    QTRY_COMPARE(f.results, (QList{CopyResult::Superseded, CopyResult::Copied}));
    QCOMPARE(CopyFixture::Held(u"image/jpeg"_s), f.folder.Bytes(u"2.jpg"_s));
    // What cannot be copied leaves no other picture for a paste; what has vanished leaves the clipboard alone.
    f.Copy(u"none"_s);
    QTRY_COMPARE(f.results.size(), 3);
    QVERIFY(!CopyFixture::Held(u"image/png"_s).isEmpty());
    f.folder.Put(u"3"_s, "no picture");
    f.Copy(u"3"_s);
    QTRY_COMPARE(f.results.mid(2), (QList{CopyResult::Vanished, CopyResult::NotDecoded}));
    QVERIFY(CopyFixture::Held(u"image/png"_s).isEmpty());
  }

  void NamesTheFile() {
    const auto check = [](const QString& sender, const QString& sent, const QString& name) {
      SourceFile file;
      file.picture.site = u"ZZ1AA"_s;
      file.picture.sender = sender;
      file.picture.sentTime = sent;
      QCOMPARE(SuggestedName(file), name);
    };
    check(u"ZZ9QX"_s, u"01/24/2024 15:30"_s, u"ZZ9QX 2024_01_24 15_30"_s);
    check(u"Not found"_s, u"1/4/2024"_s, u"ZZ1AA 2024_01_04"_s);
    check(u"ZZ9QX/P"_s, u"no date"_s, u"ZZ9QX_P"_s);
    check(u"../../etc"_s, {}, u"_.._etc"_s);
    check(u"...\u202Egpj\u200F.a\0b\n|"_s, {}, u"gpj.ab"_s);
    check(u". .."_s, {}, u"Omni-Perch"_s);
    check(QString(300, u'ł'), {}, QString(100, u'ł'));
  }

  // Two saves give two numbers, and a number is taken whatever its extension.
  void ReplacesNothingAndLeavesNothingHalf() {
    const TestFolder folder;
    const auto number = [&folder](const QString& extension) {
      return QFileInfo(SaveNumbered(folder.path(), extension, "picture").path).fileName();
    };
    QCOMPARE(number(u"jpg"_s), u"Omni-Perch_1.jpg"_s);
    folder.Put(u"Omni-Perch_2.txt"_s, "kept");
    QCOMPARE(number(u"gif"_s), u"Omni-Perch_3.gif"_s);
    const auto beside = [&folder]() { return SaveBesides(folder.path(), u"a"_s, u"jpg"_s, "picture"); };
    QVERIFY(beside().path.endsWith("/a.jpg"_L1) && beside().path.endsWith("/a (2).jpg"_L1));
    folder.Put(u"over.jpg"_s, "kept");
    const QByteArray large(5000, 'x');
    const QStringList before = folder.Files();
    QVERIFY(!WithoutRoom([&]() { return SaveNumbered(folder.path(), u"jpg"_s, large); }).saved);
    QVERIFY(!WithoutRoom([&]() { return SaveBesides(folder.path(), u"b"_s, u"jpg"_s, large); }).saved);
    QVERIFY(!WithoutRoom([&]() { return SaveOver(folder.filePath(u"over.jpg"_s), large); }).saved);
    QVERIFY(!SaveNumbered(folder.filePath(u"none"_s), u"jpg"_s, large).saved);
    QCOMPARE(folder.Files(), before);
    QCOMPARE(folder.Bytes(u"over.jpg"_s), "kept"_ba);
  }

  void TellsWhatTheFileSaysOfItself() {
    CopyFixture f;
    const auto text = [&f](const QByteArray& bytes) {
      QString told;
      f.tool.ReadFacts(bytes, &f.copy, [&](const PictureAnswer& answer) {
        SourceFile file{{}, u"/pictures/1-1"_s, bytes, u"jpg"_s, false};
        file.picture.mode = u"JT65 snr 5"_s;
        file.picture.sentTime = u"1/24/2024 15:30"_s;
        file.picture.source.window = PictureSource::Window::Page;
        told = PictureInfoText(file, answer.size, answer.facts, QLocale(u"en_US"_s));
      });
      return QTest::qWaitFor([&]() { return !told.isEmpty(); }) ? told.split(u"\r\n"_s) : QStringList();
    };
    const auto segment = [](char marker, const QByteArray& content) {
      const auto length = static_cast<quint16>(content.size() + 2);
      return QByteArray("\xFF") + marker + static_cast<char>(length >> 8) + static_cast<char>(length) + content;
    };
    QByteArray jpeg = SamplePicture(u"jpg"_s, QSize(600, 300));
    // An Exif directory of one entry: the creator, in Windows-1252.
    const QByteArray exif = QByteArray::fromHex(
                                "45786966000049492a0008000000"
                                "0100"
                                "3b010200"
                                "07000000"
                                "1a000000"
                                "00000000") +
                            "J\xF6rg ZZ";
    const QByteArray jfif = QByteArray::fromHex(
        "4a46494600"
        "0102"
        "01"
        "012c012c"
        "0000");  // 300 dpi
    jpeg =
        jpeg.left(2) + segment('\xE0', jfif) + segment('\xE1', exif) + segment('\xFE', "Hello\nEasyPal") + jpeg.mid(2);
    QStringList lines = text(jpeg);
    // The decoder's rounding decides how many there are.
    QCOMPARE(lines.removeIf([](const QString& line) { return line.startsWith(u"Number of unique colors = "_s); }), 1);
    QCOMPARE(lines, (QStringList{u"File name = 1-1"_s,
                                 u"File path = /pictures"_s,
                                 u"Mode = JT65"_s,
                                 u"File size = %1 bytes"_s.arg(QLocale(u"en_US"_s).toString(jpeg.size())),
                                 u"Print size = 5.08 x 2.54 cm"_s,
                                 u"Print size = 2.00 x 1.00 in"_s,
                                 u"Color depth = 24 (24 BitsPerPixel)"_s,
                                 u"File date/time = 1/24/2024 15:30"_s,
                                 u"CREATOR = Jörg ZZ"_s,
                                 u"COMMENT = Hello"_s,
                                 u"COMMENT = EasyPal"_s,
                                 {}}));
    // Comments without end, and one that claims more than there is, cost a moment and no more.
    QByteArray flood("\xFF\xD8");
    for (int i = 0; i < 500; ++i) flood += segment('\xFE', QByteArray(60'000, '\n') + "x");
    QVERIFY(text(flood + "\xFF\xFE\xFF").contains(u"COMMENT = x"_s));
  }
};

OMNI_TEST(TestPictureCopy)
#include "test_picture_copy.moc"
