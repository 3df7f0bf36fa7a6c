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
  qint64 pid = 0;
  QString host;
  QString program;
  if (lock_.getLockInfo(&pid, &host, &program) && pid > 0) return false;
  // A lock file without its owner's name is what a power cut leaves. A living owner still holds the file itself, and
  // then it is not removed.
  return lock_.removeStaleLockFile() && lock_.tryLock(0);
}
