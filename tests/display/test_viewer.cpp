// SPDX-License-Identifier: GPL-3.0-or-later
// The viewer's logic: where a picture opens and how it zooms, how it is decoded, and which clicks open it.
#include "display/page_click.h"
#include "display/picture_canvas.h"
#include "display/viewer_picture.h"
#include "display/viewer_zoom.h"
#include "page/still_pictures.h"
#include "page_fixture.h"
#include "sample_pictures.h"

namespace {

// A viewer's picture and what has become of it.
struct LoadedPicture {
  TestFolder folder;
  PictureTool tool{QStringLiteral(PICTURE_TOOL), folder.path()};
  Background background;
  ViewerPicture picture{{tool, background}};
  QSignalSpy shown{&picture, &ViewerPicture::Shown};
  QSignalSpy film{&picture, &ViewerPicture::IsFilm};
  QSignalSpy failed{&picture, &ViewerPicture::Failed};

  void Load(const QString& name, const QByteArray& bytes) {
    folder.Put(name, bytes);
    SourcePicture source;
    source.file = folder.filePath(name.section(u'.', 0, 0));
    picture.Load(source, QSize(400, 300));
  }
  qint64 Bytes() const {
    qint64 sum = 0;
    for (const PictureFrame& frame : picture.Frames()) sum += frame.image.sizeInBytes();
    return sum;
  }
};

// How often a widget was painted.
struct PaintCounter : QObject {
  int count = 0;
  explicit PaintCounter(QWidget* widget) { widget->installEventFilter(this); }
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == QEvent::Paint) ++count;
    return false;
  }
};

}  // namespace

class TestViewer : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void OpensOnNineTenthsOfTheMonitor() {
    const auto check = [](const char* what, QSize picture, QRect expected) {
      const TableRow row(what);
      // 10 pixels of frame across and 30 down; the monitor is the right one of two.
      QCOMPARE(FitWindow(picture, QRect(1000, 0, 1600, 900), QSize(10, 30), QSize(160, 90)), expected);
    };
    check("wide: the width decides", QSize(2000, 500), QRect(1080, 256, 1440, 388));
    check("high: the height decides", QSize(390, 780), QRect(1600, 45, 400, 810));
    check("of the monitor's proportion: the width decides", QSize(160, 90), QRect(1080, 33, 1440, 834));
    check("a line keeps a window that can be seen", QSize(1, 20000), QRect(1715, 45, 170, 810));
    check("none yet", QSize(), QRect(1080, 45, 1440, 810));
  }

  void ZoomsInFiftyStepsAboutThePointer() {
    ViewerZoom zoom;
    zoom.SetClient(QSizeF(800, 600));
    zoom.SetPicture(QSizeF(400, 300));
    const auto steps = [&zoom]() {
      int count = 0;
      while (zoom.Step()) ++count;
      return count;
    };
    QCOMPARE(zoom.Place(), QRectF(0, 0, 800, 600));
    zoom.PointerMoved(QPointF(200, 450));
    zoom.Turn(-120);
    QCOMPARE(steps(), 0);  // at the smallest size
    zoom.Turn(60);
    QVERIFY(!zoom.IsMoving());
    zoom.Turn(60);
    QVERIFY(zoom.Step());
    QCOMPARE(zoom.Place().width(), 800 * 1.002);
    zoom.Turn(120);  // extends the steps that are under way
    QCOMPARE(steps(), 99);
    QCOMPARE(zoom.Place().width(), 800 * std::pow(1.002, 100));
    QCOMPARE((200 - zoom.Place().x()) / zoom.Place().width(), 0.25);
    QCOMPARE((450 - zoom.Place().y()) / zoom.Place().height(), 0.75);
    zoom.Turn(-120);
    QCOMPARE(steps(), 50);
    zoom.Turn(120 * 100);
    steps();
    QVERIFY(zoom.Place().width() <= 400 * 32 && zoom.Place().width() > 400 * 31.9);
    zoom.ShowNatural();
    QCOMPARE(zoom.Place(), QRectF(200, 150, 400, 300));
    zoom.Turn(-120);
    QCOMPARE(steps(), 0);
    zoom.MoveBy(QPointF(5000, 5000));
    QCOMPARE(zoom.Place().topLeft(), QPointF(768, 568));
  }

  // The pointer lies beside a small picture: what is next to it keeps its place.
  void ZoomsASmallPictureWithinTheWindow() {
    ViewerZoom zoom;
    zoom.SetClient(QSizeF(800, 600));
    zoom.SetPicture(QSizeF(400, 300));
    zoom.ShowNatural();
    zoom.PointerMoved(QPointF(50, 400));
    zoom.Turn(120 * 20);
    while (zoom.IsMoving()) zoom.Step();
    QCOMPARE(zoom.Place().left(), 200);
    QCOMPARE((400 - zoom.Place().y()) / zoom.Place().height(), 250.0 / 300);
  }

  void PlaysInNaturalSize() {
    QList<PictureFrame> frames;
    for (const QColor colour : {Qt::red, Qt::blue}) {
      QImage image(40, 30, QImage::Format_RGB32);
      image.fill(colour);
      frames.append({image, 5ms});
    }
    ViewerZoom zoom;
    Background drawing;
    PictureCanvas canvas(zoom, drawing, nullptr);
    canvas.resize(40, 30);
    canvas.show();
    zoom.SetPicture(QSizeF(40, 30));
    PaintCounter paints(&canvas);
    canvas.SetPicture(frames, PictureScales(frames.first().image), false);
    QTRY_VERIFY(paints.count > 10);
  }

  void DecodesWholePictures() {
    const auto check = [](const char* what, const QByteArray& bytes, QSize size, QSize seen, int frames) {
      const TableRow row(what);
      LoadedPicture f;
      f.Load(u"1-1.jpg"_s, bytes);
      QTRY_COMPARE(f.shown.count(), 1);
      QTRY_VERIFY(f.picture.IsWhole());
      QCOMPARE(f.picture.Size(), size);
      QCOMPARE(f.picture.Frames().first().image.size(), seen);
      QCOMPARE(f.picture.Frames().size(), frames);
      QVERIFY(f.Bytes() <= 128 * 1024 * 1024);
    };
    QList<QPair<QRgb, int>> reds;
    for (uint i = 0; i < 300; ++i) reds.append({qRgb(255, static_cast<int>(i % 256), 0), 2});
    check("small", SamplePicture(u"png"_s, QSize(64, 48)), QSize(64, 48), QSize(64, 48), 1);
    check("larger than the window", SamplePicture(u"jpg"_s, QSize(1500, 900)), QSize(1500, 900), QSize(1500, 900), 1);
    check("more than 128 MB: a half", SamplePicture(u"jpg"_s, QSize(7001, 6000)), QSize(7001, 6000), QSize(3500, 3000),
          1);
    check("a line", SamplePicture(u"png"_s, QSize(1, 20000)), QSize(1, 20000), QSize(1, 20000), 1);
    check("300 frames", AnimatedGif(QSize(120, 90), reds), QSize(120, 90), QSize(120, 90), 300);
    check("300 frames of 180 MB", AnimatedGif(QSize(500, 300), reds), QSize(500, 300), QSize(431, 259), 300);
  }

  void TellsFilmsFromPictures() {
    const auto check = [](const char* what, const QByteArray& bytes, int shown, int film, int failed) {
      const TableRow row(what);
      LoadedPicture f;
      f.Load(u"1-2"_s, bytes);
      QTRY_COMPARE(f.shown.count() + f.film.count() + f.failed.count(), 1);
      QCOMPARE(QList({f.shown.count(), f.film.count(), f.failed.count()}), QList<qsizetype>({shown, film, failed}));
    };
    QByteArray nameless = SamplePicture(u"jpg"_s, QSize(64, 48));
    nameless.replace("JFIF", "XXXX");
    check("a picture of no known type", nameless, 1, 0, 0);
    check("what no decoder knows", QByteArray(2000, 'x'), 0, 1, 0);
    check("a video by its type", QByteArray("\0\0\0\x18", 4) + "ftypmp42" + QByteArray(500, 'x'), 0, 1, 0);
    check("a damaged picture", SamplePicture(u"png"_s, QSize(64, 48)).left(60), 0, 0, 1);
    check("an empty file", {}, 0, 0, 1);
  }

  // Another picture is asked for while a decoder hangs, and the file is replaced under the one that is shown.
  void KeepsWhatItShows() {
    LoadedPicture f;
    f.Load(u"1-3"_s, SlowJpeg());
    f.Load(u"1-4"_s, SamplePicture(u"jpg"_s, QSize(800, 600)));
    QTRY_VERIFY(f.picture.IsWhole());
    const QByteArray before = f.picture.Bytes();
    f.folder.Put(u"1-4"_s, SamplePicture(u"jpg"_s, QSize(320, 200)));
    QCOMPARE(f.picture.Size(), QSize(800, 600));
    QCOMPARE(f.picture.Bytes(), before);
    QCOMPARE(f.failed.count(), 0);
  }

  void OpensWhatTheCellAllows() {
    PageFixture f;
    f.program.config.AutoRefreshOn = 1;
    f.AddSite(u"ZZ1AA"_s).SetPicture(PlainPicture("AB1CD * EP snr -3 *03:15:2026 10:30"));
    f.AddSite(u"ZZ1BB"_s, 1, 2).SetPicture(PlainPicture("AB2CD * EP snr -3 *03:15:2026 10:30"));
    f.StartAndPoll();
    PageLogic& logic = *f.logic;
    QTRY_VERIFY(f.HasPicture(0) && f.HasPicture(2) && !logic.poll.Busy());
    QTRY_VERIFY(logic.poll.Timer6.isActive() && !logic.poll.tmrIfAllDone.isActive());
    QSignalSpy wanted(&logic.click, &PageClick::ViewerWanted);
    const auto check = [&](const char* what, auto change, int opens) {
      const TableRow row(what);
      const auto fields = f.program.page.ThumbFields;
      const Cell cell = f.CellOf(0);
      change();
      wanted.clear();
      logic.click.Press(0);
      QCOMPARE(wanted.count(), opens);
      QCOMPARE(logic.poll.Timer6.isActive(), opens == 0);
      f.program.page.ThumbFields = fields;
      *logic.grid.EditCell(0).operator->() = cell;
      logic.poll.StartRefreshTimer();
      QVERIFY(!logic.poll.Resting());
    };
    QString& caller = f.program.page.Field(0, Caller);
    check(
        "a picture", []() {}, 1);
    check(
        "nobody has signed it", [&]() { caller.clear(); }, 1);
    check(
        "none", [&]() { caller = u"Not found"_s; }, 0);
    check(
        "a bad call",
        [&]() {
          caller = u"NOCALL"_s;
          f.program.lstBadCalls = {u"NOCALL"_s};
        },
        0);
    check(
        "an empty cell", [&]() { logic.grid.EditCell(0)->lblCall.clear(); }, 0);
    check(
        "one that is coming", [&]() { logic.grid.SetProgress(0, 5); }, 0);
    check(
        "a cam alone", [&]() { logic.grid.EditCell(0)->lblFrom = u"Cam only"_s; }, 0);
    logic.click.Press(2);
    const auto list = wanted.last().first().value<PictureList>();
    QCOMPARE(list.pictures.size(), 2);
    QCOMPARE(list.at, 1);
    QCOMPARE(list.pictures.at(1).file, f.Picture(1, 2));
    QCOMPARE(list.pictures.at(1).sender, u"AB2CD"_s);
    QVERIFY(logic.poll.Resting());
    f.Refresh();
    QVERIFY(!logic.poll.Resting() && logic.poll.Timer6.isActive());
    // A film that was found too late for its page changes nothing.
    logic.click.MarkFilm(list.pictures.at(1));
    QVERIFY(f.CellOf(2).frames.first().image.size() == imgMp4().size());
    f.program.page.CurrentPage = 2;
    const Cell before = f.CellOf(0);
    logic.click.MarkFilm(list.pictures.at(0));
    QVERIFY(f.CellOf(0) == before);
  }
};

OMNI_TEST(TestViewer)
#include "test_viewer.moc"
