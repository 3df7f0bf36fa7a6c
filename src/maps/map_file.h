// SPDX-License-Identifier: GPL-3.0-or-later
// Reads the picture of one map from its file: whole or not at all, reduced where it has more pixels than a window can
// hold. MapStore calls it beside the event loop.
#pragma once

#include <QImage>
#include <QString>

// Three bytes a pixel: a map window keeps its picture for as long as it is open, and a fourth byte would hold nothing.
inline constexpr QImage::Format kMapFormat = QImage::Format_RGB888;

// A map's picture as it is drawn.
struct MapPicture {
  QImage pixels;        // of kMapFormat; null: none
  QSize size;           // as the file's header tells, in which all marks are placed; pixels may be fewer
  bool failed = false;  // the file is not there, is cut off or cannot be decoded
};

// path: the picture's file. A truncated file counts as failed, although the decoder would fill its rest with grey.
// Blocks while it reads and decodes.
MapPicture ReadMapFile(const QString& path);
