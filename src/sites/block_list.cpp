// SPDX-License-Identifier: GPL-3.0-or-later
#include "sites/block_list.h"

#include <algorithm>

#include "poll/blocked_caller.h"

namespace {

QString Plain(const QString& call) {
  return call.toUpper().replace(u'Ø', u'0');
}

}  // namespace

BlockStep ToggleSender(Program& program, const QString& caller) {
  const QString call = Plain(caller);
  const auto isCall = [&call](const QString& entry) { return Plain(entry) == call; };
  const auto blocks = [&call](const QString& entry) { return !entry.isEmpty() && call.contains(Plain(entry)); };
  QStringList left = program.lstBlock;
  const bool wasBlocked = left.removeIf(isCall) > 0;
  // A part of the call would go on blocking it.
  if (std::any_of(left.cbegin(), left.cend(), blocks)) return BlockStep::WindowWanted;
  if (wasBlocked) {
    program.lstBlock = left;
    return BlockStep::Unblocked;
  }
  if (left.size() >= kBlockBoxes || call.isEmpty()) return BlockStep::WindowWanted;
  program.lstBlock.append(call);
  return BlockStep::Blocked;
}

void BlankBlocked(const Program& program, ThumbGrid& grid) {
  for (int slot = 0; slot < program.page.ThumbCount; ++slot) {
    const QString& caller = program.page.Field(slot, Caller);
    if (const int reason = BlockReason(program, caller); reason != 0) grid.ShowBlockedCall(slot, reason);
  }
}

QStringList BlockListOf(const QStringList& boxes) {
  QStringList list;
  for (const QString& box : boxes) {
    if (const QString call = box.trimmed().toUpper(); !call.isEmpty() && list.size() < kBlockBoxes) list.append(call);
  }
  return list;
}
