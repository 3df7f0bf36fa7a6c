// SPDX-License-Identifier: GPL-3.0-or-later
// Ten million positions through the formulas of each map, one core, and through PROJ's Robinson projection. Prints
// "<map>=<ms>" a map, then "proj=<ms>". scripts/bench compares them.
#include <proj.h>

#include <QElapsedTimer>
#include <cstdio>
#include <random>
#include <vector>

#include "maps/map_projection.h"

using namespace Qt::StringLiterals;

namespace {

// The same positions are used in each round: they stay in the cache, so that the figure is the arithmetic's.
constexpr size_t kPositions = 100'000;
constexpr int kRounds = 100;

struct Position {
  double lat;
  double lon;
};

std::vector<Position> Positions() {
  std::mt19937 random(42);
  std::uniform_real_distribution<double> lat(-85, 85);
  std::uniform_real_distribution<double> lon(-180, 180);
  std::vector<Position> positions(kPositions);
  for (Position& position : positions) position = {lat(random), lon(random)};
  return positions;
}

double Milliseconds(const QElapsedTimer& timer) {
  return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

void MeasureMap(QLatin1String name, const std::vector<Position>& positions, unsigned& sum) {
  const MapName map = MapOfName(QString(name));
  QElapsedTimer timer;
  timer.start();
  for (int round = 0; round < kRounds; ++round) {
    for (Position position : positions) {
      int x = 0;
      int y = 0;
      LatLonToPixel(map, position.lat, position.lon, x, y);
      sum += static_cast<unsigned>(x) ^ static_cast<unsigned>(y);
    }
  }
  std::printf("%s=%.1f\n", name.data(), Milliseconds(timer));
}

bool MeasureProj(const std::vector<Position>& positions, unsigned& sum) {
  PJ* robinson =
      proj_create(nullptr, "+proj=pipeline +step +proj=unitconvert +xy_in=deg +xy_out=rad +step +proj=robin");
  if (robinson == nullptr) return false;
  double spent = 0;
  for (int round = 0; round < kRounds; ++round) {
    std::vector<PJ_COORD> points;
    points.reserve(positions.size());
    for (const Position& position : positions) points.push_back(proj_coord(position.lon, position.lat, 0, 0));
    QElapsedTimer timer;
    timer.start();
    proj_trans_array(robinson, PJ_FWD, points.size(), points.data());
    spent += Milliseconds(timer);
    sum += static_cast<unsigned>(static_cast<int>(points[static_cast<size_t>(round)].xy.x));
  }
  std::printf("proj=%.1f\n", spent);
  proj_destroy(robinson);
  return true;
}

}  // namespace

int main() {
  const std::vector<Position> positions = Positions();
  unsigned sum = 0;
  for (const QLatin1String name :
       {"Asia Map"_L1, "Australia Map"_L1, "Europe Map"_L1, "Japan Map"_L1, "N-Nederland Map"_L1, "New Zealand Map"_L1,
        "North America Map"_L1, "UK Map"_L1, "World Map"_L1}) {
    MeasureMap(name, positions, sum);
  }
  const bool measured = MeasureProj(positions, sum);
  std::fprintf(stderr, "checksum %u\n", sum);  // keeps the work from being left out
  return measured ? 0 : 1;
}
