// SPDX-License-Identifier: GPL-3.0-or-later
// How much memory the pictures of a page may take. Animations beyond it lose frames, never their length: the delay of a
// frame that is left out is added to the one before. The cells ask it whenever a picture comes.
#pragma once

#include <QList>

#include "platform/picture/picture_tool.h"

// Decoded bytes of all cells of one page.
inline constexpr qint64 kPageFrameBytes = 128LL * 1024 * 1024;

qint64 FrameBytes(const QList<PictureFrame>& frames);
// Every second frame; of two the first alone.
QList<PictureFrame> HalveFrames(const QList<PictureFrame>& frames);
