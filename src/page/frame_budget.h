// SPDX-License-Identifier: GPL-3.0-or-later
// How much memory the pictures of a page may take. An animation beyond it loses frames but keeps its length: the delay
// of a dropped frame is added to the frame before it. PictureCells calls this whenever a picture comes.
#pragma once

#include <QList>

#include "platform/picture/picture_tool.h"

// The budget: decoded bytes of all cells of one page together.
inline constexpr qint64 kPageFrameBytes = 128LL * 1024 * 1024;

// Decoded bytes of one picture.
qint64 FrameBytes(const QList<PictureFrame>& frames);
// Drops every second frame. Of two frames the first remains, as a still.
QList<PictureFrame> HalveFrames(const QList<PictureFrame>& frames);
