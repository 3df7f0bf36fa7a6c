// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/instance_lock.h"

using namespace Qt::StringLiterals;

InstanceLock::InstanceLock(const QString& appDataDir) : lock_(appDataDir + u"/omni-perch.lock"_s) {
  // QLockFile takes a lock that is older than 30 s for stale; a program that runs for weeks keeps its own.
  lock_.setStaleLockTime(0);
}

bool InstanceLock::Acquire() {
  if (lock_.tryLock(0)) return true;
  if (lock_.error() != QLockFile::LockFailedError) return true;
  // The owner that the file names is not to be trusted: the file may have come with a data folder copied from another
  // machine, or a power cut may have left it. removeStaleLockFile() fails where a living owner holds the kernel's lock
  // on the file.
  return lock_.removeStaleLockFile() && lock_.tryLock(0);
}
