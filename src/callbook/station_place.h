// SPDX-License-Identifier: GPL-3.0-or-later
// Where a station is, from all that the program has of its own: hover tips and maps place stations by it.
#pragma once

#include "callbook/call_database.h"
#include "core/program.h"

// What the database tells of a call; where it does not know the place, the place of the site with that call. Leaves the
// call's record in DbCurrent, or a cleared one.
TargetLocation PlaceOf(const Program& program, CallDatabase& database, const QString& call);
