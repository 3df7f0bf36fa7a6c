// SPDX-License-Identifier: GPL-3.0-or-later
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include "no_room.h"
#include "platform/picture/picture_tool.h"
#include "sample_pictures.h"
#include "test_suite.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr QSize kThumbBox(116, 86);
const QString kToolPath = QStringLiteral(PICTURE_TOOL);

bool Near(QRgb seen, QRgb wanted, int tolerance = 40) {
  return qAbs(qRed(seen) - qRed(wanted)) <= tolerance && qAbs(qGreen(seen) - qGreen(wanted)) <= tolerance &&
         qAbs(qBlue(seen) - qBlue(wanted)) <= tolerance;
}

bool ShowsQuarters(const QImage& image) {
  const int left = image.width() / 4;
  const int right = image.width() * 3 / 4;
  const int top = image.height() / 4;
  const int low = image.height() * 3 / 4;
  return Near(image.pixel(left, top), qRgb(255, 0, 0)) && Near(image.pixel(right, top), qRgb(0, 255, 0)) &&
         Near(image.pixel(left, low), qRgb(0, 0, 255)) && Near(image.pixel(right, low), qRgb(255, 255, 255));
}

}  // namespace

class TestPictureTool : public QObject {
  Q_OBJECT

  using Start = std::function<void(PictureTool&, PictureTool::Done)>;

  QString Put(const QString& name, const QByteArray& bytes) const;
  PictureAnswer Answer(const Start& start);
  PictureAnswer Load(const QString& path, QSize box = QSize(1000, 1000));
  PictureAnswer View(const QString& path, QSize box = QSize(1000, 1000));
  PictureAnswer Thumb(const QString& source, const QString& target);

  std::unique_ptr<QTemporaryDir> folder_;
  std::unique_ptr<PictureTool> common_;  // goes on from test to test: none of them may leave it worse
  PictureTool* tool_ = nullptr;

 private Q_SLOTS:
  void initTestCase();
  void init();

  void ThumbsKeepTheirAspect_data();
  void ThumbsKeepTheirAspect();
  void EveryTypeIsKnownByContent_data();
  void EveryTypeIsKnownByContent();
  void ConvertMakesAPictureLoadable_data();
  void ConvertMakesAPictureLoadable();
  void AnimationsPlay();
  void AnimationsStayWithinTheirLimits();
  void MarkersAreMeasured();
  void BadPicturesFailAndTheToolGoesOn_data();
  void BadPicturesFailAndTheToolGoesOn();
  void TruncatedPicturesLeaveTheToolAlive();
  void WritesOutsideTheFolderAreRefused();
  void AFailedJobLeavesTheOldFileWhole_data();
  void AFailedJobLeavesTheOldFileWhole();
  void AMissingProgramFailsEveryJob();
  void NobodyIsCalledWhoIsGone();
};

void TestPictureTool::initTestCase() {
  folder_ = std::make_unique<QTemporaryDir>();
  common_ = std::make_unique<PictureTool>(kToolPath, folder_->path());
}

void TestPictureTool::init() {
  for (const QFileInfo& file : QDir(folder_->path()).entryInfoList(QDir::Files | QDir::Hidden)) {
    QVERIFY(QFile::remove(file.filePath()));
  }
  tool_ = common_.get();
}

QString TestPictureTool::Put(const QString& name, const QByteArray& bytes) const {
  QString path = folder_->filePath(name);
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) qFatal("no room for a test file");
  return path;
}

PictureAnswer TestPictureTool::Answer(const Start& start) {
  int calls = 0;
  PictureAnswer answer;
  QEventLoop loop;
  start(*tool_, [&](const PictureAnswer& given) {
    answer = given;
    ++calls;
    loop.quit();
  });
  [&]() {
    QCOMPARE(calls, 0);  // never from within the call
    QTimer::singleShot(15s, &loop, &QEventLoop::quit);
    loop.exec();
    QCOMPARE(calls, 1);
  }();
  return answer;
}

PictureAnswer TestPictureTool::Load(const QString& path, QSize box) {
  return Answer([&](PictureTool& tool, auto done) { tool.Load(path, box, this, std::move(done)); });
}

PictureAnswer TestPictureTool::View(const QString& path, QSize box) {
  return Answer([&](PictureTool& tool, auto done) { tool.View(path, box, this, std::move(done)); });
}

PictureAnswer TestPictureTool::Thumb(const QString& source, const QString& target) {
  return Answer(
      [&](PictureTool& tool, auto done) { tool.MakeThumb(source, target, kThumbBox, this, std::move(done)); });
}

void TestPictureTool::ThumbsKeepTheirAspect_data() {
  QTest::addColumn<QString>("kind");
  QTest::addColumn<QSize>("size");
  QTest::addColumn<QSize>("thumb");
  QTest::newRow("tall") << u"jpg"_s << QSize(100, 200) << QSize(43, 86);
  QTest::newRow("wide") << u"jpg"_s << QSize(200, 100) << QSize(116, 58);
  QTest::newRow("usual") << u"jpg"_s << QSize(640, 480) << QSize(115, 86);
  QTest::newRow("enlarged") << u"png"_s << QSize(40, 30) << QSize(115, 86);
  // Large enough to be scaled in several threads.
  QTest::newRow("large png") << u"png"_s << QSize(1280, 1024) << QSize(108, 86);
  QTest::newRow("large gif") << u"gif"_s << QSize(1280, 1024) << QSize(108, 86);
  QTest::newRow("large jp2") << u"jp2"_s << QSize(1280, 1024) << QSize(108, 86);
  QTest::newRow("a line") << u"png"_s << QSize(3000, 2) << QSize(116, 1);
}

void TestPictureTool::ThumbsKeepTheirAspect() {
  QFETCH(QString, kind);
  QFETCH(QSize, size);
  QFETCH(QSize, thumb);
  // Blanks, tabs and signs in a path go through the pipe unharmed.
  const QString source = Put(u"a picture\t100% ü"_s, SamplePicture(kind, size));
  const QString target = folder_->filePath(u"thumb é.jpg"_s);
  const PictureAnswer answer = Thumb(source, target);
  QVERIFY(answer.ok);
  QCOMPARE(answer.size, size);
  const QImage made(target, "jpeg");
  QCOMPARE(made.size(), thumb);
  if (thumb.height() > 1 && kind != "gif"_L1) QVERIFY(ShowsQuarters(made));
  const PictureAnswer loaded = Load(target);
  QVERIFY(loaded.ok);
  QCOMPARE(loaded.depth, 24);
}

void TestPictureTool::EveryTypeIsKnownByContent_data() {
  QTest::addColumn<QString>("kind");
  QTest::addColumn<QString>("type");
  QTest::addColumn<int>("depth");
  QTest::addColumn<bool>("loads");
  QTest::newRow("jpg") << u"jpg"_s << u"jpg"_s << 24 << true;
  QTest::newRow("grey jpg") << u"grey.jpg"_s << u"jpg"_s << 8 << false;
  QTest::newRow("cmyk jpg without a type mark") << u"cmyk.jpg"_s << QString() << 32 << false;
  QTest::newRow("png") << u"png"_s << u"png"_s << 8 << false;
  QTest::newRow("bmp") << u"bmp"_s << u"bmp"_s << 8 << true;
  QTest::newRow("bmp from the top down") << u"upside.bmp"_s << u"bmp"_s << 8 << true;
  QTest::newRow("gif") << u"gif"_s << u"gif"_s << 0 << true;
  QTest::newRow("jp2") << u"jp2"_s << u"jp2"_s << 24 << false;
  QTest::newRow("codestream") << u"j2k"_s << QString() << 24 << false;
  QTest::newRow("grey jp2") << u"grey.jp2"_s << u"jp2"_s << 8 << false;
  QTest::newRow("deep jp2") << u"deep.jp2"_s << u"jp2"_s << 36 << false;
  QTest::newRow("jp2 with colour at half the size") << u"ycc.jp2"_s << u"jp2"_s << 24 << false;
}

void TestPictureTool::EveryTypeIsKnownByContent() {
  QFETCH(QString, kind);
  QFETCH(QString, type);
  QFETCH(int, depth);
  QFETCH(bool, loads);
  const QString path = Put(u"3-7"_s, SamplePicture(kind, QSize(320, 256)));
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

void TestPictureTool::ConvertMakesAPictureLoadable_data() {
  QTest::addColumn<QString>("kind");
  QTest::addColumn<QString>("target");
  for (const QString& kind : {u"grey.jpg"_s, u"png"_s, u"jp2"_s, u"clear.png"_s}) {
    QTest::addRow("%s onto itself", qPrintable(kind)) << kind << u"picture"_s;
    QTest::addRow("%s into a bitmap", qPrintable(kind)) << kind << u"Temp.BMP"_s;
  }
}

void TestPictureTool::ConvertMakesAPictureLoadable() {
  QFETCH(QString, kind);
  QFETCH(QString, target);
  const QString source = Put(u"picture"_s, SamplePicture(kind, QSize(320, 240)));
  const QString path = folder_->filePath(target);
  QVERIFY(Answer([&](PictureTool& tool, auto done) { tool.Convert(source, path, this, std::move(done)); }).ok);
  const PictureAnswer loaded = Load(path);
  QVERIFY(loaded.ok);
  QCOMPARE(loaded.size, QSize(320, 240));
  QCOMPARE(loaded.type, target == "picture"_L1 ? u"jpg"_s : u"bmp"_s);
  const QImage& image = loaded.frames.first().image;
  if (kind == "clear.png"_L1) QVERIFY(Near(image.pixel(100, 100), qRgb(255, 255, 255)));
  if (kind == "png"_L1 || kind == "jp2"_L1) QVERIFY(ShowsQuarters(image));
  QCOMPARE(QDir(folder_->path()).entryList(QDir::Files | QDir::Hidden).size(), target == "picture"_L1 ? 1 : 2);
}

void TestPictureTool::AnimationsPlay() {
  const QRgb red = qRgb(255, 0, 0);
  const QRgb blue = qRgb(0, 0, 255);
  const QString path = Put(u"3-7"_s, AnimatedGif(QSize(60, 40), {{red, 0}, {blue, 1}, {red, 50}}));
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

// Frames are left out evenly, and their time goes to those that stay: the animation still lasts as long as it was made
// to.
void TestPictureTool::AnimationsStayWithinTheirLimits() {
  const auto gif = [](int side, int frames) {
    return AnimatedGif(QSize(side, side), QList<QPair<QRgb, int>>(frames, {qRgb(1, 2, 3), 5}));
  };
  const QString many = Put(u"many"_s, gif(4, 230));
  const QString large = Put(u"large"_s, gif(1000, 7));
  for (const auto& [path, frames, total] : {std::tuple{many, 115, 11500ms}, std::tuple{large, 4, 350ms}}) {
    const PictureAnswer answer = Load(path);
    QCOMPARE(answer.frames.size(), frames);
    std::chrono::milliseconds sum{0};
    for (const PictureFrame& frame : answer.frames) sum += frame.delay;
    QCOMPARE(sum, total);
  }
}

void TestPictureTool::MarkersAreMeasured() {
  for (const QSize size : {QSize(1, 412), QSize(2, 1), QSize(1, 30000), QSize(900, 700)}) {
    const QByteArray marker = SamplePicture(u"jpg"_s, size);
    const PictureAnswer answer =
        Answer([&](PictureTool& tool, auto done) { tool.Measure(marker, this, std::move(done)); });
    QVERIFY(answer.ok);
    QCOMPARE(answer.size, size);
    QVERIFY(answer.frames.isEmpty());
  }
  // Larger than a pipe holds and than one write of the driver.
  const QByteArray padded = SamplePicture(u"bmp"_s, QSize(2, 7)) + QByteArray(3'000'000, 'x');
  QCOMPARE(Answer([&](PictureTool& tool, auto done) { tool.Measure(padded, this, std::move(done)); }).size,
           QSize(2, 7));
}

void TestPictureTool::BadPicturesFailAndTheToolGoesOn_data() {
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

void TestPictureTool::BadPicturesFailAndTheToolGoesOn() {
  QFETCH(QByteArray, bytes);
  const QString bad = Put(u"bad"_s, bytes);
  QVERIFY(View(Put(u"good"_s, SamplePicture(u"jpg"_s, QSize(64, 64)))).ok);
  const QList<qint64> processes = tool_->ProcessIds();
  QVERIFY(!View(bad).ok);
  QVERIFY(!Thumb(bad, folder_->filePath(u"thumb.jpg"_s)).ok);
  QVERIFY(!QFile::exists(folder_->filePath(u"thumb.jpg"_s)));
  QVERIFY(!Answer([&](PictureTool& tool, auto done) { tool.Measure(bytes, this, std::move(done)); }).ok);
  QCOMPARE(tool_->ProcessIds(), processes);  // refused, not crashed
}

void TestPictureTool::TruncatedPicturesLeaveTheToolAlive() {
  QVERIFY(View(Put(u"good"_s, SamplePicture(u"jpg"_s, QSize(64, 64)))).ok);
  const QList<qint64> processes = tool_->ProcessIds();
  for (const QString& kind : {u"jpg"_s, u"png"_s, u"bmp"_s, u"gif"_s, u"jp2"_s, u"j2k"_s}) {
    const QByteArray whole = SamplePicture(kind, QSize(320, 256));
    for (const int part : {9, 5, 2}) {
      const PictureAnswer answer = View(Put(u"part"_s, whole.left(whole.size() * part / 10)));
      QCOMPARE(tool_->ProcessIds(), processes);
      QCOMPARE(answer.size, QSize(320, 256));
      // Those that are read from the top show what has come.
      if (part == 9 && kind != "png"_L1) QVERIFY2(answer.ok, qPrintable(kind));
    }
  }
}

void TestPictureTool::WritesOutsideTheFolderAreRefused() {
  const QTemporaryDir outside;
  const QString source = Put(u"picture"_s, SamplePicture(u"jpg"_s, QSize(64, 64)));
  QVERIFY(QFile::link(outside.path(), folder_->filePath(u"link"_s)));
  for (const QString& target : {outside.filePath(u"a.jpg"_s), folder_->filePath(u"link/a.jpg"_s),
                                folder_->path() + u"x.jpg"_s, folder_->filePath(u"../a.jpg"_s)}) {
    QVERIFY(!Thumb(source, target).ok);
    QVERIFY(!QFile::exists(target));
  }
  QVERIFY(QDir(folder_->path()).mkdir(u"thumbs"_s));
  QVERIFY(Thumb(source, folder_->filePath(u"thumbs/3-7.jpg"_s)).ok);
}

void TestPictureTool::AFailedJobLeavesTheOldFileWhole_data() {
  QTest::addColumn<bool>("fullDisk");
  QTest::newRow("a bad picture") << false;
  QTest::newRow("a full disk") << true;
}

void TestPictureTool::AFailedJobLeavesTheOldFileWhole() {
  QFETCH(const bool, fullDisk);
  const QString thumb = Put(u"thumb.jpg"_s, "the old one");
  const QByteArray picture = SamplePicture(u"png"_s, QSize(64, 64));
  const QString source = Put(u"picture"_s, fullDisk ? picture : picture.chopped(40));
  const auto make = [&]() { return Thumb(source, thumb); };
  const PictureAnswer answer = fullDisk ? WithoutRoom(make) : make();
  QVERIFY(!answer.ok);
  QCOMPARE(answer.size, QSize(64, 64));
  QFile file(thumb);
  QVERIFY(file.open(QIODevice::ReadOnly));
  QCOMPARE(file.readAll(), "the old one");
  QCOMPARE(QDir(folder_->path()).entryList(QDir::Files | QDir::Hidden).size(), 2);
}

void TestPictureTool::AMissingProgramFailsEveryJob() {
  PictureTool own(u"/nowhere/omni-perch-decoder"_s, folder_->path());
  tool_ = &own;
  tool_->WarmUp();
  int failed = 0;
  for (int i = 0; i < 36; ++i) {
    tool_->View(u"picture"_s, QSize(64, 64), this, [&](const PictureAnswer& answer) { failed += answer.ok ? 0 : 1; });
  }
  QCOMPARE(failed, 0);
  QTRY_COMPARE(failed, 36);
}

void TestPictureTool::NobodyIsCalledWhoIsGone() {
  const QString source = Put(u"picture"_s, SamplePicture(u"jpg"_s, QSize(64, 64)));
  const QString target = folder_->filePath(u"thumb.jpg"_s);
  int calls = 0;
  {
    QObject asker;
    const auto count = [&](const PictureAnswer&) { ++calls; };
    tool_->View(source, QSize(64, 64), &asker, count);
    tool_->View(source, QSize(64, 64), &asker, count);
    tool_->View(source, QSize(64, 64), &asker, count);
    tool_->MakeThumb(source, target, kThumbBox, &asker, count);
  }
  QVERIFY(View(source).ok);
  QTRY_VERIFY(QFile::exists(target));
  QCOMPARE(calls, 0);
}

OMNI_TEST(TestPictureTool)
#include "test_picture_tool.moc"
