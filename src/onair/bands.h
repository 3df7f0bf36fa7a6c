// SPDX-License-Identifier: GPL-3.0-or-later
// The bands and modes by which stations on the air and received paths are filtered. One table serves all windows of
// this folder: the feed's windows know the first ten bands and the one outside the table, the propagation map all
// eleven.
#pragma once

#include <QString>
#include <array>
#include <optional>

// One band of the table, in kHz, both ends included.
struct Band {
  int from;
  int to;
  QLatin1StringView caption;
};

// Index 0 of every choice is "All bands", so that index i stands for the band at i - 1. There are no entries for 18 and
// 24 MHz: what is heard there belongs to no band.
inline constexpr std::array<Band, 11> kBands = {{{1800, 2000, QLatin1StringView("160 meters")},
                                                 {3500, 4000, QLatin1StringView("80 meters")},
                                                 {7000, 7300, QLatin1StringView("40 meters")},
                                                 {10130, 10150, QLatin1StringView("30 meters")},
                                                 {14000, 14350, QLatin1StringView("20 meters")},
                                                 {21000, 21450, QLatin1StringView("15 meters")},
                                                 {28000, 30000, QLatin1StringView("10 meters")},
                                                 {50000, 54000, QLatin1StringView("6 meters")},
                                                 {144000, 148000, QLatin1StringView("2 meters")},
                                                 {420000, 450000, QLatin1StringView("70 cm")},
                                                 {1240000, 1300000, QLatin1StringView("23 cm")}}};

// The bands that the feed's windows know, and the index of what they show beside them: a network without frequencies.
inline constexpr int kFeedBands = 10;
inline constexpr int kPeanutBand = 11;

// The modes by which is filtered, in the order of the boxes; index 0 of every choice is "All modes".
inline constexpr std::array<QLatin1StringView, 7> kModes = {
    QLatin1StringView("EP"),  QLatin1StringView("EPH"), QLatin1StringView("FT4"), QLatin1StringView("FT8"),
    QLatin1StringView("JS8"), QLatin1StringView("JT"),  QLatin1StringView("PSK")};

// Index from 1 of the band, among the first so many of the table; none for a frequency outside them and for what is no
// finite number.
std::optional<int> BandOf(double kiloHertz, int bands = static_cast<int>(kBands.size()));

// What the choices are called, in all languages alike. index: from 0, "All bands" and "All modes".
QString BandCaption(int index);
QString ModeCaption(int index);
