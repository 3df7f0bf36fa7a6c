// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/picture/ready_jobs.h"

#include <utility>

void ReadyJobs::Put(HelperJob job) {
  const std::lock_guard lock(mutex_);
  jobs_.push_back(std::move(job));
}

std::optional<HelperJob> ReadyJobs::Take() {
  const std::lock_guard lock(mutex_);
  if (jobs_.empty()) return std::nullopt;
  std::optional<HelperJob> job = std::move(jobs_.front());
  jobs_.pop_front();
  return job;
}

QList<quint64> ReadyJobs::Recall() {
  std::deque<HelperJob> taken;
  {
    const std::lock_guard lock(mutex_);
    taken.swap(jobs_);
  }
  QList<quint64> ids;
  for (const HelperJob& job : taken) ids.append(job.id);
  return ids;
}
