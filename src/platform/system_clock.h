// SPDX-License-Identifier: GPL-3.0-or-later
// The computer's clock as something that can be set. main makes the only real one and hands it down; without one, as in
// every test, the clock is never set.
#pragma once

#include <QDateTime>

// Sets the time of the whole computer.
class SystemClock {
 public:
  SystemClock() = default;
  SystemClock(const SystemClock&) = delete;
  SystemClock& operator=(const SystemClock&) = delete;
  virtual ~SystemClock() = default;

  // True if the process has the right to set the clock and the system does not keep the time by itself.
  virtual bool MaySet() const;
  // False if the clock stays as it is.
  virtual bool SetTime(const QDateTime& time);
};
