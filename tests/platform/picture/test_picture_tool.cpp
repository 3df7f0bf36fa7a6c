// SPDX-License-Identifier: GPL-3.0-or-later
#include <QEventLoop>
#include <QTimer>

#include "no_room.h"
#include "platform/picture/picture_tool.h"
#include "sample_pictures.h"
#include "test_folder.h"

namespace {

constexpr QSize kThumbBox(116, 86);

bool Near(QRgb seen, QRgb wanted) {
  return qAbs(qRed(seen) - qRed(wanted)) <= 40 && qAbs(qGreen(seen) - qGreen(wanted)) <= 40 &&
         qAbs(qBlue(seen) - qBlue(wanted)) <= 40;
}

bool ShowsQuarters(const QImage& image) {
  const auto shows = [&image](int x, int y, QRgb wanted) {
    return Near(image.pixel(image.width() * x / 4, image.height() * y / 4), wanted);
  };
  return shows(1, 1, qRgb(255, 0, 0)) && shows(3, 1, qRgb(0, 255, 0)) && shows(1, 3, qRgb(0, 0, 255)) &&
         shows(3, 3, qRgb(255, 255, 255));
}

}  // namespace

class TestPictureTool : public QObject {
  Q_OBJECT

  // The one answer to a job; it never comes from within the call that starts the job.
  PictureAnswer Answer(const std::function<void(PictureTool::Done)>& start) {
    QList<PictureAnswer> answers;
    QEventLoop loop;
    start([&](const PictureAnswer& answer) {
      answers += answer;
      loop.quit();
    });
    [&]() {
      QVERIFY(answers.isEmpty());
      QTimer::singleShot(15s, &loop, &QEventLoop::quit);
      loop.exec();
      QCOMPARE(answers.size(), 1);
    }();
    return answers.value(0);
  }
  PictureAnswer Load(const QString& path, QSize box = QSize(1000, 1000)) {
    return Answer([&](auto done) { tool_->Load(path, box, this, std::move(done)); });
  }
  PictureAnswer View(const QString& path, QSize box = QSize(1000, 1000)) {
    return Answer([&](auto done) { tool_->View(path, box, this, std::move(done)); });
  }
  PictureAnswer Thumb(const QString& source, const QString& target) {
    return Answer([&](auto done) { tool_->MakeThumb(source, target, kThumbBox, this, std::move(done)); });
  }
  PictureAnswer Measure(const QByteArray& bytes) {
    return Answer([&](auto done) { tool_->Measure(bytes, this, std::move(done)); });
  }

  QString PutGood() const { return folder_.Put(u"good"_s, SamplePicture(u"jpg"_s, QSize(64, 64))); }

  TestFolder folder_;
  std::unique_ptr<PictureTool> tool_;  // goes on from test to test: none of them may leave it worse

 private Q_SLOTS:
  void initTestCase() { tool_ = std::make_unique<PictureTool>(QStringLiteral(PICTURE_TOOL), folder_.path()); }
  void init() {
    for (const QString& file : folder_.Files()) QVERIFY(QFile::remove(folder_.filePath(file)));
  }

  void ThumbsKeepTheirAspect() {
    const auto check = [this](const QString& kind, QSize size, QSize thumb) {
      // Blanks, tabs and signs in a path go through the pipe unharmed.
      const QString source = folder_.Put(u"a picture\t100% ü"_s, SamplePicture(kind, size));
      const QString target = folder_.filePath(u"thumb é.jpg"_s);
      const PictureAnswer answer = Thumb(source, target);
      QVERIFY2(answer.ok, qPrintable(kind));
      QCOMPARE(answer.size, size);
      const QImage made(target, "jpeg");
      QCOMPARE(made.size(), thumb);
      if (thumb.height() > 1 && kind != "gif"_L1) QVERIFY2(ShowsQuarters(made), qPrintable(kind));
      const PictureAnswer loaded = Load(target);
      QVERIFY2(loaded.ok && loaded.depth == 24, qPrintable(kind));
    };
    check(u"jpg"_s, QSize(100, 200), QSize(43, 86));
    check(u"jpg"_s, QSize(200, 100), QSize(116, 58));
    check(u"jpg"_s, QSize(640, 480), QSize(115, 86));
    check(u"png"_s, QSize(40, 30), QSize(115, 86));
    check(u"png"_s, QSize(3000, 2), QSize(116, 1));
    // Large enough to be scaled in several threads.
    for (const QString& kind : {u"png"_s, u"gif"_s, u"jp2"_s}) check(kind, QSize(1280, 1024), QSize(108, 86));
  }

  void EveryTypeIsKnownByContent_data() {
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("depth");
    QTest::addColumn<bool>("loads");
    QTest::newRow("jpg") << u"jpg"_s << 24 << true;
    QTest::newRow("grey.jpg") << u"jpg"_s << 8 << false;
    QTest::newRow("cmyk.jpg") << QString() << 32 << false;  // without a type mark
    QTest::newRow("png") << u"png"_s << 8 << false;
    QTest::newRow("bmp") << u"bmp"_s << 8 << true;
    QTest::newRow("upside.bmp") << u"bmp"_s << 8 << true;
    QTest::newRow("gif") << u"gif"_s << 0 << true;
    QTest::newRow("jp2") << u"jp2"_s << 24 << false;
    QTest::newRow("j2k") << QString() << 24 << false;
    QTest::newRow("grey.jp2") << u"jp2"_s << 8 << false;
    QTest::newRow("deep.jp2") << u"jp2"_s << 36 << false;
    QTest::newRow("ycc.jp2") << u"jp2"_s << 24 << false;
  }
  void EveryTypeIsKnownByContent() {
    const QString kind = QString::fromLatin1(QTest::currentDataTag());
    QFETCH(QString, type);
    QFETCH(int, depth);
    QFETCH(bool, loads);
    const QString path = folder_.Put(u"3-7"_s, SamplePicture(kind, QSize(320, 256)));
    const PictureAnswer loaded = Load(path);
    QCOMPARE(loaded.ok, loads);
    QCOMPARE(loaded.type, type);
    QCOMPARE(loaded.depth, depth);
    QCOMPARE(loaded.size, QSize(320, 256));
    const PictureAnswer viewed = View(path, QSize(160, 160));
    QVERIFY(viewed.ok);
    QCOMPARE(viewed.frames.size(), 1);
    const QImage& image = viewed.frames.first().image;
    QCOMPARE(image.size(), QSize(160, 128));
    QCOMPARE(viewed.frames.first().delay, 0ms);
    if (kind.startsWith("grey"_L1)) {
      QVERIFY(image.isGrayscale());
      QVERIFY(qGreen(image.pixel(40, 30)) < 150);
      QVERIFY(qGreen(image.pixel(120, 100)) > 240);
    } else if (kind == "gif"_L1) {
      QVERIFY(Near(image.pixel(80, 64), qRgb(255, 0, 0)));
    } else if (kind != "cmyk.jpg"_L1) {
      QVERIFY(ShowsQuarters(image));
    }
  }

  void ConvertMakesAPictureLoadable() {
    const auto check = [this](const QString& kind, const QString& target, const QString& type) {
      init();
      const QString source = folder_.Put(u"picture"_s, SamplePicture(kind, QSize(320, 240)));
      const QString path = folder_.filePath(target);
      QVERIFY2(Answer([&](auto done) { tool_->Convert(source, path, this, std::move(done)); }).ok, qPrintable(kind));
      const PictureAnswer loaded = Load(path);
      QVERIFY2(loaded.ok && loaded.type == type && loaded.size == QSize(320, 240), qPrintable(kind));
      const QImage& image = loaded.frames.first().image;
      if (kind == "clear.png"_L1) QVERIFY(Near(image.pixel(100, 100), qRgb(255, 255, 255)));
      if (kind == "png"_L1 || kind == "jp2"_L1) QVERIFY(ShowsQuarters(image));
      QCOMPARE(folder_.Files().size(), path == source ? 1 : 2);
    };
    for (const QString& kind : {u"grey.jpg"_s, u"png"_s, u"jp2"_s, u"clear.png"_s}) {
      check(kind, u"picture"_s, u"jpg"_s);
      check(kind, u"Temp.BMP"_s, u"bmp"_s);
    }
  }

  void AnimationsPlay() {
    const QRgb red = qRgb(255, 0, 0);
    const QRgb blue = qRgb(0, 0, 255);
    const QString path = folder_.Put(u"3-7"_s, AnimatedGif(QSize(60, 40), {{red, 0}, {blue, 1}, {red, 50}}));
    const PictureAnswer answer = Load(path, QSize(30, 30));
    QVERIFY(answer.ok);
    QCOMPARE(answer.frames.size(), 3);
    const QList<std::chrono::milliseconds> delays{100ms, 100ms, 500ms};
    for (qsizetype i = 0; i < 3; ++i) {
      QCOMPARE(answer.frames.at(i).image.size(), QSize(30, 20));
      QCOMPARE(answer.frames.at(i).image.pixel(15, 10), i == 1 ? blue : red);
      QCOMPARE(answer.frames.at(i).delay, delays.at(i));
    }
  }

  // Frames are left out evenly, and their time goes to the frames that stay: the animation still lasts as long as it
  // was made to.
  void AnimationsStayWithinTheirLimits() {
    const auto gif = [](int side, int frames) {
      return AnimatedGif(QSize(side, side), QList<QPair<QRgb, int>>(frames, {qRgb(1, 2, 3), 5}));
    };
    const QString many = folder_.Put(u"many"_s, gif(4, 230));
    const QString large = folder_.Put(u"large"_s, gif(1000, 7));
    for (const auto& [path, frames, total] : {std::tuple{many, 115, 11500ms}, std::tuple{large, 4, 350ms}}) {
      const PictureAnswer answer = Load(path);
      QCOMPARE(answer.frames.size(), frames);
      std::chrono::milliseconds sum{0};
      for (const PictureFrame& frame : answer.frames) sum += frame.delay;
      QCOMPARE(sum, total);
    }
  }

  void MarkersAreMeasured() {
    for (const QSize size : {QSize(1, 412), QSize(2, 1), QSize(1, 30000), QSize(900, 700)}) {
      const PictureAnswer answer = Measure(SamplePicture(u"jpg"_s, size));
      QVERIFY(answer.ok);
      QCOMPARE(answer.size, size);
      QVERIFY(answer.frames.isEmpty());
    }
    // Larger than a pipe holds, and than what the program writes to it at once.
    const QByteArray padded = SamplePicture(u"bmp"_s, QSize(2, 7)) + QByteArray(3'000'000, 'x');
    QCOMPARE(Measure(padded).size, QSize(2, 7));
    // The size alone is read of a picture whose pixels have not come, too, and of none that is above the limits.
    const auto sizeOf = [this](const QByteArray& bytes) {
      return Answer([&](auto done) { tool_->ReadSize(bytes, this, std::move(done)); });
    };
    const QByteArray begun = SamplePicture(u"png"_s, QSize(800, 600)).left(300);
    QVERIFY(!Measure(begun).ok);
    QVERIFY(sizeOf(begun).ok);
    QCOMPARE(sizeOf(begun).size, QSize(800, 600));
    QByteArray bomb = begun;
    bomb.replace(16, 8, QByteArray::fromHex("0000ffff0000ffff"));  // width and height
    QVERIFY(!sizeOf(bomb).ok);
    QVERIFY(!sizeOf("no picture").ok);
  }

  void BadPicturesFailAndTheToolGoesOn_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("garbage") << QByteArray(5000, '\xA7');
    QTest::newRow("error page") << QByteArray("<html><body>404 not found</body></html>").repeated(20);
    for (const QString& kind : {u"jpg"_s, u"png"_s, u"bmp"_s, u"gif"_s, u"jp2"_s, u"j2k"_s}) {
      QTest::addRow("%s of 60000x60000", qPrintable(kind)) << Claim(kind, 60000, 60000);
      QTest::addRow("%s of nothing", qPrintable(kind)) << Claim(kind, 0, 0);
      QTest::addRow("first bytes of %s", qPrintable(kind)) << SamplePicture(kind, QSize(64, 64)).left(20);
    }
    QTest::newRow("jp2 of 65025 tiles") << Claim(u"jp2"_s, 2550, 2550, 10);
    QTest::newRow("jp2 without a codestream") << Claim(u"jp2"_s, 64, 64).left(80);
  }
  void BadPicturesFailAndTheToolGoesOn() {
    QFETCH(QByteArray, bytes);
    const QString bad = folder_.Put(u"bad"_s, bytes);
    QVERIFY(View(PutGood()).ok);
    const QList<qint64> processes = tool_->ProcessIds();
    QVERIFY(!View(bad).ok);
    QVERIFY(!Thumb(bad, folder_.filePath(u"thumb.jpg"_s)).ok);
    QVERIFY(!QFile::exists(folder_.filePath(u"thumb.jpg"_s)));
    QVERIFY(!Measure(bytes).ok);
    QCOMPARE(tool_->ProcessIds(), processes);  // refused, not crashed
  }

  void TruncatedPicturesLeaveTheToolAlive() {
    QVERIFY(View(PutGood()).ok);
    const QList<qint64> processes = tool_->ProcessIds();
    for (const QString& kind : {u"jpg"_s, u"png"_s, u"bmp"_s, u"gif"_s, u"jp2"_s, u"j2k"_s}) {
      const QByteArray whole = SamplePicture(kind, QSize(320, 256));
      for (const int part : {9, 5, 2}) {
        const PictureAnswer answer = View(folder_.Put(u"part"_s, whole.left(whole.size() * part / 10)));
        QCOMPARE(tool_->ProcessIds(), processes);
        QCOMPARE(answer.size, QSize(320, 256));
        // Types that are read from the top show what has come.
        if (part == 9 && kind != "png"_L1) QVERIFY2(answer.ok, qPrintable(kind));
      }
    }
  }

  void WritesOutsideTheFolderAreRefused() {
    const QTemporaryDir outside;
    const QString source = PutGood();
    QVERIFY(QFile::link(outside.path(), folder_.filePath(u"link"_s)));
    for (const QString& target : {outside.filePath(u"a.jpg"_s), folder_.filePath(u"link/a.jpg"_s),
                                  folder_.path() + u"x.jpg"_s, folder_.filePath(u"../a.jpg"_s)}) {
      QVERIFY(!Thumb(source, target).ok);
      QVERIFY(!QFile::exists(target));
    }
    folder_.PutFolder(u"thumbs"_s);
    QVERIFY(Thumb(source, folder_.filePath(u"thumbs/3-7.jpg"_s)).ok);
  }

  void AFailedJobLeavesTheOldFileWhole() {
    const QString thumb = folder_.Put(u"thumb.jpg"_s, "the old one");
    const QByteArray picture = SamplePicture(u"png"_s, QSize(64, 64));
    for (const bool fullDisk : {false, true}) {
      const QString source = folder_.Put(u"picture"_s, fullDisk ? picture : picture.chopped(40));
      const auto make = [&]() { return Thumb(source, thumb); };
      const PictureAnswer answer = fullDisk ? WithoutRoom(make) : make();
      QVERIFY(!answer.ok);
      QCOMPARE(answer.notStored, fullDisk);
      QCOMPARE(answer.size, QSize(64, 64));
      QCOMPARE(folder_.Bytes(u"thumb.jpg"_s), "the old one");
      QCOMPARE(folder_.Files().size(), 2);
    }
  }

  void AMissingProgramFailsEveryJob() {
    PictureTool missing(u"/nowhere/omni-perch-decoder"_s, folder_.path());
    missing.WarmUp();
    int failed = 0;
    for (int i = 0; i < 36; ++i) {
      missing.View(u"picture"_s, kThumbBox, this, [&](const PictureAnswer& answer) { failed += answer.ok ? 0 : 1; });
    }
    QCOMPARE(failed, 0);
    QTRY_COMPARE(failed, 36);
  }

  void NobodyIsCalledWhoIsGone() {
    const QString source = PutGood();
    const QString target = folder_.filePath(u"thumb.jpg"_s);
    int calls = 0;
    {
      QObject asker;
      const auto count = [&](const PictureAnswer&) { ++calls; };
      for (int i = 0; i < 3; ++i) tool_->View(source, kThumbBox, &asker, count);
      tool_->MakeThumb(source, target, kThumbBox, &asker, count);
    }
    QVERIFY(View(source).ok);
    QTRY_VERIFY(QFile::exists(target));
    QCOMPARE(calls, 0);
  }
};

OMNI_TEST(TestPictureTool)
#include "test_picture_tool.moc"
