// SPDX-License-Identifier: GPL-3.0-or-later
// The demo's call database: who sends and receives the demo's pictures, all of it made up. The demo's folder is seeded
// with it.
#pragma once

#include <QByteArray>
#include <vector>

#include "demo_band.h"

// The content of the file Omni-Perch-DB.db, sorted: senders, and the operators of sites. As in any user's database, a
// few senders are not in it, and a few have no place.
QByteArray DemoDatabase(const std::vector<DemoSite>& sites = {});
