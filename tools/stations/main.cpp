// SPDX-License-Identifier: GPL-3.0-or-later
// omni-perch-stations: seeds a data folder for the demo, and serves the demo's band until it is told to stop.
#include <sys/signalfd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QCommandLineParser>
#include <QGuiApplication>
#include <QRandomGenerator>
#include <QSocketNotifier>
#include <QTimer>
#include <array>
#include <csignal>
#include <cstdio>
#include <memory>

#include "author_pages.h"
#include "companion.h"
#include "demo_folder.h"
#include "own_pictures.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kFirstPage = 36;  // stations whose pictures are painted before "ready" is printed

// Ends the event loop on SIGTERM or SIGINT, and when whoever holds the other end of stdin's pipe goes away. A terminal
// or /dev/null as stdin, as scripts in the background have it, ends nothing.
class StopSign : public QObject {
 public:
  // Make it before any thread, so that all threads leave the signals to the loop.
  StopSign() {
    sigset_t set;
    sigemptyset(&set);
    sigaddset(&set, SIGTERM);
    sigaddset(&set, SIGINT);
    pthread_sigmask(SIG_BLOCK, &set, nullptr);
    signals_ = signalfd(-1, &set, SFD_CLOEXEC);
  }
  ~StopSign() override { close(signals_); }
  StopSign(const StopSign&) = delete;
  StopSign& operator=(const StopSign&) = delete;

  void Watch() {
    auto* signal = new QSocketNotifier(signals_, QSocketNotifier::Read, this);
    connect(signal, &QSocketNotifier::activated, qApp, &QCoreApplication::quit);
    struct stat input {};
    if (fstat(STDIN_FILENO, &input) != 0 || !(S_ISFIFO(input.st_mode) || S_ISSOCK(input.st_mode))) return;
    auto* pipe = new QSocketNotifier(STDIN_FILENO, QSocketNotifier::Read, this);
    connect(pipe, &QSocketNotifier::activated, qApp, [] {
      std::array<char, 256> text{};
      if (read(STDIN_FILENO, text.data(), text.size()) <= 0) QCoreApplication::quit();
    });
  }

 private:
  int signals_ = -1;
};

// Lets stations receive pictures and go on and off the air while somebody watches.
class Traffic : public QObject {
 public:
  Traffic(const Demo& demo, quint32 seed) : demo_(demo), chance_(seed) {
    connect(&timer_, &QTimer::timeout, this, &Traffic::Next);
  }
  void Start(std::chrono::milliseconds every) { timer_.start(every); }

 private:
  Station* Any() {
    // The first page is the one that is looked at most.
    const auto all = static_cast<int>(demo_.healthy.size());
    const int bound = chance_.bounded(10) < 7 ? std::min(kFirstPage - 2, all) : all;
    return demo_.healthy.at(static_cast<std::size_t>(chance_.bounded(bound)));
  }
  void Next() {
    Station* station = Any();
    station->NewPicture();
    station->SetOnAir(chance_.bounded(3) == 0);
    Any()->SetOnAir(chance_.bounded(2) == 0);
    std::printf("new picture at %s\n", qPrintable(station->Call()));
    std::fflush(stdout);
  }

  const Demo& demo_;
  QRandomGenerator chance_;
  QTimer timer_;
};

// Has every station's newest picture painted, those of the first page before the rest; ready is called between the two.
void PaintAhead(StationBand& band, const std::function<void()>& ready) {
  const auto left = std::make_shared<int>(kFirstPage);
  for (Station* station : band.Stations()) {
    station->Prepare([left, ready] {
      if (--*left == 0) ready();
    });
  }
}

void PrintRequests(const StationBand& band) {
  std::printf("%-16s %8s %8s %8s\n", "host", "markers", "image1", "all");
  const auto row = [](const QString& name, const Host& host) {
    std::printf("%-16s %8d %8d %8d\n", qPrintable(name), host.Requests(u"checknew.jpg"_s), host.Requests(u"image1"_s),
                host.TotalRequests());
  };
  for (const Station* station : band.Stations()) row(station->Call(), *station);
  for (const QString& name : band.HostNames()) row(name, *band.FindHost(name));
  std::printf("%-16s %8s %8s %8d\n", "total", "", "", band.TotalRequests());
  std::fflush(stdout);
}

int Serve(StationBand& band, const Demo& demo, const QCommandLineParser& options, StopSign& stop) {
  if (!band.HasAddresses()) {
    std::fprintf(stderr, "cannot listen on all addresses; is another band on this port?\n");
    return 1;
  }
  const std::chrono::milliseconds latency(options.value(u"latency"_s).toInt());
  for (Station* station : band.Stations()) station->SetLatency(latency);
  for (const QString& name : band.HostNames()) band.FindHost(name)->SetLatency(latency);
  Traffic traffic(demo, options.value(u"random"_s).toUInt());
  const double every = options.value(u"new-every"_s).toDouble();
  const std::chrono::milliseconds pause(static_cast<qint64>(every * 1000));
  std::unique_ptr<OwnPictures> own;
  if (options.isSet(u"companion"_s)) own = std::make_unique<OwnPictures>(options.value(u"companion"_s), demo);
  const auto ready = [&traffic, &own, pause] {
    std::printf("ready\n");
    std::fflush(stdout);
    if (pause.count() == 0) return;
    traffic.Start(pause);
    if (own) own->Start(3 * pause);
  };
  PaintAhead(band, ready);
  stop.Watch();
  const int result = QCoreApplication::exec();
  PrintRequests(band);
  return result;
}

}  // namespace

int main(int argc, char** argv) {
  StopSign stop;
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication app(argc, argv);
  QCommandLineParser options;
  options.setApplicationDescription(u"A band of receiving stations on loopback, for the demo."_s);
  options.addHelpOption();
  options.addOptions({{u"seed"_s, u"Write what the data folder <dir> of the program lacks."_s, u"dir"_s},
                      {u"serve"_s, u"Serve until SIGTERM, or until the pipe on stdin closes; prints \"ready\"."_s},
                      {u"port"_s, u"Port of every host."_s, u"number"_s, u"8473"_s},
                      {u"new-every"_s, u"A new picture somewhere every <seconds>; 0 for none."_s, u"seconds"_s, u"0"_s},
                      {u"companion"_s, u"Report receptions by the sockets in <dir>."_s, u"dir"_s},
                      {u"random"_s, u"Which stations receive them."_s, u"number"_s, u"1"_s},
                      {u"updates"_s, u"The author's list differs from the seeded sites, and a newer version is out."_s},
                      {u"latency"_s, u"Milliseconds before each answer."_s, u"ms"_s, u"0"_s}});
  options.process(app);
  if (!options.isSet(u"seed"_s) && !options.isSet(u"serve"_s)) options.showHelp(1);

  StationBand band(options.value(u"port"_s).toUShort());
  const QDateTime now = QDateTime::currentDateTimeUtc();
  const Demo demo = BuildDemo(band, now);
  if (options.isSet(u"updates"_s)) {
    Host* author = band.FindHost(u"Author"_s);
    author->SetAnswer(kUpdatesPath, {200, "text/plain", UpdatesFile(ChangedDemo(demo, now.date())), {}});
    author->SetAnswer({}, {200, "text/html", VersionPage(u"6.51"_s), {}});
  }
  if (options.isSet(u"seed"_s) && !SeedFolder(options.value(u"seed"_s), band, demo, now)) {
    std::fprintf(stderr, "cannot write to %s\n", qPrintable(options.value(u"seed"_s)));
    return 1;
  }
  return options.isSet(u"serve"_s) ? Serve(band, demo, options, stop) : 0;
}
