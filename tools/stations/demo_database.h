// SPDX-License-Identifier: GPL-3.0-or-later
// The demo's call database: who sends the demo's pictures, all of it made up. The demo's folder is seeded with it.
#pragma once

#include <QByteArray>

// The content of the file Omni-Perch-DB.db, sorted. As in any user's database, a few senders are not in it, and a few
// have no place.
QByteArray DemoDatabase();
