// SPDX-License-Identifier: GPL-3.0-or-later
// Copies and copies of files of the pictures' menus: omni-perch-bench-copy make|copy|save FOLDER [ROUNDS]. The
// program's data folder is that of the user.
//
// make: writes large.jpg (4000x3000) and thirty files of 2 MB to FOLDER.
// copy: one line a round, "bmp= png= event=" in ms: from the choice in the menu to the last byte of the picture at
// xclip in either format, and the longest handling of one event of this program meanwhile.
// save: one line a round, "save= save_peer= event=" in ms: the thirty files saved into a folder by the program and by
// cp, each into an empty one.
#include <QDir>
#include <QFile>
#include <QPainter>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <cstdio>
#include <cstring>

#include "bench_window.h"
#include "display/picture_copy.h"
#include "display/save_all.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr QSize kLarge(4000, 3000);
constexpr int kFiles = 30;
constexpr qsizetype kFileBytes = 2'000'000;

std::chrono::nanoseconds Now() {
  return std::chrono::steady_clock::now().time_since_epoch();
}

double Ms(std::chrono::nanoseconds time) {
  return static_cast<double>(time.count()) / 1e6;
}

// Measures each event that the loop handles.
class MeasuredApplication : public QApplication {
 public:
  using QApplication::QApplication;

  bool notify(QObject* receiver, QEvent* event) override {
    const std::chrono::nanoseconds begin = Now();
    ++depth_;
    const bool done = QApplication::notify(receiver, event);
    if (--depth_ == 0) longest = std::max(longest, Now() - begin);
    return done;
  }

  std::chrono::nanoseconds longest{};

 private:
  int depth_ = 0;
};

template <typename Condition>
bool Until(Condition condition) {
  const std::chrono::nanoseconds end = Now() + 20s;
  while (!condition() && Now() < end) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 5);
  return condition();
}

void Wait(std::chrono::milliseconds time) {
  QEventLoop loop;
  QTimer::singleShot(time, &loop, &QEventLoop::quit);
  loop.exec();
}

// Shades, edges and grain, as a camera gives them.
void MakeFiles(const QString& folder) {
  QDir().mkpath(folder);
  QImage picture(kLarge, QImage::Format_RGB32);
  QRandomGenerator random(3);
  for (int y = 0; y < picture.height(); ++y) {
    auto* line = reinterpret_cast<QRgb*>(picture.scanLine(y));
    for (int x = 0; x < picture.width(); ++x) {
      line[x] = (qRgb(x / 16, y / 12, (x + y) / 28) & 0xFFF8F8F8U) + (random.generate() & 0x00070707U);
    }
  }
  picture.save(folder + u"/large.jpg"_s, "JPG", 90);
  QByteArray bytes(kFileBytes, Qt::Uninitialized);
  for (int i = 0; i < kFiles; ++i) {
    for (char& byte : bytes) byte = static_cast<char>(random.generate());
    std::memcpy(bytes.data(), "\xFF\xD8\xFF\xE0", 4);
    QFile file(folder + u"/%1"_s.arg(i + 1));
    if (file.open(QIODevice::WriteOnly)) file.write(bytes);
  }
}

// The program with its main window.
class Bench {
 public:
  Bench(MeasuredApplication& app, QString folder) : app_(app), folder_(std::move(folder)) {
    bench_.window->show();
    bench_.services->tool.WarmUp();
    Wait(1500ms);
  }

  std::chrono::nanoseconds Copy(const QString& format) {
    Services& s = *bench_.services;
    SourceFiles files({s.tool, s.background});
    PictureCopy copy({s.tool, s.background, s.run.appDataDir});
    SourcePicture picture;
    picture.file = folder_ + u"/large.jpg"_s;
    const std::chrono::nanoseconds begin = Now();
    bool copied = false;
    files.FindSourceFile(picture, &copy, [&](const SourceFile& file) {
      copy.CopyPicture(file, [&](CopyResult result) { copied = result == CopyResult::Copied; });
    });
    if (!Until([&]() { return copied; })) return 0ns;
    qint64 bytes = 0;
    QProcess xclip;
    QObject::connect(&xclip, &QProcess::readyRead, &xclip, [&]() { bytes += xclip.readAll().size(); });
    xclip.start(u"xclip"_s, {u"-selection"_s, u"clipboard"_s, u"-o"_s, u"-t"_s, format});
    Until([&]() { return xclip.state() == QProcess::NotRunning; });
    const std::chrono::nanoseconds end = Now();
    if (bytes < 1'000'000) std::fprintf(stderr, "xclip got %lld bytes\n", static_cast<long long>(bytes));
    return end - begin;
  }

  void PrintCopies() {
    app_.longest = {};
    const double bmp = Ms(Copy(u"image/bmp"_s));
    Wait(200ms);
    const double png = Ms(Copy(u"image/png"_s));
    std::printf("bmp=%.1f png=%.1f event=%.1f\n", bmp, png, Ms(app_.longest));
  }

  void PrintSaves() {
    PictureList list;
    QStringList arguments;
    for (int i = 1; i <= kFiles; ++i) {
      SourcePicture picture;
      picture.file = folder_ + u"/%1"_s.arg(i);
      picture.site = u"ZZ9QX"_s;
      picture.sentTime = u"1/24/2024 15:%1"_s.arg(i);
      list.pictures.append(picture);
      arguments.append(picture.file);
    }
    const QTemporaryDir own(folder_ + u"/own-XXXXXX"_s);
    const QTemporaryDir peer(folder_ + u"/peer-XXXXXX"_s);
    app_.longest = {};
    SaveAll saving;
    std::chrono::nanoseconds begin = Now();
    saving.Start(SaveAll::OpenAll(list), own.path());
    Until([&]() { return !saving.Busy(); });
    const double save = Ms(Now() - begin);
    const double event = Ms(app_.longest);
    begin = Now();
    QProcess::execute(u"cp"_s, arguments << peer.path());
    std::printf("save=%.1f save_peer=%.1f event=%.1f saved=%d\n", save, Ms(Now() - begin), event, saving.Saved());
  }

 private:
  MeasuredApplication& app_;
  QString folder_;
  BenchWindow bench_;
};

}  // namespace

int main(int argc, char** argv) {
  if (argc < 3) return 2;
  MeasuredApplication app(argc, argv);
  const QString folder = QFile::decodeName(argv[2]);
  if (std::strcmp(argv[1], "make") == 0) {
    MakeFiles(folder);
    return 0;
  }
  const int rounds = argc > 3 ? std::atoi(argv[3]) : 1;
  Bench bench(app, folder);
  for (int i = 0; i < rounds; ++i) {
    if (std::strcmp(argv[1], "copy") == 0) {
      bench.PrintCopies();
    } else {
      bench.PrintSaves();
    }
  }
  return 0;
}
