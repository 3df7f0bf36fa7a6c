// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/instance_lock.h"

using namespace Qt::StringLiterals;

InstanceLock::InstanceLock(const QString& appDataDir) : lock_(appDataDir + u"/omni-perch.lock"_s) {
  // A program that runs for weeks does not lose its lock to age, only to its own end.
  lock_.setStaleLockTime(0);
}

bool InstanceLock::Acquire() {
  if (lock_.tryLock(0)) return true;
  if (lock_.error() != QLockFile::LockFailedError) return true;
  // Whatever the file says of its owner: it may have come with a data folder copied from another machine, or be what a
  // power cut left. A living owner holds the file itself, by the kernel's lock, and then it is not removed.
  return lock_.removeStaleLockFile() && lock_.tryLock(0);
}
