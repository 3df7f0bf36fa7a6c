// SPDX-License-Identifier: GPL-3.0-or-later
// The bands and modes by which stations on the air and received paths are filtered. One table serves all windows of
// this folder: the feed's windows know the first ten bands and the one outside the table, the propagation map all
// eleven.
#pragma once

#include <QCoreApplication>
#include <QString>
#include <array>
#include <optional>

// One band of the table, in kHz, both ends included.
struct Band {
  int from;
  int to;
  int name;          // its wavelength
  bool centimeters;  // else meters
};

// Index 0 of every choice is "All bands", so that index i stands for the band at i - 1. There are no entries for 18 and
// 24 MHz: what is heard there belongs to no band.
inline constexpr std::array<Band, 11> kBands = {{{1800, 2000, 160, false},
                                                 {3500, 4000, 80, false},
                                                 {7000, 7300, 40, false},
                                                 {10130, 10150, 30, false},
                                                 {14000, 14350, 20, false},
                                                 {21000, 21450, 15, false},
                                                 {28000, 30000, 10, false},
                                                 {50000, 54000, 6, false},
                                                 {144000, 148000, 2, false},
                                                 {420000, 450000, 70, true},
                                                 {1240000, 1300000, 23, true}}};

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

// What the choices are called in the language of the program.
class BandWords {
  Q_DECLARE_TR_FUNCTIONS(BandWords)

 public:
  // index: from 0, "All bands".
  static QString Band(int index);
  // index: from 0, "All modes"; the modes themselves are the same in all languages.
  static QString Mode(int index);
};
