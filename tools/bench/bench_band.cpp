// SPDX-License-Identifier: GPL-3.0-or-later
// The band that the benchmark polls: 36 stations with pictures of mixed types, the same 36 on each of the 20 pages, so
// that every page change finds 36 new pictures and every refresh 36 known ones.
//
//   omni-perch-bench-band DATA_FOLDER LATENCY_MS [CAMS]
//
// Writes a data folder for the band and, beside the folder, urls.txt with the pictures' addresses; prints "ready" and
// serves until its input ends. Stations and callbook services answer after LATENCY_MS; the connectivity page at once.
// With CAMS the list has so many further sites with a cam each, on no page, that answers after LATENCY_MS too; beside
// the folder are cams.txt with their addresses and dead.txt with as many at which nobody ever answers a call.

#include <QDir>
#include <QGuiApplication>
#include <QSaveFile>
#include <QSocketNotifier>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTextStream>
#include <array>
#include <cstdio>
#include <memory>

#include "band_pictures.h"
#include "station_band.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kStations = 36;
constexpr int kPages = 20;
constexpr int kDead = 100;

// The types of a busy page: mostly JPEG and JPEG 2000, some of every other still type.
PictureType TypeOf(int index) {
  static constexpr PictureType kTypes[] = {PictureType::Jpeg, PictureType::Jp2, PictureType::Jpeg,
                                           PictureType::Png,  PictureType::Jp2, PictureType::Jpeg,
                                           PictureType::Gif,  PictureType::Jp2, PictureType::Bmp};
  return kTypes[static_cast<std::size_t>(index) % std::size(kTypes)];
}

QString CallOf(int index) {
  return u"DL%1ZZ%2"_s.arg(index / 9).arg(QChar(u'A' + index % 26));
}

void FillBand(StationBand& band, std::chrono::milliseconds latency) {
  for (int index = 0; index < kStations; ++index) {
    Station& station = band.AddStation(CallOf(index));
    PictureRecipe recipe;
    recipe.seed = static_cast<quint32>(index + 1);
    recipe.type = TypeOf(index);
    recipe.size = QSize(640, 480);
    recipe.caller = u"F4ZZ%1"_s.arg(QChar(u'A' + index % 26));
    station.SetRecipe(recipe);
    station.SetMarker(QSize(index % 4 == 0 ? 1 : 2, 100 + index));
    station.SetLatency(latency);
  }
  for (const QString& service : {u"eHam"_s, u"QRZ"_s, u"QRZCQ"_s, u"Callook"_s, u"HamCall"_s, u"Pictures"_s}) {
    band.FindHost(service)->SetLatency(latency);
  }
}

// A slot of every page under the layout of 36.
QString SlotsOf(int index) {
  QStringList tokens;
  for (int page = 1; page <= kPages; ++page) {
    tokens << u"%1%2"_s.arg(page, 2, 10, QChar(u'0')).arg(index + 1, 2, 10, QChar(u'0'));
  }
  return tokens.join(u':');
}

bool Write(const QString& path, const QStringList& lines) {
  QSaveFile file(path);
  return file.open(QIODevice::WriteOnly) && file.write((lines.join("\r\n"_L1) + "\r\n"_L1).toUtf8()) >= 0 &&
         file.commit();
}

// Cams at addresses of their own, all with the same picture.
class Cams {
 public:
  Cams(int count, std::chrono::milliseconds latency) {
    PictureRecipe recipe;
    recipe.type = PictureType::Jpeg;
    recipe.size = QSize(640, 480);
    const QByteArray picture = MakePicture(recipe);
    for (int i = 0; i < count; ++i) {
      hosts_.push_back(std::make_unique<PageHost>(QHostAddress(kFirstCam + static_cast<quint32>(i)), 0, nullptr));
      hosts_.back()->SetAnswer(u"cam.jpg"_s, {200, "image/jpeg", picture, {}});
      hosts_.back()->SetLatency(latency);
      urls << hosts_.back()->Base() + u"/cam.jpg"_s;
    }
    for (int i = 0; i < (count > 0 ? kDead : 0); ++i) {
      dead_.push_back(std::make_unique<DeadHost>(QHostAddress(kFirstDead + static_cast<quint32>(i))));
      deadUrls << dead_.back()->Url();
    }
  }

  QStringList urls;
  QStringList deadUrls;

 private:
  static constexpr quint32 kFirstCam = 0x7f600001;   // 127.96.0.1
  static constexpr quint32 kFirstDead = 0x7f610001;  // 127.97.0.1

  // Its queue of callers is full, so that a further call gets no answer at all.
  class DeadHost {
   public:
    explicit DeadHost(const QHostAddress& address) {
      server_.setListenBacklogSize(1);
      server_.listen(address);
      server_.pauseAccepting();
      for (QTcpSocket& caller : callers_) caller.connectToHost(server_.serverAddress(), server_.serverPort());
    }
    QString Url() const {
      return u"http://%1:%2/cam.jpg"_s.arg(server_.serverAddress().toString()).arg(server_.serverPort());
    }

   private:
    QTcpServer server_;
    std::array<QTcpSocket, 4> callers_;
  };

  std::vector<std::unique_ptr<PageHost>> hosts_;
  std::vector<std::unique_ptr<DeadHost>> dead_;
};

bool WriteDataFolder(const StationBand& band, const Cams& cams, const QString& folder) {
  QStringList sites;
  QStringList urls;
  for (const Station* station : band.Stations()) {
    const auto index = static_cast<int>(urls.size());
    sites << u"%1******%2*50.1*8.6**"_s.arg(station->Call(), SlotsOf(index)) << station->Url();
    urls << station->Url();
  }
  for (const QString& url : cams.urls) {
    const auto number = static_cast<int>(sites.size() / 2);
    sites << u"CM%1%2*******50.1*8.6**%3"_s.arg(number % 10).arg(number, 4, 10, QChar(u'0')).arg(url) << u"Cam only"_s;
  }
  QSaveFile hosts(folder + "/hosts.ini"_L1);
  // Window size 2, the layout of 36, no automatic refresh: nothing may start a poll but the benchmark; one round of all
  // cams, if there are any.
  const QStringList config{u"2"_s,       u"6"_s,  u"0"_s, u"1"_s,  u"0"_s,
                           u"English"_s, u"50"_s, u"8"_s, u"0"_s,  cams.urls.isEmpty() ? u"2"_s : u"0"_s,
                           u"0"_s,       u""_s,   u"0"_s, u"0"_s,  u"0"_s,
                           u"0"_s,       u""_s,   u"1"_s, u"0*"_s, u"0"_s};
  return QDir().mkpath(folder) && Write(folder + "/Omni-Perch.cfg"_L1, config) &&
         Write(folder + "/Omni-Perch.lst"_L1, sites) && Write(folder + "/WXsites.lst"_L1, {}) &&
         Write(folder + "/../urls.txt"_L1, urls) && Write(folder + "/../cams.txt"_L1, cams.urls) &&
         Write(folder + "/../dead.txt"_L1, cams.deadUrls) && hosts.open(QIODevice::WriteOnly) &&
         hosts.write(band.HostsIni()) >= 0 && hosts.commit();
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication app(argc, argv);
  if (argc < 3 || argc > 4) {
    std::fprintf(stderr, "usage: %s DATA_FOLDER LATENCY_MS [CAMS]\n", argv[0]);
    return 2;
  }
  StationBand band;
  const std::chrono::milliseconds latency(QByteArray(argv[2]).toInt());
  FillBand(band, latency);
  const Cams cams(argc == 4 ? QByteArray(argv[3]).toInt() : 0, latency);
  if (!band.HasAddresses() || !WriteDataFolder(band, cams, QString::fromLocal8Bit(argv[1]))) {
    std::fprintf(stderr, "cannot listen, or cannot write %s\n", argv[1]);
    return 1;
  }
  int unpainted = kStations;
  for (Station* station : band.Stations()) {
    station->Prepare([&unpainted]() {
      if (--unpainted == 0) {
        std::puts("ready");
        std::fflush(stdout);
      }
    });
  }
  QSocketNotifier input(0, QSocketNotifier::Read);
  QObject::connect(&input, &QSocketNotifier::activated, &app, []() {
    if (std::getchar() == EOF) QCoreApplication::quit();
  });
  return QGuiApplication::exec();
}
