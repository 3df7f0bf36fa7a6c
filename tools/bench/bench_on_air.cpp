// SPDX-License-Identifier: GPL-3.0-or-later
// Measures who is on the air and what is read about the bands, one job a process:
//
//   omni-perch-bench-on-air list FOLDER     On Air Now with 10,000 stations, on the call database in FOLDER
//   omni-perch-bench-on-air make FILE       writes a file of 100,000 reception reports, of 5,000 stations
//   omni-perch-bench-on-air paths FILE      reads it
//
// list prints "list= list_event=": the median of its refreshes, from the key to the painted list, and the longest
// handling of one event, in ms. paths prints "paths= paths_mib=": ms from the opening of the file to its rows, and what
// the rows keep.
#include <malloc.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QKeyEvent>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QThread>
#include <QTimer>
#include <algorithm>
#include <atomic>
#include <cstdio>
#include <functional>

#include "bench_calls.h"
#include "core/language_file.h"
#include "onair/on_air_now_window.h"
#include "onair/propagation_file.h"
#include "station_band.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kStations = 10'000;
constexpr int kReports = 100'000;
constexpr quint32 kReporters = 5'000;
constexpr int kRefreshes = 5;
constexpr std::chrono::seconds kPatience(20);

double Ms(const QElapsedTimer& timer) {
  return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

// Half of the stations each; every answer has other frequencies than the one before it.
QByteArray Reply(int turn, bool text) {
  QByteArray reply = text ? "On air\r\n" : "On air\n";
  for (int i = 0; i < kStations / 2; ++i) {
    const QByteArray call = CallOf(static_cast<quint32>(i * 2 + (text ? 1 : 0)) * 20).toLatin1();
    const QByteArray end = QByteArray::number(turn % 2 * 100 + 100 + i % 100);
    reply += text ? call + "_EP_14" + end + "_heard well\r\n" : call + "-EP  14." + end + " calling CQ_1\n";
  }
  return reply;
}

// The two sources on a thread of their own, as they are elsewhere in life.
class Sources : public QThread {
 public:
  Sources() { moveToThread(this); }
  // Their addresses, once they listen.
  Hosts Start() {
    start();
    while (!ready_) msleep(1);
    return hosts_;
  }
  ~Sources() override {
    quit();
    wait();
  }
  Sources(const Sources&) = delete;
  Sources& operator=(const Sources&) = delete;

 protected:
  void run() override {
    const StationBand band;
    const auto serve = [&band](const QString& host, const QString& path, bool text) {
      const QList<QByteArray> replies{Reply(0, text), Reply(1, text)};
      static_cast<PageHost*>(band.FindHost(host))->SetPage(path, [replies, turn = 0]() mutable {
        return replies.at(turn++ % 2);
      });
    };
    serve(u"OnAirCgi"_s, u"cgi-bin/call.cgi"_s, false);
    serve(u"OnAirText"_s, u"zz9qx/Files/OnAirNow.txt"_s, true);
    hosts_.OnAirCgi = band.HostUrl(u"OnAirCgi"_s);
    hosts_.OnAirText = band.HostUrl(u"OnAirText"_s);
    ready_ = true;
    exec();
  }

 private:
  Hosts hosts_;
  std::atomic<bool> ready_ = false;
};

// Times each event, and tells when one has been handled.
class TimedApplication : public QApplication {
 public:
  using QApplication::QApplication;
  double longest = 0;
  std::function<void(QEvent::Type)> handled;

  bool notify(QObject* receiver, QEvent* event) override {
    const QEvent::Type type = event->type();
    ++depth_;
    QElapsedTimer timer;
    timer.start();
    const bool result = QApplication::notify(receiver, event);
    if (--depth_ == 0) longest = std::max(longest, Ms(timer));
    if (handled) handled(type);
    return result;
  }

 private:
  int depth_ = 0;
};

struct NoMenus : MenuOpener {
  void OpenMenu(const MenuRequest&) override {}
  void CloseMenus() override {}
};

// Refreshes the list again and again.
class ListBench {
 public:
  ListBench(TimedApplication& app, const QString& folder) : app_(app), hosts_(sources_.Start()), database_(folder) {
    program_.AppDataDir = folder;
    program_.config.MyLat = 50;
    program_.config.MyLon = 10;
    app_.handled = [this](QEvent::Type type) {
      if (type == QEvent::UpdateRequest) Painted();
    };
    window_.show();
  }
  ~ListBench() { app_.handled = nullptr; }
  ListBench(const ListBench&) = delete;
  ListBench& operator=(const ListBench&) = delete;

 private:
  void Painted() {
    const QList<OnAirEntry>& entries = window_.findChild<OnAirGrid*>()->Model().Entries();
    if (entries.size() != kStations || entries.first() == first_ || entries.last() == last_) return;
    first_ = entries.first();
    last_ = entries.last();
    // The first list is the opening of the window.
    if (timer_.isValid()) times_.append(Ms(timer_));
    timer_.invalidate();
    if (times_.size() == kRefreshes) {
      std::sort(times_.begin(), times_.end());
      std::printf("list=%.1f list_event=%.1f\n", times_.at(kRefreshes / 2), app_.longest);
      QCoreApplication::exit(0);
      return;
    }
    QTimer::singleShot(std::chrono::milliseconds(200), &window_, [this]() {
      // Making and showing the window is not what is measured.
      if (times_.isEmpty()) app_.longest = 0;
      timer_.start();
      QKeyEvent press(QEvent::KeyPress, Qt::Key_F5, Qt::NoModifier);
      QApplication::sendEvent(&window_, &press);
    });
  }

  TimedApplication& app_;
  Sources sources_;
  Hosts hosts_;
  Program program_;
  QTemporaryDir settings_;
  SettingsStore store_{settings_.filePath(u"settings.ini"_s)};
  Background background_;
  PictureTool tool_{QCoreApplication::applicationDirPath() + u"/omni-perch-decoder"_s, settings_.path()};
  PageTextTool pageText_{QCoreApplication::applicationDirPath() + u"/omni-perch-decoder"_s};
  CallDatabase database_;
  UrlNetwork network_;
  NoMenus menus_;
  frmOnAirNow window_{{{{program_, network_, hosts_, pageText_, background_}, store_, database_}, tool_, menus_, {}},
                      nullptr};
  OnAirEntry first_;
  OnAirEntry last_;
  QElapsedTimer timer_;
  QList<double> times_;
};

int MakeReports(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly)) return 1;
  QRandomGenerator random(5);
  const QDateTime last(QDate(2026, 1, 1), QTime(12, 0), Qt::UTC);
  const auto call = [&random]() { return CallOf(random.bounded(kReporters) * 7); };
  QString text = u"Propagation paths\r\n"_s;
  for (int i = kReports; i > 0; --i) {
    text += call() + u'_' + call() + u"_EP_"_s + QString::number(14200 + random.bounded(100)) + u"_snr "_s +
            QString::number(random.bounded(400)) + u'_' + last.addSecs(-i).toString(u"yyyyMMddhhmmss"_s) +
            u".txt\r\n"_s;
  }
  file.write(text.toLatin1() + "End\r\n");
  return 0;
}

int ReadReports(const QString& path) {
  QElapsedTimer timer;
  timer.start();
  const auto before = static_cast<double>(mallinfo2().uordblks + mallinfo2().hblkhd);
  PropagationReports reports;
  {
    QFile file(path);
    if (file.open(QIODevice::ReadOnly)) reports = ReadPropagationFile(file.readAll());
  }
  const double ms = Ms(timer);
  const auto kept = static_cast<double>(mallinfo2().uordblks + mallinfo2().hblkhd) - before;
  std::printf("paths=%.1f paths_mib=%.1f rows=%zu\n", ms, kept / 1024 / 1024, reports.rows.size());
  return reports.rows.size() == kReports ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  const QString job = QString::fromLocal8Bit(argv[1]);
  const QString path = QString::fromLocal8Bit(argv[2]);
  if (job == "make"_L1) return MakeReports(path);
  if (job == "paths"_L1) return ReadReports(path);
  TimedApplication app(argc, argv);
  QTimer::singleShot(kPatience * kRefreshes, &app, []() {
    std::fputs("the list was not filled\n", stderr);
    QCoreApplication::exit(1);
  });
  const ListBench bench(app, path);
  return QCoreApplication::exec();
}
