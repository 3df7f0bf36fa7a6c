// SPDX-License-Identifier: GPL-3.0-or-later
// The calls whose pictures are not shown, as Form18 and the block entry of a picture's menu change them.
#pragma once

#include <QString>
#include <QStringList>

#include "core/program.h"
#include "page/thumb_grid.h"

inline constexpr int kBlockBoxes = 10;

// What the block entry has done.
enum class BlockStep {
  Blocked,
  Unblocked,
  WindowWanted  // ten calls are blocked already, or only a part of the call is what blocks it: the user has to choose
};

// Blocks a sender, or takes its block back. Nothing changes where the window is wanted.
BlockStep ToggleSender(Program& program, const QString& caller);
// Blanks the cells of the page whose sender is blocked now.
void BlankBlocked(const Program& program, ThumbGrid& grid);
// The list from the texts of the boxes: in upper case, without gaps.
QStringList BlockListOf(const QStringList& boxes);
