// SPDX-License-Identifier: GPL-3.0-or-later
// Measures polls inside the program's own main window, and the peers between them.
//
//   omni-perch-bench ROUNDS FOLDER
//
// Works on the data folder of omni-perch-bench-band; FOLDER holds its urls.txt and takes the peers' files. A round is
// one page that was never polled (36 new pictures), the peer for it, a refresh of the same page (36 unchanged), the
// peer for that. Prints a line a round, all in ms: new=, new_peer=, same=, same_peer=, and of the first of these polls
// event=, the longest handling of one event, and gap=, the longest time between two ticks of a 1 ms timer.

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QThread>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <optional>

#include "bench_window.h"
#include "platform/text/text_file.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr int kFirstPage = 2;  // the load polls page 1
constexpr int kLastPage = 20;

double Milliseconds(const QElapsedTimer& since) {
  return static_cast<double>(since.nsecsElapsed()) / 1e6;
}

// Measures how long the event loop is busy with one event, and tells when a window has been drawn.
class WatchedApplication : public QApplication {
 public:
  using QApplication::QApplication;

  void Measure(bool on) {
    measuring_ = on;
    if (on) longest_ = 0;
  }
  double LongestEvent() const { return longest_; }
  std::function<void()> drawn;  // after each drawing of a window

  bool notify(QObject* receiver, QEvent* event) override {
    // The events of other threads come through here too, but do not hold the event loop.
    if (QThread::currentThread() != thread()) return QApplication::notify(receiver, event);
    const bool outermost = depth_ == 0;
    const bool drawing = event->type() == QEvent::UpdateRequest;
    QElapsedTimer handling;
    handling.start();
    ++depth_;
    const bool handled = QApplication::notify(receiver, event);
    --depth_;
    if (outermost && measuring_) longest_ = std::max(longest_, Milliseconds(handling));
    if (drawing && drawn) drawn();
    return handled;
  }

 private:
  int depth_ = 0;
  bool measuring_ = false;
  double longest_ = 0;
};

// Runs curl and vipsthumbnail over the same addresses.
class Peers {
 public:
  explicit Peers(const QString& folder) : folder_(folder) {
    const std::optional<QString> text = ReadTextFile(folder + "/urls.txt"_L1);
    urls_ = text ? SplitLines(*text) : QStringList();
    QDir().mkpath(Files());
    QStringList pictures;
    QStringList markers;
    for (qsizetype index = 0; index < urls_.size(); ++index) {
      const QString url = urls_.at(index);
      const QString target = Files() + u"/%1"_s.arg(index + 1);
      names_ << target;
      pictures << u"url = \"%1\""_s.arg(url) << u"output = \"%1\""_s.arg(target);
      markers << u"url = \"%1checknew.jpg\""_s.arg(url.chopped(6)) << u"output = \"%1.marker\""_s.arg(target);
    }
    WriteTextLines(folder_ + "/pictures.curl"_L1, pictures);
    WriteTextLines(folder_ + "/markers.curl"_L1, markers);
  }

  qsizetype Count() const { return urls_.size(); }

  double Pictures() const {
    QElapsedTimer time;
    time.start();
    Curl("/pictures.curl"_L1);
    Run(u"vipsthumbnail"_s, QStringList{u"--size"_s, u"116x86"_s, u"-o"_s, Files() + "/thumb-%s.jpg"_L1} + names_);
    return Milliseconds(time);
  }

  double Markers() const {
    QElapsedTimer time;
    time.start();
    Curl("/markers.curl"_L1);
    return Milliseconds(time);
  }

 private:
  QString Files() const { return folder_ + "/peer"_L1; }
  void Curl(QLatin1StringView list) const {
    Run(u"curl"_s, {u"--no-progress-meter"_s, u"--parallel"_s, u"--parallel-immediate"_s, u"--parallel-max"_s,
                    QString::number(urls_.size()), u"--config"_s, folder_ + list});
  }
  // Waits: between the polls nothing is measured, so that waiting holds up nothing that counts.
  static void Run(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    process.start(program, arguments);
    if (!process.waitForFinished(60000) || process.exitCode() != 0) {
      std::fprintf(stderr, "%s failed: the peer's figure says nothing\n", qPrintable(program));
      std::exit(1);
    }
  }

  QString folder_;
  QStringList urls_;
  QStringList names_;
};

// Drives the window through its rounds; each step is begun by the end of the one before.
class PollBench : public QObject {
 public:
  PollBench(WatchedApplication& app, Form1& window, const Peers& peers, int rounds)
      : app_(app), window_(window), peers_(peers), rounds_(rounds) {
    tick_.setTimerType(Qt::PreciseTimer);
    tick_.setInterval(1ms);
    connect(&tick_, &QTimer::timeout, this, &PollBench::Ticked);
    connect(&window_.Logic().poll, &PollCycle::BusyChanged, this, &PollBench::BusyChanged);
    app_.drawn = [this]() { Drawn(); };
  }

 private:
  enum class Step { FirstPoll, NewPictures, Unchanged, Pause };

  // Begins the next step once the poll's own work has settled, so that nothing of one step runs into the next.
  void Next(void (PollBench::*begin)()) {
    step_ = Step::Pause;
    QTimer::singleShot(500ms, this, begin);
  }

  void BusyChanged(bool busy) {
    if (busy) return;
    if (step_ == Step::FirstPoll) Next(&PollBench::BeginNew);
    if (step_ != Step::Unchanged) return;
    same_ = Milliseconds(time_);
    Next(&PollBench::FinishRound);
  }

  void BeginNew() {
    step_ = Step::NewPictures;
    longestGap_ = 0;
    sinceTick_.start();
    tick_.start();
    app_.Measure(true);
    time_.start();
    window_.MnuPagesClick(page_ - 1);
  }

  void Ticked() {
    longestGap_ = std::max(longestGap_, Milliseconds(sinceTick_));
    sinceTick_.start();
  }

  bool AllShown() const {
    const QList<Cell>& cells = window_.Logic().grid.Cells();
    return std::all_of(cells.begin(), cells.end(),
                       [](const Cell& cell) { return !cell.frames.isEmpty() && !cell.picProg; });
  }

  void Drawn() {
    if (step_ != Step::NewPictures || !AllShown()) return;
    new_ = Milliseconds(time_);
    app_.Measure(false);
    event_ = app_.LongestEvent();
    tick_.stop();
    Next(&PollBench::BeginUnchanged);
  }

  void BeginUnchanged() {
    newPeer_ = peers_.Pictures();
    step_ = Step::Unchanged;
    time_.start();
    window_.Logic().poll.RefreshClick();
  }

  void FinishRound() {
    const double samePeer = peers_.Markers();
    std::printf("new=%.2f new_peer=%.2f same=%.2f same_peer=%.2f event=%.2f gap=%.2f\n", new_, newPeer_, same_,
                samePeer, event_, longestGap_);
    std::fflush(stdout);
    ++page_;
    if (page_ - kFirstPage == rounds_ || page_ > kLastPage) return window_.CloseMe();
    Next(&PollBench::BeginNew);
  }

  WatchedApplication& app_;
  Form1& window_;
  const Peers& peers_;
  int rounds_;
  int page_ = kFirstPage;
  Step step_ = Step::FirstPoll;
  QTimer tick_;
  QElapsedTimer sinceTick_;
  QElapsedTimer time_;
  double longestGap_ = 0;
  double new_ = 0;
  double newPeer_ = 0;
  double same_ = 0;
  double event_ = 0;
};

}  // namespace

int main(int argc, char** argv) {
  WatchedApplication app(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  const Peers peers(argc == 3 ? QString::fromLocal8Bit(argv[2]) : QString());
  const int rounds = argc == 3 ? QByteArray(argv[1]).toInt() : 0;
  if (rounds < 1 || peers.Count() == 0) {
    std::fprintf(stderr, "usage: %s ROUNDS FOLDER, with the band's urls.txt in FOLDER\n", argv[0]);
    return 2;
  }
  AccessibleCell::Install();
  const BenchWindow at;
  const PollBench bench(app, *at.window, peers, rounds);
  if (!at.window->Load(false)) return 1;
  return QApplication::exec();
}
