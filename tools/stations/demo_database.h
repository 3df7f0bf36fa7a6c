// SPDX-License-Identifier: GPL-3.0-or-later
// The demo's call database: who sends the demo's pictures, all of it made up. The demo's folder is seeded with it.
#pragma once

#include <QByteArray>

// The file Omni-Perch-DB.db, sorted. A few senders are not in it, a few have no place: so it is in any user's database.
QByteArray DemoDatabase();
