// SPDX-License-Identifier: GPL-3.0-or-later
#include "page/frame_budget.h"

qint64 FrameBytes(const QList<PictureFrame>& frames) {
  qint64 bytes = 0;
  for (const PictureFrame& frame : frames) bytes += frame.image.sizeInBytes();
  return bytes;
}

QList<PictureFrame> HalveFrames(const QList<PictureFrame>& frames) {
  QList<PictureFrame> kept;
  for (qsizetype i = 0; i < frames.size(); i += 2) {
    PictureFrame frame = frames.at(i);
    if (i + 1 < frames.size()) frame.delay += frames.at(i + 1).delay;
    kept.append(frame);
  }
  if (kept.size() == 1) kept.first().delay = {};  // a still
  return kept;
}
