// SPDX-License-Identifier: GPL-3.0-or-later
// The file that an action is about, and what a copy of it puts on the clipboard.
#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include "display/picture_copy.h"
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
    const auto check = [](const QString& sent, const QString& stamp) { QCOMPARE(MakeFileStamp(sent), stamp); };
    check(u"01/24/2024 15:30"_s, u"2024_01_24 15_30"_s);
    check(u"1/4/2024"_s, u"2024_01_04"_s);
    check(u"no date"_s, {});
  }
};

OMNI_TEST(TestPictureCopy)
#include "test_picture_copy.moc"
