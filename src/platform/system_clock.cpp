// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/system_clock.h"

#include <linux/capability.h>
#include <sys/syscall.h>
#include <sys/timex.h>
#include <unistd.h>

#include <array>
#include <ctime>

namespace {

bool HasRight() {
  __user_cap_header_struct head{_LINUX_CAPABILITY_VERSION_3, 0};
  std::array<__user_cap_data_struct, _LINUX_CAPABILITY_U32S_3> sets{};
  if (syscall(SYS_capget, &head, sets.data()) != 0) return false;
  return (sets[0].effective & (1U << static_cast<unsigned>(CAP_SYS_TIME))) != 0;
}

// A time service clears the kernel's mark of an unsynchronised clock.
bool IsKeptBySystem() {
  timex state{};
  return adjtimex(&state) == -1 || (state.status & STA_UNSYNC) == 0;
}

}  // namespace

bool SystemClock::MaySet() const {
  return HasRight() && !IsKeptBySystem();
}

bool SystemClock::SetTime(const QDateTime& time) {
  timespec value{};
  value.tv_sec = time.toSecsSinceEpoch();
  return time.isValid() && clock_settime(CLOCK_REALTIME, &value) == 0;
}
