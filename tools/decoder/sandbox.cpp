// SPDX-License-Identifier: GPL-3.0-or-later
#include "sandbox.h"

#include <fcntl.h>
#include <linux/landlock.h>
#include <sched.h>
#include <seccomp.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <QByteArray>
#include <QFile>
#include <array>
#include <cerrno>

namespace {

// What Qt, the image libraries, the C library and the sanitizers call while they decode and write a file, a family a
// line. Anything else is answered as if the kernel did not know it, which the libraries take better than a refusal.
constexpr auto kAllowedCalls = std::to_array<const char*>({
  "read write readv writev pread64 pwrite64 lseek _llseek close dup fcntl fcntl64 fadvise64 poll ppoll",
      "open openat stat stat64 lstat lstat64 fstat fstat64 newfstatat fstatat64 statx statfs fstatfs access faccessat",
      "faccessat2 readlink readlinkat getcwd getdents getdents64 umask",
      "rename renameat renameat2 unlink unlinkat ftruncate ftruncate64",
      "mmap mmap2 munmap mprotect mremap madvise brk",
      "futex futex_time64 eventfd2 set_robust_list rseq sched_yield sched_getaffinity sched_getparam "
      "sched_getscheduler",
      "nanosleep clock_nanosleep clock_gettime clock_gettime64 gettimeofday time restart_syscall",
      "rt_sigaction rt_sigprocmask rt_sigreturn sigreturn sigaltstack",
      "getpid gettid getuid geteuid getgid getegid uname sysinfo getrlimit getrusage getrandom", "exit exit_group",
#if defined(__SANITIZE_ADDRESS__)
      "pipe pipe2"  // the sanitizers look at memory through a pipe, so that a bad address is an error and no crash
#endif
});

// A name that this machine's architecture lacks is refused by the library and missed nowhere.
void Allow(scmp_filter_ctx filter, const char* family) {
  for (const QByteArray& name : QByteArray(family).split(' ')) {
    seccomp_rule_add(filter, SCMP_ACT_ALLOW, seccomp_syscall_resolve_name(name.constData()), 0);
  }
}

bool FilterCalls() {
  scmp_filter_ctx filter = seccomp_init(SCMP_ACT_ERRNO(ENOSYS));
  if (filter == nullptr) return false;
  for (const char* family : kAllowedCalls) Allow(filter, family);
  // Qt scales and converts large pictures in several threads, and waits forever for one that cannot begin. A thread is
  // no new process; its event queue is a descriptor of the process's own. clone3 hides its flags from the filter: as an
  // unknown call it makes the C library use clone.
  constexpr scmp_datum_t kThread = CLONE_VM | CLONE_THREAD;
  seccomp_rule_add(filter, SCMP_ACT_ALLOW, SCMP_SYS(clone), 1, SCMP_A0(SCMP_CMP_MASKED_EQ, kThread, kThread));
  // Its own death is the one signal that the process may send: a failed assertion aborts through it.
  seccomp_rule_add(filter, SCMP_ACT_ALLOW, SCMP_SYS(tgkill), 1,
                   SCMP_A0(SCMP_CMP_EQ, static_cast<scmp_datum_t>(getpid())));
  const bool loaded = seccomp_load(filter) == 0;
  seccomp_release(filter);
  return loaded;
}

// The rights that older system headers do not name; the running kernel's version says which count.
constexpr quint64 kRefer = 1ULL << 13;
constexpr quint64 kTruncate = 1ULL << 14;

bool KeepWritesBelow(const QString& folder) {
  const long version = syscall(SYS_landlock_create_ruleset, nullptr, 0, LANDLOCK_CREATE_RULESET_VERSION);
  if (version < 1) return false;
  quint64 wanted = LANDLOCK_ACCESS_FS_WRITE_FILE | LANDLOCK_ACCESS_FS_REMOVE_FILE | LANDLOCK_ACCESS_FS_MAKE_REG;
  if (version >= 3) wanted |= kTruncate;
  landlock_ruleset_attr attributes = {};
  attributes.handled_access_fs = wanted | LANDLOCK_ACCESS_FS_EXECUTE | LANDLOCK_ACCESS_FS_REMOVE_DIR |
                                 LANDLOCK_ACCESS_FS_MAKE_CHAR | LANDLOCK_ACCESS_FS_MAKE_DIR |
                                 LANDLOCK_ACCESS_FS_MAKE_SOCK | LANDLOCK_ACCESS_FS_MAKE_FIFO |
                                 LANDLOCK_ACCESS_FS_MAKE_BLOCK | LANDLOCK_ACCESS_FS_MAKE_SYM;
  if (version >= 2) attributes.handled_access_fs |= kRefer;
  const auto rules =
      static_cast<int>(syscall(SYS_landlock_create_ruleset, &attributes, sizeof(attributes.handled_access_fs), 0));
  if (rules < 0) return false;
  const int place = open(QFile::encodeName(folder).constData(), O_PATH | O_DIRECTORY | O_CLOEXEC);
  if (place >= 0) {
    landlock_path_beneath_attr beneath = {};
    beneath.allowed_access = wanted;
    beneath.parent_fd = place;
    syscall(SYS_landlock_add_rule, rules, LANDLOCK_RULE_PATH_BENEATH, &beneath, 0);
    close(place);
  }
  const bool kept = syscall(SYS_landlock_restrict_self, rules, 0) == 0;
  close(rules);
  return kept;
}

void LimitResources() {
  const rlimit none = {0, 0};
  setrlimit(RLIMIT_CORE, &none);
#if !defined(__SANITIZE_ADDRESS__)  // the address sanitizer reserves terabytes
  constexpr rlim_t kAddressSpace = 1ULL << 30;
  const rlimit space = {kAddressSpace, kAddressSpace};
  setrlimit(RLIMIT_AS, &space);
#endif
}

}  // namespace

SandboxState EnterSandbox(const QString& writable) {
  SandboxState state;
  LimitResources();
  if (prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0) return state;
  state.files = KeepWritesBelow(writable);
  state.calls = FilterCalls();
  return state;
}
