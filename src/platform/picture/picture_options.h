// SPDX-License-Identifier: GPL-3.0-or-later
// What a caller of picture_tool may say about a job besides what is to be done. Every value has a default.
#pragma once

#include <QString>
#include <functional>
#include <optional>

// In which order jobs are done.
enum class PicturePriority { Screen, Usual, Later };

// The wishes of one call.
struct PictureOptions {
  // Unless said otherwise: Screen for Load, View and Convert, Usual for the others.
  std::optional<PicturePriority> priority;
  // Where the picture comes from. One whose picture hung waits behind all others; without a host that is told of the
  // path.
  QString host;
  // Asked on the event loop until the job is done; false once its page has been left. A job that only shows is dropped
  // then and answered as such; one that stores a file goes to the end and is done.
  std::function<bool()> wanted;
  // Of Load and View: bytes of an animation's scaled pixels together; 0: 16 MiB. Beyond it frames are left out, their
  // delays go to the frames before them.
  qint64 frameBytes = 0;
};
