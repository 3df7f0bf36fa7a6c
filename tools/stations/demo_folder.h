// SPDX-License-Identifier: GPL-3.0-or-later
// Writes the data folder of the demo: what an installation and a user would have left there. omni-perch-stations --seed
// calls it.
#pragma once

#include <QString>

#include "demo_band.h"

// Makes the folder and the files that it lacks. A folder that has a list or a configuration keeps all its files but
// hosts.ini. False where a file could not be written.
bool SeedFolder(const QString& folder, const StationBand& band, const Demo& demo, const QDateTime& now);
