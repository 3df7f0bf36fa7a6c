// SPDX-License-Identifier: GPL-3.0-or-later
// Jobs made ready ahead of time for whichever of several helper processes is free first. picture_tool lays them down on
// the event loop, the threads of its helper_process objects take them, so that decoding goes on while the event loop is
// busy: at the start, while the first window is made and painted.
#pragma once

#include <QList>
#include <deque>
#include <mutex>
#include <optional>

#include "platform/picture/helper_job.h"

// The list of such jobs, first in, first out. All its functions are for any thread.
class ReadyJobs {
 public:
  void Put(HelperJob job);
  std::optional<HelperJob> Take();
  // Takes all jobs back that no helper has taken; their ids in the order of the list.
  QList<quint64> Recall();

 private:
  std::mutex mutex_;
  std::deque<HelperJob> jobs_;
};
