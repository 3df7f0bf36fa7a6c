// SPDX-License-Identifier: GPL-3.0-or-later
// The answer to a picture job, as values. Whoever asks picture_tool reads it; picture_job fills it in.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QList>
#include <QSize>
#include <QString>
#include <chrono>

// One frame of an animation, or the one image of a still.
struct PictureFrame {
  QImage image;
  std::chrono::milliseconds delay{0};  // until the next frame; 0 for a still

  bool operator==(const PictureFrame&) const = default;
};

// The answer to one job.
struct PictureAnswer {
  bool ok = false;
  bool noSandbox = false;  // not ok because this system cannot lock the decoder in; then nothing else is known
  bool dropped = false;    // not ok because nobody wanted it any more when its turn came; then nothing else is known
  bool notStored = false;  // not ok because the file could not be written: the picture itself is good
  QString type;            // by content, as GetFileType says
  QSize size;              // pixels of the picture itself, before any scaling
  int depth = 0;  // colour depth as the converter reports it (JPEG and JPEG 2000: bits a pixel; PNG, BMP: 8); 0 unknown
  int frameCount = 0;          // of CountFrames and ReadFacts
  QByteArray facts;            // of ReadFacts: lines of a word, a blank and a value (see platform/picture/picture_tool)
  QList<PictureFrame> frames;  // of Load and View, scaled to fit their box; more than one for an animation
};
