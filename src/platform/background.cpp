// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/background.h"

Background::Background(QObject* parent) : QObject(parent) {
  pool_.setMaxThreadCount(1);
}

Background::~Background() {
  pool_.clear();
  pool_.waitForDone();
}
