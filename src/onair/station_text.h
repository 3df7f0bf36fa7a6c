// SPDX-License-Identifier: GPL-3.0-or-later
// What a click on a station of the feed tells: its record in the call database, or that there is none. Shown by the tip
// of On Air Now and by the on-air map.
#pragma once

#include <QString>
#include <optional>

#include "callbook/call_database.h"

// shownCall: with the glyph for zeros. Lines parted by CR LF.
QString StationText(const QString& shownCall, const std::optional<FoundRecord>& found);
