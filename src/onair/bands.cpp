// SPDX-License-Identifier: GPL-3.0-or-later
#include "onair/bands.h"

using namespace Qt::StringLiterals;

std::optional<int> BandOf(double kiloHertz, int bands) {
  for (int i = 0; i < bands; ++i) {
    const struct Band& band = kBands[static_cast<size_t>(i)];
    if (kiloHertz >= band.from && kiloHertz <= band.to) return i + 1;
  }
  return std::nullopt;
}

QString BandCaption(int index) {
  if (index <= 0 || index > static_cast<int>(kBands.size())) return u"All bands"_s;
  return kBands[static_cast<size_t>(index - 1)].caption;
}

QString ModeCaption(int index) {
  if (index <= 0 || index > static_cast<int>(kModes.size())) return u"All modes"_s;
  return kModes[static_cast<size_t>(index - 1)];
}
