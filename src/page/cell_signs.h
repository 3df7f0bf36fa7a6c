// SPDX-License-Identifier: GPL-3.0-or-later
// What the cells of every window show alike: the error boxes and the colours of mode tags. The page's grid and the
// history call it.
#pragma once

#include <QColor>
#include <QString>

#include "page/cell.h"

// Colour of a mode tag; the colour of an empty tag is never shown.
QColor ModeColour(const QString& tag);
// The box of a picture that did not come, or that is corrupt.
BoxLines NotFoundBox(const BoxLine& first, bool corrupt);
// The box of a picture that is blanked; reason 1: a blocked call, 2: a bad call.
BoxLines BlockedBox(int reason, const QString& call);
