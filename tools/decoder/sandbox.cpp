// SPDX-License-Identifier: GPL-3.0-or-later
#include "sandbox.h"

#include <fcntl.h>
#include <seccomp.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <QByteArray>
#include <QThread>
#include <QThreadPool>
#include <algorithm>
#include <array>
#include <cerrno>
#include <latch>
#include <memory>

#include "platform/file_rights.h"

namespace {

// What Qt, the image libraries, the C library and the sanitizers call between a read and a write, a family a line.
// Anything else is answered as if the kernel did not know it: the libraries take that better than a refusal, and
// killing the process would take the pool threads' harmless questions for an attack.
constexpr auto kAllowedCalls = std::to_array<const char*>({
  "read write", "munmap mremap madvise brk", "futex futex_time64 sched_yield sched_getaffinity",
      "nanosleep clock_nanosleep clock_nanosleep_time64 clock_gettime clock_gettime64 gettimeofday time "
      "restart_syscall",
      "rt_sigaction rt_sigprocmask rt_sigreturn sigreturn sigaltstack", "getpid gettid getrandom exit exit_group",
#if defined(__SANITIZE_ADDRESS__)
      // The sanitizers look at memory through a pipe, so that a bad address is an error and no crash.
      "pipe pipe2 close rseq set_robust_list",
#endif
});

// The calls that ask for memory. It must never be memory whose content can be run, because a stranger's bytes may be in
// it.
constexpr auto kMemoryCalls = std::to_array<const char*>({"mmap", "mmap2", "mprotect"});
constexpr unsigned kProtection = 2;  // the argument of those calls

// Allows the calls of a family. The library refuses a name that this architecture lacks, and nothing here calls it
// then.
void Allow(scmp_filter_ctx filter, const char* family) {
  for (const QByteArray& name : QByteArray(family).split(' ')) {
    seccomp_rule_add(filter, SCMP_ACT_ALLOW, seccomp_syscall_resolve_name(name.constData()), 0);
  }
}

bool FilterCalls() {
  scmp_filter_ctx filter = seccomp_init(SCMP_ACT_ERRNO(ENOSYS));
  if (filter == nullptr) return false;
  for (const char* family : kAllowedCalls) Allow(filter, family);
  for (const char* name : kMemoryCalls) {
    seccomp_rule_add(filter, SCMP_ACT_ALLOW, seccomp_syscall_resolve_name(name), 1,
                     SCMP_CMP(kProtection, SCMP_CMP_MASKED_EQ, static_cast<scmp_datum_t>(PROT_EXEC), 0));
  }
  // The filter holds for all threads, or entering fails: a thread without it could make calls for the others.
  const bool loaded = seccomp_attr_set(filter, SCMP_FLTATR_CTL_TSYNC, 1) == 0 && seccomp_load(filter) == 0;
  seccomp_release(filter);
  return loaded;
}

// Qt scales and converts large pictures in the threads of its pool, and waits for ever for one that cannot begin. So
// all of them begin here and never end; afterwards no thread can be made.
void StartPoolThreads() {
  constexpr int kMostThreads = 4;
  constexpr uint kStack = 1 << 20;
  QThreadPool* pool = QThreadPool::globalInstance();
  const int count = std::clamp(QThread::idealThreadCount(), 1, kMostThreads);
  pool->setExpiryTimeout(-1);
  pool->setMaxThreadCount(count);
  pool->setStackSize(kStack);
  // The latch is shared, because the last thread may still be leaving it when this function ends. (waitForDone() would
  // end the threads.)
  const auto all = std::make_shared<std::latch>(count + 1);
  for (int i = 0; i < count; ++i) pool->start([all]() { all->arrive_and_wait(); });
  all->arrive_and_wait();
}

void LimitResources(quint64 addressSpace) {
  const rlimit none = {0, 0};
  setrlimit(RLIMIT_CORE, &none);
  setrlimit(RLIMIT_FSIZE, &none);
#if defined(__SANITIZE_ADDRESS__)
  Q_UNUSED(addressSpace)  // the address sanitizer reserves terabytes, and opens pipes
#else
  const rlimit space = {addressSpace, addressSpace};
  setrlimit(RLIMIT_AS, &space);
  // A copy gets the lowest free number, and that is how many descriptors are open.
  const int lowestFree = dup(STDIN_FILENO);
  if (lowestFree < 0) return;
  close(lowestFree);
  const rlimit open = {static_cast<rlim_t>(lowestFree), static_cast<rlim_t>(lowestFree)};
  setrlimit(RLIMIT_NOFILE, &open);
#endif
}

}  // namespace

void CloseInherited() {
  constexpr unsigned kFirstOther = STDERR_FILENO + 1;
  if (syscall(SYS_close_range, kFirstOther, ~0U, 0) == 0) return;
  // Kernels before 5.9.
  for (int file = static_cast<int>(sysconf(_SC_OPEN_MAX)) - 1; file >= static_cast<int>(kFirstOther); --file)
    close(file);
}

SandboxState EnterSandbox(quint64 addressSpace) {
  SandboxState state;
  if (prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0) return state;
  state.files = RestrictFiles({});  // before the threads begin: it holds for the calling one and later ones
  StartPoolThreads();
  LimitResources(addressSpace);
  state.calls = FilterCalls();
  return state;
}
