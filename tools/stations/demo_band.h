// SPDX-License-Identifier: GPL-3.0-or-later
// The band of the demo: a hundred stations around the world on six pages, six weather sites, and a workbench of
// stations that fail each in its own way. omni-perch-stations serves it and seeds a data folder for it.
#pragma once

#include <QDateTime>
#include <QStringList>
#include <array>
#include <vector>

#include "station_band.h"

inline constexpr int kDemoLayouts = 6;
inline constexpr std::array<int, kDemoLayouts> kDemoLayoutCounts{5, 10, 15, 24, 35, 36};

// A site of the demo's list.
struct DemoSite {
  QString call;
  QString url;
  QString region;                              // where it stands; empty: on the workbench
  QString camUrl;                              // empty: none
  double lat = 0;                              // degrees
  double lon = 0;                              // degrees
  QDateTime lastSeen;                          // invalid: never
  std::array<QString, kDemoLayouts> places{};  // by layout: "PPSS"
};

// A site of the demo's weather list.
struct DemoWxSite {
  QString title;
  QString url;
  std::array<int, kDemoLayouts> places{};  // by layout: slot from 1; 0: none
};

// What the demo's band has, and what a data folder for it holds.
struct Demo {
  std::vector<DemoSite> sites;
  std::vector<DemoWxSite> wxSites;
  QStringList pageLabels;  // of page 1 and on
  QString blockedSender;
  QString MyCall;                 // whose station the demo is
  std::vector<Station*> healthy;  // stations that may receive new pictures, those of page 1 first
};

// Adds the demo's stations to a band that has none. The same in every run but for the dates, which lie before now
// (UTC).
Demo BuildDemo(StationBand& band, const QDateTime& now);
