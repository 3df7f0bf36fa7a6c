// SPDX-License-Identifier: GPL-3.0-or-later
// Plays a full disk, also for root: while work() runs, no file of this process grows beyond a thousand bytes.
#pragma once

#include <sys/resource.h>

#include <csignal>

template <typename Work>
auto WithoutRoom(const Work& work) {
  std::signal(SIGXFSZ, SIG_IGN);
  rlimit usual{};
  getrlimit(RLIMIT_FSIZE, &usual);
  const rlimit tight{1000, usual.rlim_max};
  setrlimit(RLIMIT_FSIZE, &tight);
  const auto result = work();
  setrlimit(RLIMIT_FSIZE, &usual);
  return result;
}
