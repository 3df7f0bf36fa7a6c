// SPDX-License-Identifier: GPL-3.0-or-later
// The scenes that amateurs send pictures of. Each painter fills a canvas of any size; band_pictures picks one by name
// or by chance.
#pragma once

#include <QString>
#include <array>

#include "paint_tools.h"

// Landscapes.
void PaintMountainsAtDusk(Canvas& c);
void PaintMountainLake(Canvas& c);
void PaintSnowVillage(Canvas& c);
void PaintAutumnForest(Canvas& c);
void PaintMeadow(Canvas& c);
void PaintDunes(Canvas& c);
// Water and sky.
void PaintSailingBoats(Canvas& c);
void PaintLighthouse(Canvas& c);
void PaintPalmBeach(Canvas& c);
void PaintAurora(Canvas& c);
void PaintBalloons(Canvas& c);
void PaintAntennaFarm(Canvas& c);
// Things.
void PaintShack(Canvas& c);
void PaintCatAtWindow(Canvas& c);
void PaintOldCar(Canvas& c);
void PaintSunflower(Canvas& c);
void PaintCityAtNight(Canvas& c);
// Made by machine.
void PaintTestCard(Canvas& c);
void PaintWaterfall(Canvas& c);
void PaintSunsetGrid(Canvas& c);
void PaintSatellite(Canvas& c);
void PaintWeatherMap(Canvas& c);

// A scene's name and painter.
struct Scene {
  QLatin1StringView name;
  void (*paint)(Canvas& c);
};

using namespace Qt::StringLiterals;

inline constexpr std::array kScenes{Scene{"mountains"_L1, PaintMountainsAtDusk},
                                    Scene{"lake"_L1, PaintMountainLake},
                                    Scene{"snow"_L1, PaintSnowVillage},
                                    Scene{"forest"_L1, PaintAutumnForest},
                                    Scene{"meadow"_L1, PaintMeadow},
                                    Scene{"dunes"_L1, PaintDunes},
                                    Scene{"boats"_L1, PaintSailingBoats},
                                    Scene{"lighthouse"_L1, PaintLighthouse},
                                    Scene{"beach"_L1, PaintPalmBeach},
                                    Scene{"aurora"_L1, PaintAurora},
                                    Scene{"balloons"_L1, PaintBalloons},
                                    Scene{"antennas"_L1, PaintAntennaFarm},
                                    Scene{"shack"_L1, PaintShack},
                                    Scene{"cat"_L1, PaintCatAtWindow},
                                    Scene{"car"_L1, PaintOldCar},
                                    Scene{"sunflower"_L1, PaintSunflower},
                                    Scene{"city"_L1, PaintCityAtNight},
                                    Scene{"testcard"_L1, PaintTestCard},
                                    Scene{"waterfall"_L1, PaintWaterfall},
                                    Scene{"grid"_L1, PaintSunsetGrid},
                                    Scene{"satellite"_L1, PaintSatellite},
                                    Scene{"weather"_L1, PaintWeatherMap}};
