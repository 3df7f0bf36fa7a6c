// SPDX-License-Identifier: GPL-3.0-or-later
// Whose pictures are blanked. The intake and a site's history ask when a picture has come.
#pragma once

#include <QString>

#include "core/program.h"

// 1 for a blocked caller, 2 for a bad call, 0 for neither.
int BlockReason(const Program& program, QString caller);
