// SPDX-License-Identifier: GPL-3.0-or-later
// The pictures that the demo's own station sends: receiving stations show them on their pages, and the companion
// reports who has received them.
#pragma once

#include "companion.h"
#include "demo_band.h"

class OwnPictures : public QObject {
  Q_OBJECT

 public:
  // Begins with reports of two pictures that were sent a while ago. socketDir: of the companion's sockets.
  OwnPictures(const QString& socketDir, const Demo& demo);
  // Sends one every so often.
  void Start(std::chrono::milliseconds every) { timer_.start(every); }

 private:
  void SendPicture();

  const Demo& demo_;
  Companion companion_;
  QTimer timer_;
  std::size_t sent_ = 0;
};
