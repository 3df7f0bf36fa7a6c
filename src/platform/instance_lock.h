// SPDX-License-Identifier: GPL-3.0-or-later
// Tells whether another instance works on the same data folder. Asked before the first file is touched.
#pragma once

#include <QLockFile>
#include <QString>

// The lock on one data folder, held until this object is destroyed.
class InstanceLock {
 public:
  explicit InstanceLock(const QString& appDataDir);

  // True when this process now holds the lock, or when the folder cannot be locked at all (missing, read-only); false
  // only when a living instance holds it. A crashed instance's lock is taken over.
  bool Acquire();

 private:
  QLockFile lock_;
};
