// SPDX-License-Identifier: GPL-3.0-or-later
#include "onair/bands.h"

std::optional<int> BandOf(double kiloHertz, int bands) {
  for (int i = 0; i < bands; ++i) {
    const struct Band& band = kBands[static_cast<size_t>(i)];
    if (kiloHertz >= band.from && kiloHertz <= band.to) return i + 1;
  }
  return std::nullopt;
}

QString BandWords::Band(int index) {
  if (index <= 0 || index > static_cast<int>(kBands.size())) return tr("All bands");
  const struct Band& band = kBands[static_cast<size_t>(index - 1)];
  return (band.centimeters ? tr("%1 cm") : tr("%1 meters")).arg(band.name);
}

QString BandWords::Mode(int index) {
  if (index <= 0 || index > static_cast<int>(kModes.size())) return tr("All modes");
  return kModes[static_cast<size_t>(index - 1)];
}
