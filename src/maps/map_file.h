// SPDX-License-Identifier: GPL-3.0-or-later
// Reads the picture of one map from its file: whole or not at all, reduced where it has more pixels than a window can
// hold. MapStore calls it beside the event loop.
#pragma once

#include <QImage>
#include <QString>

// A map's picture as it is drawn.
struct MapPicture {
  QImage pixels;        // 32 bits a pixel; null: none
  QSize size;           // as the file's header tells, in which all marks are placed; pixels may be fewer
  bool failed = false;  // the file is not there, is cut off or cannot be decoded
};

// path: the picture's file. A truncated file counts as failed, although the decoder would fill its rest with grey.
// Blocks while it reads and decodes.
MapPicture ReadMapFile(const QString& path);
