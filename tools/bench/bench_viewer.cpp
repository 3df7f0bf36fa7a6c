// SPDX-License-Identifier: GPL-3.0-or-later
// The viewer in the program's own windows: omni-perch-bench-viewer make|open|zoom|memory FOLDER [ROUNDS]. The program's
// data folder is that of the user.
//
// make: writes small.jpg (640x480), large.jpg (4000x3000) and huge.jpg (32 megapixels) to FOLDER.
// open: one line a round, "small= first= full=" in ms: from the click to the painted picture of 640x480, to the first
// painting of 4000x3000, and to its painting in full resolution.
// zoom: one line a round, "step= refined=" in ms: the longest handling of one event while five ticks of the wheel zoom
// the large picture in the present screen's window, and from the last step to the smoothed picture.
// memory: "open= back= growth=" in KiB of PSS, decoders included: with the huge picture open; how much more than before
// two seconds after it was closed; and from the 20th to the 200th opening.
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QPainter>
#include <QRandomGenerator>
#include <QWheelEvent>
#include <QWindow>
#include <cstdio>
#include <cstring>

#include "bench_window.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr QSize kSmall(640, 480);
constexpr QSize kLarge(4000, 3000);
constexpr QSize kHuge(6528, 4896);
constexpr int kTicks = 5;

// As rich in detail as a photograph: shades, edges, grain.
QImage Photograph(QSize size) {
  QImage picture(size, QImage::Format_RGB32);
  QPainter painter(&picture);
  QLinearGradient sky(0, 0, size.width(), size.height());
  sky.setColorAt(0, QColor(40, 90, 190));
  sky.setColorAt(1, QColor(240, 190, 120));
  painter.fillRect(picture.rect(), sky);
  painter.setPen(Qt::NoPen);
  QRandomGenerator random(3);
  for (int i = 0; i < 600; ++i) {
    painter.setBrush(QColor::fromHsv(static_cast<int>(random.bounded(360)), 120, 200, 120));
    painter.drawEllipse(random.bounded(size.width()), random.bounded(size.height()), size.width() / 12,
                        size.height() / 20);
  }
  painter.end();
  for (int y = 0; y < size.height(); ++y) {
    auto* line = reinterpret_cast<QRgb*>(picture.scanLine(y));
    for (int x = 0; x < size.width(); ++x) line[x] += (random.generate() & 0x00070707U);
  }
  return picture;
}

std::chrono::nanoseconds Now() {
  return std::chrono::steady_clock::now().time_since_epoch();
}

double Ms(std::chrono::nanoseconds time) {
  return static_cast<double>(time.count()) / 1e6;
}

// Measures each event that the loop handles, and notes when the picture was painted last.
class MeasuredApplication : public QApplication {
 public:
  using QApplication::QApplication;

  bool notify(QObject* receiver, QEvent* event) override {
    const std::chrono::nanoseconds begin = Now();
    // The window may open ahead of its picture: black is not painted.
    const auto* canvas = event->type() == QEvent::Paint ? qobject_cast<PictureCanvas*>(receiver) : nullptr;
    const bool paints = canvas != nullptr && canvas->objectName() == "AniGIF"_L1 && canvas->HasPicture();
    ++depth_;
    const bool done = QApplication::notify(receiver, event);
    if (--depth_ == 0) longest = std::max(longest, Now() - begin);
    if (paints) painted = Now();
    return done;
  }

  std::chrono::nanoseconds painted{};
  std::chrono::nanoseconds longest{};

 private:
  int depth_ = 0;
};

void Wait(std::chrono::milliseconds time) {
  QEventLoop loop;
  QTimer::singleShot(time, &loop, &QEventLoop::quit);
  loop.exec();
}

// Turns the event loop until it is so; an hour-long wait is the caller's fault, so that it has an end.
template <typename Condition>
bool Until(Condition condition) {
  QElapsedTimer timer;
  timer.start();
  while (!condition() && timer.elapsed() < 20000) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 5);
  return condition();
}

qint64 PssKib(qint64 process) {
  QFile file(u"/proc/%1/smaps_rollup"_s.arg(process));
  if (!file.open(QIODevice::ReadOnly)) return 0;
  const QByteArray text = file.readAll();
  const qsizetype at = text.indexOf("\nPss:");
  return at < 0 ? 0 : text.mid(at + 5, text.indexOf("kB", at) - at - 5).trimmed().toLongLong();
}

// The program with its viewer.
class Bench {
 public:
  Bench(MeasuredApplication& app, QString folder) : app_(app), folder_(std::move(folder)) {
    bench_.window->show();
    bench_.services->tool.WarmUp();
    Wait(1500ms);
  }

  // Opens a picture; returns when it was first painted.
  std::chrono::nanoseconds Open(const QString& name) {
    SourcePicture picture;
    picture.file = folder_ + u'/' + name;
    picture.site = u"ZZ1AA"_s;
    opened_ = Now();
    app_.painted = {};
    Windows& windows = bench_.window->AllWindows();
    windows.ShowViewer({{picture}, 0, {}});
    viewer_ = static_cast<Form2*>(windows.Find(WindowKind::Viewer));
    canvas_ = viewer_->findChild<PictureCanvas*>(u"AniGIF"_s);
    Until([this]() { return viewer_->Shown().Size().width() > 0 && app_.painted > opened_; });
    return app_.painted - opened_;
  }
  // Waits until the picture is painted in full resolution, as well as it gets.
  std::chrono::nanoseconds Whole() {
    Until([this]() { return viewer_->Shown().IsWhole(); });
    app_.painted = {};
    canvas_->update();
    Until([this]() { return canvas_->IsRefined() && app_.painted.count() > 0; });
    return app_.painted - opened_;
  }
  void Close() {
    viewer_->close();
    Until([this]() { return viewer_ == nullptr; });
  }

  void PrintOpenings() {
    Open(u"small.jpg"_s);
    Wait(300ms);
    Close();
    Wait(100ms);
    const double small = Ms(Open(u"small.jpg"_s));
    Wait(300ms);
    Close();
    Wait(100ms);
    const double first = Ms(Open(u"large.jpg"_s));
    const double full = Ms(Whole());
    Close();
    std::printf("small=%.1f first=%.1f full=%.1f\n", small, first, full);
  }

  void PrintZoom() {
    Open(u"large.jpg"_s);
    Whole();
    Wait(500ms);
    auto* zoom = viewer_->findChild<ViewerZoom*>();
    std::chrono::nanoseconds settled{};
    QObject::connect(zoom, &ViewerZoom::Settled, canvas_, [&settled]() { settled = Now(); });
    app_.longest = {};
    const QPointF at(canvas_->width() * 0.3, canvas_->height() * 0.4);
    for (int i = 0; i < kTicks; ++i) {
      QWheelEvent wheel(at, canvas_->mapToGlobal(at), {}, QPoint(0, ViewerZoom::kTick), Qt::NoButton, Qt::NoModifier,
                        Qt::NoScrollPhase, false);
      QCoreApplication::sendEvent(canvas_, &wheel);
      QCoreApplication::processEvents();
    }
    Until([&settled]() { return settled.count() > 0; });
    const double longest = Ms(app_.longest);
    Until([this]() { return canvas_->IsRefined(); });
    canvas_->repaint();
    std::printf("step=%.1f refined=%.1f\n", longest, Ms(Now() - settled));
    Close();
  }

  void PrintMemory() {
    Open(u"small.jpg"_s);
    Close();
    Wait(2s);
    const qint64 before = Pss();
    Open(u"huge.jpg"_s);
    Whole();
    Wait(500ms);
    const qint64 open = Pss();
    Close();
    Wait(2s);
    const qint64 after = Pss();
    qint64 atTwenty = 0;
    for (int i = 1; i <= 200; ++i) {
      Open(i % 10 == 0 ? u"large.jpg"_s : u"small.jpg"_s);
      if (i % 10 == 0) Whole();
      Close();
      if (i == 20 || i == 200) Wait(2s);
      if (i == 20) atTwenty = Pss();
    }
    std::printf("open=%lld back=%lld growth=%lld\n", static_cast<long long>(open),
                static_cast<long long>(after - before), static_cast<long long>(Pss() - atTwenty));
  }

  void CloseAll() {
    QObject::connect(bench_.window.get(), &Form1::Closed, &app_, &QCoreApplication::quit);
    bench_.window->CloseMe();
    QCoreApplication::exec();
  }

 private:
  qint64 Pss() const {
    qint64 sum = PssKib(QCoreApplication::applicationPid());
    for (const qint64 process : bench_.services->tool.ProcessIds()) sum += PssKib(process);
    return sum;
  }

  MeasuredApplication& app_;
  QString folder_;
  BenchWindow bench_;
  QPointer<Form2> viewer_;
  PictureCanvas* canvas_ = nullptr;
  std::chrono::nanoseconds opened_{};
};

bool Make(const QString& folder) {
  return QDir().mkpath(folder) && Photograph(kSmall).save(folder + u"/small.jpg"_s, "JPG", 90) &&
         Photograph(kLarge).save(folder + u"/large.jpg"_s, "JPG", 90) &&
         Photograph(kHuge).save(folder + u"/huge.jpg"_s, "JPG", 90);
}

}  // namespace

int main(int argc, char** argv) {
  MeasuredApplication app(argc, argv);
  if (argc < 3) return 2;
  const QString folder = QString::fromLocal8Bit(argv[2]);
  if (std::strcmp(argv[1], "make") == 0) return Make(folder) ? 0 : 1;
  const int rounds = argc > 3 ? QByteArray(argv[3]).toInt() : 1;
  Bench bench(app, folder);
  for (int round = 0; round < rounds; ++round) {
    if (std::strcmp(argv[1], "open") == 0) bench.PrintOpenings();
    if (std::strcmp(argv[1], "zoom") == 0) bench.PrintZoom();
    if (std::strcmp(argv[1], "memory") == 0) bench.PrintMemory();
    std::fflush(stdout);
  }
  bench.CloseAll();
  return 0;
}
