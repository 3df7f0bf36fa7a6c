// SPDX-License-Identifier: GPL-3.0-or-later
// One station that is on the air, as the feed tells it. A struct, as a stranger's text may hold whatever a joined row
// would be parted by. The parsers make them, the list and the map show them.
#pragma once

#include <QString>

// A row of List1, the merged list of both sources.
struct OnAirRow {
  QString call;       // clean
  QString mode;       // at most three characters from the CGI reply, blanks included; "JT" for all JT modes
  QString frequency;  // digits of kHz, "0", "VRadio" or "PEANUT"; may be empty or anything else that a source sent
  QString extra;      // fourth field of the text file; empty from the CGI reply

  bool operator==(const OnAirRow&) const = default;
};
