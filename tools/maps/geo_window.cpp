// SPDX-License-Identifier: GPL-3.0-or-later
#include "geo_window.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace {

// Longitudes without jumps: each step goes the short way round.
GeoLine Unwrap(GeoLine line) {
  for (qsizetype i = 1; i < line.size(); ++i) {
    line[i].lon -= 360 * std::round((line[i].lon - line[i - 1].lon) / 360);
  }
  return line;
}

// A ring that ends a full turn from where it began goes around a pole: it is closed along the pole.
GeoLine CloseOverPole(GeoLine ring) {
  if (ring.size() < 2 || std::abs(ring.last().lon - ring.first().lon) < 180) return ring;
  const double pole = ring.first().lat < 0 ? -90 : 90;
  const double first = ring.first().lon;
  ring.append({pole, ring.last().lon});
  ring.append({pole, first});
  return ring;
}

void Shift(GeoLine& line, double degrees) {
  for (GeoPoint& point : line) point.lon += degrees;
}

// The shifted copies of a line that can touch the window.
QList<GeoLine> Copies(const GeoLine& line, const GeoWindow& window) {
  QList<GeoLine> copies;
  if (line.isEmpty()) return copies;
  const auto byLon = [](const GeoPoint& a, const GeoPoint& b) { return a.lon < b.lon; };
  const auto byLat = [](const GeoPoint& a, const GeoPoint& b) { return a.lat < b.lat; };
  const auto [west, east] = std::minmax_element(line.begin(), line.end(), byLon);
  const auto [south, north] = std::minmax_element(line.begin(), line.end(), byLat);
  if (south->lat > window.north || north->lat < window.south) return copies;
  const int from = static_cast<int>(std::ceil((window.west - east->lon) / 360));
  const int to = static_cast<int>(std::floor((window.east - west->lon) / 360));
  for (int turn = from; turn <= to; ++turn) {
    GeoLine copy = line;
    Shift(copy, 360.0 * turn);
    copies.append(copy);
  }
  return copies;
}

GeoPoint Between(const GeoPoint& a, const GeoPoint& b, double part) {
  return {a.lat + (b.lat - a.lat) * part, a.lon + (b.lon - a.lon) * part};
}

// How far a point lies inside one edge of the window; negative outside.
using Inside = std::function<double(const GeoPoint&)>;

QList<Inside> EdgesOf(const GeoWindow& window) {
  return {[window](const GeoPoint& p) { return p.lon - window.west; },
          [window](const GeoPoint& p) { return window.east - p.lon; },
          [window](const GeoPoint& p) { return p.lat - window.south; },
          [window](const GeoPoint& p) { return window.north - p.lat; }};
}

GeoLine KeepInside(const GeoLine& ring, const Inside& inside) {
  GeoLine kept;
  for (qsizetype i = 0; i < ring.size(); ++i) {
    const GeoPoint& here = ring[i];
    const GeoPoint& next = ring[(i + 1) % ring.size()];
    const double a = inside(here);
    const double b = inside(next);
    if (a >= 0) kept.append(here);
    if ((a >= 0) != (b >= 0)) kept.append(Between(here, next, a / (a - b)));
  }
  return kept;
}

QList<GeoLine> SplitInside(const GeoLine& line, const Inside& inside) {
  QList<GeoLine> parts;
  GeoLine part;
  const auto finish = [&] {
    if (part.size() > 1) parts.append(part);
    part.clear();
  };
  for (qsizetype i = 0; i < line.size(); ++i) {
    const double here = inside(line[i]);
    if (here >= 0) part.append(line[i]);
    if (i + 1 == line.size()) break;
    const double next = inside(line[i + 1]);
    if ((here >= 0) != (next >= 0)) part.append(Between(line[i], line[i + 1], here / (here - next)));
    if (next < 0) finish();
  }
  finish();
  return parts;
}

}  // namespace

QList<GeoLine> CutRing(const GeoLine& ring, const GeoWindow& window) {
  QList<GeoLine> parts;
  for (GeoLine part : Copies(CloseOverPole(Unwrap(ring)), window)) {
    for (const Inside& inside : EdgesOf(window)) part = KeepInside(part, inside);
    if (part.size() > 2) parts.append(part);
  }
  return parts;
}

QList<GeoLine> CutLine(const GeoLine& line, const GeoWindow& window) {
  QList<GeoLine> parts = Copies(Unwrap(line), window);
  for (const Inside& inside : EdgesOf(window)) {
    QList<GeoLine> kept;
    for (const GeoLine& part : parts) kept.append(SplitInside(part, inside));
    parts = kept;
  }
  return parts;
}

GeoLine Densify(const GeoLine& line, double step) {
  GeoLine dense;
  for (qsizetype i = 0; i < line.size(); ++i) {
    dense.append(line[i]);
    if (i + 1 == line.size()) break;
    const GeoPoint& next = line[i + 1];
    const double length = std::max(std::abs(next.lat - line[i].lat), std::abs(next.lon - line[i].lon));
    const int pieces = static_cast<int>(std::ceil(length / step));
    for (int piece = 1; piece < pieces; ++piece) dense.append(Between(line[i], next, double(piece) / pieces));
  }
  return dense;
}
