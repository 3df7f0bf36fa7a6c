// SPDX-License-Identifier: GPL-3.0-or-later
#include "poll/blocked_caller.h"

#include "station/callsign.h"

int BlockReason(const Program& program, QString caller) {
  if (!caller.isEmpty() && IsBadCall(caller, program.lstBadCalls)) return 2;
  for (QString entry : program.lstBlock) {
    entry.replace(u'Ø', u'0');
    if (!entry.isEmpty() && caller.toUpper().contains(entry)) return 1;
  }
  return 0;
}
