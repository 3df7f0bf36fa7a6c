// SPDX-License-Identifier: GPL-3.0-or-later
// Measures how long the history of one site takes inside the program's own main window, and the peers between.
//
//   omni-perch-bench-history ROUNDS FOLDER SLOT
//
// Works on the data folder of omni-perch-bench-band; FOLDER holds its urls.txt and takes the peers' files; SLOT, from
// 1, is the site's place on the first page. A round opens the history in a new window and closes it when all thirty
// pictures are drawn; then curl reads the same thirty, six at a time, and vipsthumbnail makes thumbs of them. Prints a
// line a round in ms: history=, history_peer=. A first round, in which the band paints its pictures, is not printed.

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>

#include "bench_window.h"
#include "platform/text/text_file.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr int kPictures = 30;

// Tells when a window has been drawn.
class DrawnApplication : public QApplication {
 public:
  using QApplication::QApplication;
  std::function<void()> drawn;

  bool notify(QObject* receiver, QEvent* event) override {
    const bool drawing = event->type() == QEvent::UpdateRequest;
    const bool handled = QApplication::notify(receiver, event);
    if (drawing && drawn) drawn();
    return handled;
  }
};

double Milliseconds(const QElapsedTimer& since) {
  return static_cast<double>(since.nsecsElapsed()) / 1e6;
}

// Waits: between our rounds nothing is measured, so that waiting holds up nothing that counts.
void Run(const QString& program, const QStringList& arguments) {
  QProcess process;
  process.setProcessChannelMode(QProcess::ForwardedChannels);
  process.start(program, arguments);
  if (!process.waitForFinished(60000) || process.exitCode() != 0) {
    std::fprintf(stderr, "%s failed: the peer's figure says nothing\n", qPrintable(program));
    std::exit(1);
  }
}

// curl and vipsthumbnail over the same pictures.
class Peer {
 public:
  Peer(const QString& folder, const QString& newest) : folder_(folder + "/history"_L1) {
    QDir().mkpath(folder_);
    QStringList lines;
    for (int number = 1; number <= kPictures; ++number) {
      const QString file = folder_ + u"/%1"_s.arg(number);
      files_ << file;
      lines << u"url = \"%1%2\""_s.arg(newest.chopped(1)).arg(number) << u"output = \"%1\""_s.arg(file);
    }
    WriteTextLines(folder_ + "/urls.curl"_L1, lines);
  }

  double Measure() const {
    QElapsedTimer time;
    time.start();
    Run(u"curl"_s, {u"--no-progress-meter"_s, u"--parallel"_s, u"--parallel-immediate"_s, u"--parallel-max"_s, u"6"_s,
                    u"--config"_s, folder_ + "/urls.curl"_L1});
    Run(u"vipsthumbnail"_s, QStringList{u"--size"_s, u"116x86"_s, u"-o"_s, folder_ + "/thumb-%s.jpg"_L1} + files_);
    return Milliseconds(time);
  }

 private:
  QString folder_;
  QStringList files_;
};

// Opens the history again and again; each step is begun by the end of the one before.
class HistoryBench : public QObject {
 public:
  HistoryBench(DrawnApplication& app, Form1& window, const Peer& peer, int rounds, int slot)
      : window_(window), peer_(peer), rounds_(rounds), slot_(slot) {
    connect(&window_.Logic().poll, &PollCycle::BusyChanged, this, [this](bool busy) {
      if (!busy && round_ == 0 && !running_) Next();
    });
    app.drawn = [this]() { Drawn(); };
  }

 private:
  void Next() {
    running_ = true;
    QTimer::singleShot(500ms, this, &HistoryBench::Begin);
  }

  void Begin() {
    measuring_ = true;
    time_.start();
    window_.AllWindows().ShowHistory({.Last15Slot = slot_});
  }

  void Drawn() {
    const auto* history = qobject_cast<Form15*>(window_.AllWindows().Find(WindowKind::History));
    if (!measuring_ || history == nullptr || history->Pictures().Found() < kPictures) return;
    const QList<Cell>& cells = history->Pictures().Cells();
    if (std::any_of(cells.begin(), cells.end(), [](const Cell& cell) { return cell.frames.isEmpty(); })) return;
    measuring_ = false;
    history_ = Milliseconds(time_);
    QTimer::singleShot(500ms, this, &HistoryBench::Finish);
  }

  void Finish() {
    window_.AllWindows().Close(WindowKind::History);
    const double peer = peer_.Measure();
    if (round_ > 0) std::printf("history=%.2f history_peer=%.2f\n", history_, peer);
    std::fflush(stdout);
    if (++round_ > rounds_) return window_.CloseMe();
    Next();
  }

  Form1& window_;
  const Peer& peer_;
  int rounds_;
  int slot_;
  int round_ = 0;
  bool running_ = false;
  bool measuring_ = false;
  QElapsedTimer time_;
  double history_ = 0;
};

}  // namespace

int main(int argc, char** argv) {
  DrawnApplication app(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  const QString folder = argc == 4 ? QString::fromLocal8Bit(argv[2]) : QString();
  const std::optional<QString> text = ReadTextFile(folder + "/urls.txt"_L1);
  const QStringList urls = text ? SplitLines(*text) : QStringList();
  const int rounds = argc == 4 ? QByteArray(argv[1]).toInt() : 0;
  const int slot = argc == 4 ? QByteArray(argv[3]).toInt() : 0;
  if (rounds < 1 || slot < 1 || slot > urls.size()) {
    std::fprintf(stderr, "usage: %s ROUNDS FOLDER SLOT, with the band's urls.txt in FOLDER\n", argv[0]);
    return 2;
  }
  AccessibleCell::Install();
  const BenchWindow at;
  const Peer peer(folder, urls.at(slot - 1));
  const HistoryBench bench(app, *at.window, peer, rounds, slot);
  if (!at.window->Load(false)) return 1;
  return QApplication::exec();
}
