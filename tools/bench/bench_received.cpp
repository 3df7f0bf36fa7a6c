// SPDX-License-Identifier: GPL-3.0-or-later
// The list and the map of stations that received the user's picture, with 500 reports: omni-perch-bench-received.
//
// Prints "read= build= stations= draw=", all in us, medians of 200. read: a text of the companion's with other dates
// than the one before; build: Timer3's rebuild; stations: all of them placed from the call database, none of them known
// yet; draw: what the World map shows of them.
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <vector>

#include "onair/rx_ok_map.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kReports = 500;
constexpr int kRounds = 200;

QString CallOf(int number) {
  return u"Z%1AB"_s.arg(number, 3, 10, QChar(u'0'));
}

QString Reports(int round) {
  QStringList records;
  for (int i = 0; i < kReports; ++i) {
    records.append(CallOf(i) + u"\tgood copy\t11/22/2026 %1:%2"_s.arg(round % 24).arg(i % 60, 2, 10, QChar(u'0')));
  }
  return records.join(u'*');
}

// A page whose 36 stations all show the user's picture; half of them are reported too.
void FillPage(Program& program) {
  program.config.MyCall = u"ZZ9ME"_s;
  program.config.MyLat = 50.1;
  program.config.MyLon = 10.4;
  program.page.ThumbCount = kMaxSlots;
  for (int slot = 0; slot < kMaxSlots; ++slot) {
    SiteRec site;
    site.Call = CallOf(slot + kReports - kMaxSlots / 2);
    site.Lat = 52;
    site.Lon = slot;
    program.sites.Sites.append(site);
    program.sites.lstCalls.append(site.Call);
    program.page.Field(slot, SlotSite) = QString::number(slot);
    program.page.Field(slot, Caller) = u"ZZ9ME JT65"_s;
    program.page.Field(slot, SentTime) = u"11/22/2026 10:00"_s;
  }
}

template <typename Work>
double Microseconds(Work work) {
  std::vector<double> times;
  for (int round = 0; round < kRounds; ++round) {
    QElapsedTimer timer;
    timer.start();
    work(round);
    times.push_back(static_cast<double>(timer.nsecsElapsed()) / 1000);
  }
  std::sort(times.begin(), times.end());
  return times[kRounds / 2];
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication app(argc, argv);
  const QTemporaryDir folder;
  Program program;
  FillPage(program);
  CallDatabase database(folder.path());
  QList<StationRecord> records;
  DbRec record;
  record.Lat = u"51.5"_s;
  record.Lon = u"-0.5"_s;
  for (int i = 0; i < kReports; ++i) {
    record.Call = CallOf(i);
    records.append({CallOf(i), record});
  }
  database.SaveStations(records);
  database.Finish();
  UrlNetwork network;
  PageTextTool pageText{QString()};
  PictureTool tool{QString(), folder.path()};
  Background background;
  const Hosts hosts;

  QStringList texts;
  for (int round = 0; round < kRounds; ++round) texts.append(Reports(round));
  RxOkList list;
  const double read = Microseconds([&](int round) { list.SetReports(texts.at(round), program.lstBadCalls); });
  const double build = Microseconds([&](int) { list.BuildRxOkList(program); });
  QList<RxOkStation> found;
  const double stations = Microseconds([&](int) {
    RxOkLookups lookUps({program, network, hosts, pageText, tool, background, database});
    found = RxOkStations(list, program.sites, lookUps);
  });
  const MapSurface surface{MapName::World, QSize(2800, 1412),
                           [](const QString& text) { return QSizeF(8.0 * static_cast<double>(text.size()), 20); }};
  qsizetype labels = 0;
  const double draw = Microseconds([&](int) { labels = BuildRxOkMap(program, found, surface).overlay.labels.size(); });
  if (list.Rows().size() != kReports + kMaxSlots / 2 || labels != list.Rows().size() + 1) {
    std::fprintf(stderr, "%lld rows, %lld labels\n", static_cast<long long>(list.Rows().size()),
                 static_cast<long long>(labels));
    return 1;
  }
  std::printf("read=%.1f build=%.1f stations=%.1f draw=%.1f\n", read, build, stations, draw);
  return 0;
}
