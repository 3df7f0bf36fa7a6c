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

#include <QFile>
#include <array>
#include <cerrno>

namespace {

// What Qt, the image libraries, the C library and the sanitizers call while they decode and write a file. Anything else
// is answered as if the kernel did not know it, which the libraries take better than a refusal.
constexpr auto kAllowedCalls = std::to_array<int>({SCMP_SYS(read),
                                                   SCMP_SYS(write),
                                                   SCMP_SYS(readv),
                                                   SCMP_SYS(writev),
                                                   SCMP_SYS(pread64),
                                                   SCMP_SYS(pwrite64),
                                                   SCMP_SYS(open),
                                                   SCMP_SYS(openat),
                                                   SCMP_SYS(close),
                                                   SCMP_SYS(lseek),
                                                   SCMP_SYS(_llseek),
                                                   SCMP_SYS(stat),
                                                   SCMP_SYS(stat64),
                                                   SCMP_SYS(lstat),
                                                   SCMP_SYS(lstat64),
                                                   SCMP_SYS(fstat),
                                                   SCMP_SYS(fstat64),
                                                   SCMP_SYS(newfstatat),
                                                   SCMP_SYS(fstatat64),
                                                   SCMP_SYS(statx),
                                                   SCMP_SYS(statfs),
                                                   SCMP_SYS(fstatfs),
                                                   SCMP_SYS(access),
                                                   SCMP_SYS(faccessat),
                                                   SCMP_SYS(faccessat2),
                                                   SCMP_SYS(readlink),
                                                   SCMP_SYS(readlinkat),
                                                   SCMP_SYS(getcwd),
                                                   SCMP_SYS(getdents),
                                                   SCMP_SYS(getdents64),
                                                   SCMP_SYS(rename),
                                                   SCMP_SYS(renameat),
                                                   SCMP_SYS(renameat2),
                                                   SCMP_SYS(unlink),
                                                   SCMP_SYS(unlinkat),
                                                   SCMP_SYS(ftruncate),
                                                   SCMP_SYS(ftruncate64),
                                                   SCMP_SYS(fcntl),
                                                   SCMP_SYS(fcntl64),
                                                   SCMP_SYS(dup),
                                                   SCMP_SYS(umask),
                                                   SCMP_SYS(fadvise64),
                                                   SCMP_SYS(mmap),
                                                   SCMP_SYS(mmap2),
                                                   SCMP_SYS(munmap),
                                                   SCMP_SYS(mprotect),
                                                   SCMP_SYS(mremap),
                                                   SCMP_SYS(madvise),
                                                   SCMP_SYS(brk),
                                                   SCMP_SYS(futex),
                                                   SCMP_SYS(futex_time64),
                                                   SCMP_SYS(sched_yield),
                                                   SCMP_SYS(sched_getaffinity),
                                                   SCMP_SYS(nanosleep),
                                                   SCMP_SYS(clock_nanosleep),
                                                   SCMP_SYS(clock_gettime),
                                                   SCMP_SYS(clock_gettime64),
                                                   SCMP_SYS(gettimeofday),
                                                   SCMP_SYS(time),
                                                   SCMP_SYS(getrandom),
                                                   SCMP_SYS(getpid),
                                                   SCMP_SYS(gettid),
                                                   SCMP_SYS(getuid),
                                                   SCMP_SYS(geteuid),
                                                   SCMP_SYS(getgid),
                                                   SCMP_SYS(getegid),
                                                   SCMP_SYS(uname),
                                                   SCMP_SYS(sysinfo),
                                                   SCMP_SYS(getrlimit),
                                                   SCMP_SYS(getrusage),
                                                   SCMP_SYS(rt_sigaction),
                                                   SCMP_SYS(rt_sigprocmask),
                                                   SCMP_SYS(rt_sigreturn),
                                                   SCMP_SYS(sigreturn),
                                                   SCMP_SYS(sigaltstack),
                                                   SCMP_SYS(restart_syscall),
                                                   SCMP_SYS(pipe),
                                                   SCMP_SYS(pipe2),
                                                   SCMP_SYS(eventfd),
                                                   SCMP_SYS(eventfd2),
                                                   SCMP_SYS(poll),
                                                   SCMP_SYS(ppoll),
                                                   SCMP_SYS(set_robust_list),
                                                   SCMP_SYS(rseq),
                                                   SCMP_SYS(exit),
                                                   SCMP_SYS(exit_group)});

bool FilterCalls() {
  scmp_filter_ctx filter = seccomp_init(SCMP_ACT_ERRNO(ENOSYS));
  if (filter == nullptr) return false;
  // A name that this machine's architecture lacks is refused here and missed nowhere.
  for (const int call : kAllowedCalls) seccomp_rule_add(filter, SCMP_ACT_ALLOW, call, 0);
  // Threads, and no processes: the scaling of large pictures waits for helpers that it starts, for ever where it cannot.
  // clone3 stays away, whose flags lie in memory where no filter sees them; the system's library then takes clone.
  seccomp_rule_add(filter, SCMP_ACT_ALLOW, SCMP_SYS(clone), 1,
                   SCMP_A0(SCMP_CMP_MASKED_EQ, CLONE_THREAD, CLONE_THREAD));
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
