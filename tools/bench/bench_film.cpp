// SPDX-License-Identifier: GPL-3.0-or-later
// Films: omni-perch-bench-film first SCREEN ROUNDS PROGRAM [ARGUMENT...] | play FILM ROUNDS.
//
// first: one line a round, "first=" in ms: from the start of a player to the first colours of its film on the middle
// row of the screen, which is the memory-mapped one of an Xvfb (-fbdir). The film fills that row with strong colours.
// play: one line a round, "event= poll=" in ms: the longest handling of one event in the program, and the time of a
// poll, while the player plays beside it. The program's data folder is that of the user.
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QtEndian>
#include <cstdio>
#include <cstring>
#include <thread>

#include "bench_window.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto kPatience = 20s;

// The mapped screen: a window dump, whose header is of big-endian words.
class Screen {
 public:
  explicit Screen(const QString& path) : file_(path) {
    if (!file_.open(QIODevice::ReadOnly)) return;
    bytes_ = file_.map(0, file_.size());
    if (bytes_ == nullptr) return;
    width_ = Word(4);
    height_ = Word(5);
    constexpr qint64 kColourBytes = 12;
    pixels_ = Word(0) + Word(19) * kColourBytes;
  }

  // True if half of the points on the middle row have a strong colour.
  bool IsColourful() const {
    constexpr int kPoints = 40;
    int strong = 0;
    for (int i = 0; i < kPoints; ++i) {
      const uchar* at = bytes_ + pixels_ + (height_ / 2 * width_ + width_ * i / kPoints) * 4;
      const auto [least, most] = std::minmax({at[0], at[1], at[2]});
      if (most - least > 120) ++strong;
    }
    return strong >= kPoints / 4;
  }

 private:
  qint64 Word(int index) const { return qFromBigEndian<quint32>(bytes_ + index * 4); }

  QFile file_;
  const uchar* bytes_ = nullptr;
  qint64 width_ = 0;
  qint64 height_ = 0;
  qint64 pixels_ = 0;
};

// This program does nothing else meanwhile.
bool WaitFor(const Screen& screen, bool colourful) {
  const auto end = std::chrono::steady_clock::now() + kPatience;
  while (screen.IsColourful() != colourful) {
    if (std::chrono::steady_clock::now() > end) return false;
    std::this_thread::sleep_for(1ms);
  }
  return true;
}

bool PrintFirst(const Screen& screen, const QStringList& command) {
  if (!WaitFor(screen, false)) return false;
  QProcess player;
  player.setStandardOutputFile(QProcess::nullDevice());
  player.setStandardErrorFile(QProcess::nullDevice());
  QElapsedTimer timer;
  timer.start();
  player.start(command.first(), command.mid(1));
  const bool seen = player.waitForStarted() && WaitFor(screen, true);
  const double ms = static_cast<double>(timer.nsecsElapsed()) / 1e6;
  player.kill();
  player.waitForFinished();
  if (seen) std::printf("first=%.1f\n", ms);
  std::fflush(stdout);
  return seen;
}

// Measures each event that the loop handles.
class MeasuredApplication : public QApplication {
 public:
  using QApplication::QApplication;

  bool notify(QObject* receiver, QEvent* event) override {
    QElapsedTimer timer;
    timer.start();
    ++depth_;
    const bool done = QApplication::notify(receiver, event);
    if (--depth_ == 0) longest = std::max(longest, timer.nsecsElapsed());
    return done;
  }

  qint64 longest = 0;

 private:
  int depth_ = 0;
};

void Wait(std::chrono::milliseconds time) {
  QEventLoop loop;
  QTimer::singleShot(time, &loop, &QEventLoop::quit);
  loop.exec();
}

bool PollsWhilePlaying(MeasuredApplication& app, BenchWindow& bench, const QString& film) {
  app.longest = 0;
  SourcePicture picture;
  picture.file = film;
  picture.site = u"ZZ1AA"_s;
  // From an event, as a click does it: the start of the process counts.
  QTimer::singleShot(0, bench.window.get(), [&]() { Q_EMIT bench.window->AllWindows().FilmWanted(picture); });
  Wait(2s);  // until it plays
  PollCycle& poll = bench.window->Logic().poll;
  QElapsedTimer timer;
  timer.start();
  poll.RefreshClick();
  while (poll.Busy() && timer.elapsed() < kPatience / 1ms) {
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 5);
  }
  const double ms = static_cast<double>(timer.nsecsElapsed()) / 1e6;
  Wait(2s);
  const bool plays = bench.window->findChild<MediaViews*>()->Player().IsOpen();
  QTimer::singleShot(0, bench.window.get(), [&]() { bench.window->findChild<MediaViews*>()->CloseAll(); });
  Wait(1s);
  std::printf("event=%.1f poll=%.1f\n", static_cast<double>(app.longest) / 1e6, ms);
  std::fflush(stdout);
  return plays && !poll.Busy();
}

int Play(int argc, char** argv) {
  MeasuredApplication app(argc, argv);
  BenchWindow bench;
  if (!bench.window->Load(false)) return 1;
  Wait(3s);  // the first poll
  bool played = true;
  for (int round = 0; round < QByteArray(argv[3]).toInt(); ++round)
    played = PollsWhilePlaying(app, bench, QString::fromLocal8Bit(argv[2])) && played;
  bench.window->CloseMe();
  QCoreApplication::exec();
  return played ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc >= 4 && std::strcmp(argv[1], "play") == 0) return Play(argc, argv);
  if (argc < 5 || std::strcmp(argv[1], "first") != 0) return 2;
  QStringList command;
  for (int i = 4; i < argc; ++i) command.append(QString::fromLocal8Bit(argv[i]));
  const Screen screen(QString::fromLocal8Bit(argv[2]));
  for (int round = 0; round < QByteArray(argv[3]).toInt(); ++round)
    if (!PrintFirst(screen, command)) return 1;
  return 0;
}
