// SPDX-License-Identifier: GPL-3.0-or-later
// Measures a lookup from the key press in the call field to the filled window, in the program's own windows.
//
//   omni-perch-bench-lookup ROUNDS CALL...
//
// Works on the data folder of omni-perch-bench-band, whose callbook services take their time. Each round looks every
// call up as one that the local database does not know, and prints a line, in ms: lookup=, the median of its calls,
// and lookup_first=, the first call of all, for which the window is made.

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QKeyEvent>
#include <QLabel>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

#include "bench_window.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr int kService = 3;  // QRZCQ, which shows its data without a sign-in
constexpr std::chrono::seconds kPatience = 5s;

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

// Presses the keys of one lookup after the other, and waits for each filled window.
class LookupBench : public QObject {
 public:
  LookupBench(DrawnApplication& app, Program& program, Form1& window, int rounds, const QStringList& calls)
      : program_(program), window_(window), rounds_(rounds), calls_(calls) {
    patience_.setSingleShot(true);
    patience_.setInterval(kPatience);
    connect(&patience_, &QTimer::timeout, this, []() {
      std::fputs("a lookup was not answered\n", stderr);
      QCoreApplication::exit(1);
    });
    connect(&window_.Logic().poll, &PollCycle::BusyChanged, this, &LookupBench::BusyChanged);
    app.drawn = [this]() { Drawn(); };
  }

 private:
  void BusyChanged(bool busy) {
    if (busy || begun_) return;
    begun_ = true;
    QTimer::singleShot(500ms, this, &LookupBench::PressReturn);
  }

  void PressReturn() {
    program_.config.CallbookIndex = kService;
    // As at the first lookup of a user who has no database.
    QFile::remove(program_.AppDataDir + "/Omni-Perch-DB.db"_L1);
    auto* field = window_.findChild<QLineEdit*>(u"txtCall"_s);
    field->setText(calls_.at(call_));
    waiting_ = true;
    patience_.start();
    time_.start();
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QCoreApplication::sendEvent(field, &press);
  }

  // True once the window shows the call that was asked for, and the last field that a page fills.
  bool Filled() const {
    for (const QWidget* top : QApplication::topLevelWidgets()) {
      if (top->objectName() != "Form12"_L1 || !top->isVisible()) continue;
      const auto* call = top->findChild<QLineEdit*>(u"lblCall"_s);
      const auto* place = top->findChild<QLineEdit*>(u"lblDxAz"_s);
      return call != nullptr && place != nullptr && call->text().startsWith(calls_.at(call_)) &&
             !place->text().isEmpty();
    }
    return false;
  }

  void Drawn() {
    if (!waiting_ || !Filled()) return;
    waiting_ = false;
    patience_.stop();
    times_.push_back(static_cast<double>(time_.nsecsElapsed()) / 1e6);
    if (first_ == 0) first_ = times_.back();
    ++call_;
    if (call_ == calls_.size()) FinishRound();
    if (round_ < rounds_) QTimer::singleShot(300ms, this, &LookupBench::PressReturn);
  }

  void FinishRound() {
    std::sort(times_.begin(), times_.end());
    std::printf("lookup=%.2f lookup_first=%.2f\n", times_[times_.size() / 2], first_);
    std::fflush(stdout);
    times_.clear();
    call_ = 0;
    if (++round_ == rounds_) window_.CloseMe();
  }

  Program& program_;
  Form1& window_;
  int rounds_;
  QStringList calls_;
  int round_ = 0;
  qsizetype call_ = 0;
  bool begun_ = false;
  bool waiting_ = false;
  QTimer patience_;
  QElapsedTimer time_;
  std::vector<double> times_;
  double first_ = 0;
};

}  // namespace

int main(int argc, char** argv) {
  DrawnApplication app(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  const QStringList arguments = QCoreApplication::arguments();
  const int rounds = arguments.value(1).toInt();
  if (rounds < 1 || arguments.size() < 3) {
    std::fprintf(stderr, "usage: %s ROUNDS CALL...\n", argv[0]);
    return 2;
  }
  AccessibleCell::Install();
  BenchWindow at;
  const LookupBench bench(app, at.services->program, *at.window, rounds, arguments.mid(2));
  if (!at.window->Load(false)) return 1;
  return QApplication::exec();
}
