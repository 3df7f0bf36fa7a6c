// SPDX-License-Identifier: GPL-3.0-or-later
// The present time as a part that a test can replace. Everything that asks what time it is takes a Clock.
#pragma once

#include <QDateTime>

// The system's clock; a test derives one that it sets itself.
class Clock {
 public:
  Clock() = default;
  Clock(const Clock&) = delete;
  Clock& operator=(const Clock&) = delete;
  virtual ~Clock() = default;

  // The present local time.
  virtual QDateTime Now() const;
};
