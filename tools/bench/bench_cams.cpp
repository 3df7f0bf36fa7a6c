// SPDX-License-Identifier: GPL-3.0-or-later
// Measures rounds over cams inside the program's own main window, and curl between them.
//
//   omni-perch-bench-cams ROUNDS FOLDER
//
// Works on the data folder of omni-perch-bench-band with cams; FOLDER holds its cams.txt and dead.txt. Prints lines of
// figures in ms. In each of ROUNDS: round= and round_peer=, all cams and curl over the same; living_alone=, the cams of
// which the other row has 100 dead ones besides, and living=, until the last living one of these has answered; before,
// once, living_first=, the same while it is not known yet which are dead. Then for 15 pairs: poll_alone= and
// poll_beside=, a forced reload of the page without and with a round under way.

#include <QApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <functional>

#include "bench_window.h"
#include "platform/text/text_file.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr int kPairs = 15;

double Milliseconds(const QElapsedTimer& since) {
  return static_cast<double>(since.nsecsElapsed()) / 1e6;
}

QStringList LinesOf(const QString& path) {
  const std::optional<QString> text = ReadTextFile(path);
  return text ? SplitLines(*text) : QStringList();
}

// curl over the same addresses, twelve at a time. Waits: between our rounds nothing is measured.
double Curl(const QString& folder, const QStringList& urls) {
  QStringList lines;
  for (const QString& url : urls) lines << u"url = \"%1\""_s.arg(url) << u"output = \"/dev/null\""_s;
  WriteTextLines(folder + "/cams.curl"_L1, lines);
  QElapsedTimer time;
  time.start();
  QProcess process;
  process.start(u"curl"_s, {u"--no-progress-meter"_s, u"--parallel"_s, u"--parallel-max"_s, u"12"_s, u"--config"_s,
                            folder + "/cams.curl"_L1});
  if (!process.waitForFinished(60000) || process.exitCode() != 0) {
    std::fprintf(stderr, "curl failed: the peer's figure says nothing\n");
    std::exit(1);
  }
  return Milliseconds(time);
}

// Runs the rounds one after the other; each is begun by the end of the one before.
class CamBench : public QObject {
 public:
  CamBench(Program& program, Form1& window, const QString& folder, int rounds)
      : program_(program),
        window_(window),
        folder_(folder),
        living_(LinesOf(folder + "/cams.txt"_L1)),
        dead_(LinesOf(folder + "/dead.txt"_L1)),
        rounds_(rounds) {
    PageLogic& logic = window_.Logic();
    connect(&logic.ucCam, &ucPollCam::GotCamPic, this, &CamBench::Answered);
    connect(&logic.ucCam, &ucPollCam::Finished, this, [this]() { Later(onFinished_); });
    connect(&logic.poll, &PollCycle::BusyChanged, this, [this](bool busy) {
      if (busy || !onIdle_) return;
      taken_ = Milliseconds(time_);
      Later(onIdle_);
    });
    // The poll at the start, and the round that follows it.
    onFinished_ = [this]() { All(); };
  }

  bool HasAddresses() const { return !living_.isEmpty() && !dead_.isEmpty(); }

 private:
  using Step = std::function<void()>;

  // Takes a step half a second later, so that nothing of what has ended runs into it.
  void Later(Step& step) {
    if (const Step taken = std::exchange(step, nullptr)) QTimer::singleShot(500ms, this, taken);
  }

  // Gives the first sites the dead addresses, the others living ones; `count` of these.
  void Give(qsizetype deadCount, qsizetype count) {
    QList<SiteRec>& sites = program_.sites.Sites;
    qsizetype cam = 0;
    for (SiteRec& site : sites) {
      if (!site.Call.startsWith("CM"_L1)) continue;
      // Dead and living by turns, as in life.
      const bool isDead = deadCount > 0 && cam % (living_.size() / deadCount) == 0;
      site.CamUrl = isDead ? dead_.value(cam / (living_.size() / deadCount)) : living_.value(cam);
      if (!isDead && deadCount == 0 && count < living_.size() && cam % (living_.size() / (living_.size() - count)) == 0)
        site.CamUrl.clear();
      ++cam;
    }
    awaited_ = static_cast<int>(count);
  }

  void Begin(const Step& onAnswers) {
    onAnswers_ = onAnswers;
    time_.start();
    window_.Logic().cams.PollAllCams();
  }

  void Answered() {
    if (!onAnswers_ || window_.Logic().cams.ActiveCamCount < awaited_) return;
    taken_ = Milliseconds(time_);
    Later(onAnswers_);
  }

  void All() {
    Give(0, living_.size());
    Begin([this]() {
      std::printf("round=%.2f round_peer=%.2f\n", taken_, Curl(folder_, living_));
      if (++round_ < rounds_) return All();
      round_ = 0;
      FirstWithDead();
    });
  }

  void FirstWithDead() {
    Give(dead_.size(), living_.size() - dead_.size());
    onFinished_ = [this]() { WithDead(); };
    Begin([this]() { std::printf("living_first=%.2f\n", taken_); });
  }

  void WithDead() {
    Give(dead_.size(), living_.size() - dead_.size());
    Begin([this]() {
      withDead_ = taken_;
      window_.Logic().cams.Stop();
      WithoutDead();
    });
  }

  void WithoutDead() {
    Give(0, living_.size() - dead_.size());
    Begin([this]() {
      std::printf("living=%.2f living_alone=%.2f\n", withDead_, taken_);
      if (++round_ < rounds_) return WithDead();
      round_ = 0;
      Give(0, living_.size());
      PollAlone();
    });
  }

  void Poll(const Step& then) {
    onIdle_ = then;
    time_.start();
    window_.ReloadPage();
  }

  void PollAlone() {
    std::fflush(stdout);
    Poll([this]() {
      alone_ = taken_;
      QTimer::singleShot(3s, this, [this]() { PollBeside(); });  // until the work behind the poll has been done
    });
  }

  void PollBeside() {
    window_.Logic().cams.PollAllCams();
    // The round is in full course.
    QTimer::singleShot(300ms, this, [this]() {
      Poll([this]() {
        std::printf("poll_alone=%.2f poll_beside=%.2f\n", alone_, taken_);
        window_.Logic().cams.Stop();
        if (++round_ == kPairs) return window_.CloseMe();
        QTimer::singleShot(3s, this, [this]() { PollAlone(); });
      });
    });
  }

  Program& program_;
  Form1& window_;
  QString folder_;
  QStringList living_;
  QStringList dead_;
  int rounds_;
  int round_ = 0;
  int awaited_ = 0;
  Step onAnswers_;   // all living cams of the round have answered
  Step onFinished_;  // the round is over
  Step onIdle_;      // the poll is over
  QElapsedTimer time_;
  double taken_ = 0;  // by what was measured last
  double withDead_ = 0;
  double alone_ = 0;
};

}  // namespace

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  const int rounds = argc == 3 ? QByteArray(argv[1]).toInt() : 0;
  AccessibleCell::Install();
  const BenchWindow at;
  const CamBench bench(at.services->program, *at.window, argc == 3 ? QString::fromLocal8Bit(argv[2]) : QString(),
                       rounds);
  if (rounds < 1 || !bench.HasAddresses()) {
    std::fprintf(stderr, "usage: %s ROUNDS FOLDER, with the band's cams.txt and dead.txt in FOLDER\n", argv[0]);
    return 2;
  }
  if (!at.window->Load(false)) return 1;
  return QApplication::exec();
}
