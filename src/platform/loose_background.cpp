// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/loose_background.h"

#include <QCoreApplication>
#include <QThread>

LooseBackground::~LooseBackground() {
  // Outside of an event loop nobody would delete it, and a thread that paints must end before the application does.
  if (QCoreApplication::instance() == nullptr || QThread::currentThread()->loopLevel() == 0) {
    delete background_;
    return;
  }
  QObject::connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, background_,
                   [background = background_]() { delete background; });
  background_->Run<bool>(
      background_, []() { return true; }, [background = background_](bool) { background->deleteLater(); });
}
