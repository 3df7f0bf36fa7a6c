// SPDX-License-Identifier: GPL-3.0-or-later
// How a caller of picture_tool wants a job to be done. Every value has a default.
#pragma once

#include <QString>
#include <functional>
#include <optional>

// The order of jobs: those for the screen are done first.
enum class PicturePriority { Screen, Usual, Later };

// The options of one call.
struct PictureOptions {
  // Unless said otherwise: Screen for Load, View and Convert, Usual for the others.
  std::optional<PicturePriority> priority;
  // The host that the picture comes from. After a picture has hung, all pictures of its host wait behind all others;
  // without a host, that picture alone (by its path).
  QString host;
  // Called on the event loop until the job is done; false once its page has been left. A job that only shows is then
  // dropped and answered as such; one that stores a file goes to the end of the queue and is done.
  std::function<bool()> wanted;
  // Of Load and View: bytes of an animation's scaled pixels together; 0: 16 MiB. Beyond it frames are left out, their
  // delays go to the frames before them.
  qint64 frameBytes = 0;
};
