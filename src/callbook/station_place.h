// SPDX-License-Identifier: GPL-3.0-or-later
// Where a station is, by the program's own data. Hover tips and maps place stations by it.
#pragma once

#include "callbook/call_database.h"
#include "core/program.h"

// The database's data of a call; if the place is unknown there, the place of the site with that call. Leaves the call's
// record in DbCurrent, or a cleared one.
TargetLocation PlaceOf(const Program& program, CallDatabase& database, const QString& call);
