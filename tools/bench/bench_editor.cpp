// SPDX-License-Identifier: GPL-3.0-or-later
// Measures the editor of the call database on the database in a folder: omni-perch-bench-editor FOLDER ROUNDS. Prints a
// line a round: "open=" from the key press to the painted list, "type=" the longest way of a typed letter to the
// painted selection, "scroll=" of a page key to the painted list, "event=" the longest handling of one event (all in
// ms), "mib=" more memory (PSS) with the window open, "left=" of that 2 s after it was closed.
#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QKeyEvent>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <cstdio>

#include "bench_calls.h"
#include "callbook/database_editor_window.h"
#include "platform/heap.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kTyped = 40;
constexpr int kPages = 100;
constexpr std::chrono::seconds kPatience(20);

double Ms(const QElapsedTimer& timer) {
  return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

double PssMib() {
  QFile file(u"/proc/self/smaps_rollup"_s);
  if (!file.open(QIODevice::ReadOnly)) return 0;
  for (const QByteArray& line : file.readAll().split('\n')) {
    if (line.startsWith("Pss:")) return line.mid(4).simplified().split(' ').first().toDouble() / 1024;
  }
  return 0;
}

// Knows when a window has been painted, and how long the longest event took.
class TimedApplication : public QApplication {
 public:
  using QApplication::QApplication;
  double longest = 0;
  int painted = 0;

  bool notify(QObject* receiver, QEvent* event) override {
    const QEvent::Type type = event->type();
    ++depth_;
    QElapsedTimer timer;
    timer.start();
    const bool result = QApplication::notify(receiver, event);
    if (--depth_ == 0) longest = std::max(longest, Ms(timer));
    if (type == QEvent::UpdateRequest) ++painted;
    return result;
  }

  // Runs the event loop until done() and the next painting; false if that takes too long.
  template <typename Done>
  bool Until(const Done& done) {
    QElapsedTimer timer;
    timer.start();
    int seen = -1;
    while (std::chrono::milliseconds(timer.elapsed()) < kPatience) {
      processEvents(QEventLoop::AllEvents, 5);
      if (seen < 0 && done()) seen = painted;
      if (seen >= 0 && painted > seen) return true;
    }
    return false;
  }
  void Rest(std::chrono::milliseconds time) {
    QElapsedTimer timer;
    timer.start();
    while (std::chrono::milliseconds(timer.elapsed()) < time) processEvents(QEventLoop::AllEvents, 5);
  }

 private:
  int depth_ = 0;
};

class EditorBench {
 public:
  EditorBench(TimedApplication& app, const QString& folder) : app_(app), database_(folder) {
    program_.AppDataDir = folder;
    LoadLanguage(u"data/Languages"_s, u"English"_s, 8, Program::ProgVersion(), program_.language);
  }

  bool Round() {
    const double before = PssMib();
    const int records = database_.RecordCount();
    app_.longest = 0;
    QElapsedTimer timer;
    timer.start();
    const SignInBrowser browser{[]() -> BrowserWindows* { return nullptr; }, [](const QUrl&) {}, dialogs_};
    auto* window = new Form26(
        {{program_, network_, tool_, pageText_, background_, hosts_, cookies_, database_}, browser, dialogs_}, nullptr);
    window->show();
    auto* list = window->findChild<QListView*>();
    if (!app_.Until([list, records]() { return list->model()->rowCount() == records; })) return false;
    const double open = Ms(timer);
    app_.Rest(std::chrono::milliseconds(200));
    app_.longest = 0;
    const double type = Type(*window);
    const double scroll = Scroll(list);
    const double mib = PssMib() - before;
    window->close();
    app_.Rest(std::chrono::seconds(2));
    GiveBackFreeMemory();
    std::printf("open=%.1f type=%.1f scroll=%.1f event=%.1f mib=%.1f left=%.1f\n", open, type, scroll, app_.longest,
                std::max(mib, 0.0), std::max(PssMib() - before, 0.0));
    return true;
  }

 private:
  double Press(QWidget* widget, int key, const QString& text) {
    QElapsedTimer timer;
    timer.start();
    const int painted = app_.painted;
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(widget, &press);
    while (app_.painted == painted && timer.elapsed() < 100) {
      app_.processEvents(QEventLoop::AllEvents);
    }
    return Ms(timer);
  }
  double Type(QWidget& window) {
    auto* txtCall = window.findChild<QLineEdit*>(u"txtCall"_s);
    QRandomGenerator random(7);
    double longest = 0;
    for (int i = 0; i < kTyped; ++i) {
      txtCall->selectAll();
      const QString call = CallOf(random.bounded(100'000U));
      for (const QChar c : call) longest = std::max(longest, Press(txtCall, 0, QString(c)));
    }
    return longest;
  }
  double Scroll(QWidget* list) {
    list->setFocus();
    double longest = 0;
    for (int i = 0; i < kPages; ++i) {
      const int key = i < kPages / 2 ? Qt::Key_PageDown : i == kPages / 2 ? Qt::Key_End : Qt::Key_PageUp;
      longest = std::max(longest, Press(list, key, {}));
    }
    return longest;
  }

  TimedApplication& app_;
  Program program_;
  QTemporaryDir settings_;
  Hosts hosts_;
  Dialogs dialogs_;
  Background background_;
  CookieStore cookies_{settings_.path()};
  PictureTool tool_{QCoreApplication::applicationDirPath() + u"/omni-perch-decoder"_s, settings_.path()};
  PageTextTool pageText_{QCoreApplication::applicationDirPath() + u"/omni-perch-decoder"_s};
  UrlNetwork network_;
  CallDatabase database_;
};

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  ReturnFreedMemory();
  TimedApplication app(argc, argv);
  app.setQuitOnLastWindowClosed(false);
  EditorBench bench(app, QString::fromLocal8Bit(argv[1]));
  for (int round = QByteArray(argv[2]).toInt(); round > 0; --round) {
    if (!bench.Round()) return 1;
  }
  return 0;
}
