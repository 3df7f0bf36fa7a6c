// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/clock.h"

QDateTime Clock::Now() const {
  return QDateTime::currentDateTime();
}
