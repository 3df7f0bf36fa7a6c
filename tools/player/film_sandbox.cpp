// SPDX-License-Identifier: GPL-3.0-or-later
#include "film_sandbox.h"

#include <fcntl.h>
#include <sched.h>
#include <seccomp.h>
#include <sys/ioctl.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QList>
#include <array>
#include <cerrno>

#include "platform/file_rights.h"

namespace {

constexpr rlim_t kMostMemory = 3ULL << 30;  // a film of the largest common size needs a third of it

QByteArray Home() {
  return qgetenv("HOME");
}

QByteArray CacheFolder() {
  const QByteArray named = qgetenv("XDG_CACHE_HOME");
  return named.isEmpty() ? Home() + "/.cache" : named;
}

// What changes files, starts or reaches into other programs, or opens a way around this filter.
constexpr auto kRefused = std::to_array<const char*>({
    "execve",
    "execveat",
    "fork",
    "vfork",
    "ptrace",
    "process_vm_readv",
    "kill",
    "tkill",
    "process_vm_writev",
    "pidfd_open",
    "pidfd_getfd",
    "pidfd_send_signal",
    "rt_sigqueueinfo",
    "rt_tgsigqueueinfo",
    "unlink",
    "unlinkat",
    "rename",
    "renameat",
    "renameat2",
    "mkdir",
    "mkdirat",
    "rmdir",
    "link",
    "linkat",
    "symlink",
    "symlinkat",
    "mknod",
    "mknodat",
    "truncate",
    "creat",
    "chmod",
    "fchmod",
    "fchmodat",
    "chown",
    "lchown",
    "fchown",
    "fchownat",
    "utime",
    "utimes",
    "utimensat",
    "futimesat",
    "setxattr",
    "lsetxattr",
    "fsetxattr",
    "removexattr",
    "lremovexattr",
    "fremovexattr",
    "mount",
    "umount2",
    "chroot",
    "pivot_root",
    "unshare",
    "setns",
    "openat2",
    "open_by_handle_at",
    "io_uring_setup",
    "bpf",
    "userfaultfd",
    "perf_event_open",
    "keyctl",
    "add_key",
    "request_key",
    "open_tree",
    "move_mount",
    "fsopen",
    "mq_open",
});

void Refuse(scmp_filter_ctx filter, const char* name) {
  seccomp_rule_add(filter, SCMP_ACT_ERRNO(EPERM), seccomp_syscall_resolve_name(name), 0);
}

// Whoever could write to a file would have to open it so. Read and write together is how devices are opened; which
// files that may be is for Landlock to say, so without it nothing may be.
void RefuseWriting(scmp_filter_ctx filter, bool devices) {
  constexpr std::array<std::pair<const char*, unsigned>, 2> kOpening = {{{"open", 1}, {"openat", 2}}};
  for (const auto& opening : kOpening) {
    const int call = seccomp_syscall_resolve_name(opening.first);
    const unsigned flags = opening.second;
    const auto refuse = [&](scmp_datum_t mask, scmp_datum_t value) {
      seccomp_rule_add(filter, SCMP_ACT_ERRNO(EACCES), call, 1, SCMP_CMP(flags, SCMP_CMP_MASKED_EQ, mask, value));
    };
    refuse(O_CREAT, O_CREAT);
    refuse(O_TRUNC, O_TRUNC);
    refuse(O_ACCMODE, O_WRONLY);
    if (!devices) refuse(O_ACCMODE, O_RDWR);
  }
}

// Threads begin, processes do not: one that a film has started would go on when the player has ended. The flags of
// clone3 lie in memory, which a filter cannot read; the C library takes clone where that call does not exist.
void RefuseProcesses(scmp_filter_ctx filter) {
  seccomp_rule_add(filter, SCMP_ACT_ERRNO(EPERM), seccomp_syscall_resolve_name("clone"), 1,
                   SCMP_CMP(0, SCMP_CMP_MASKED_EQ, static_cast<scmp_datum_t>(CLONE_THREAD), 0));
  seccomp_rule_add(filter, SCMP_ACT_ERRNO(ENOSYS), seccomp_syscall_resolve_name("clone3"), 0);
}

// Signals within the player are left, which the C library sends so when it gives up. A letter that is put into a
// terminal would be a command to the shell that has started the program.
void RefuseOthers(scmp_filter_ctx filter) {
  seccomp_rule_add(filter, SCMP_ACT_ERRNO(EPERM), seccomp_syscall_resolve_name("tgkill"), 1,
                   SCMP_CMP(0, SCMP_CMP_NE, static_cast<scmp_datum_t>(getpid()), 0));
  constexpr scmp_datum_t kLowHalf = 0xFFFFFFFF;  // the kernel looks at no more of the number of a request
  for (const scmp_datum_t request : {TIOCSTI, TIOCLINUX}) {
    seccomp_rule_add(filter, SCMP_ACT_ERRNO(EPERM), seccomp_syscall_resolve_name("ioctl"), 1,
                     SCMP_CMP(1, SCMP_CMP_MASKED_EQ, kLowHalf, request));
  }
}

bool FilterCalls(bool devices) {
  scmp_filter_ctx filter = seccomp_init(SCMP_ACT_ALLOW);
  if (filter == nullptr) return false;
  for (const char* name : kRefused) Refuse(filter, name);
  RefuseWriting(filter, devices);
  RefuseProcesses(filter);
  RefuseOthers(filter);
  // Sockets of this machine are left: those of the window system and of sound.
  const int call = seccomp_syscall_resolve_name("socket");
  seccomp_rule_add(filter, SCMP_ACT_ERRNO(EACCES), call, 1, SCMP_CMP(0, SCMP_CMP_NE, AF_UNIX, 0));
  // The filter holds for all threads, or entering fails.
  const bool loaded = seccomp_attr_set(filter, SCMP_FLTATR_CTL_TSYNC, 1) == 0 && seccomp_load(filter) == 0;
  seccomp_release(filter);
  return loaded;
}

bool KeepSystemFilesOnly() {
  using Right = FileGrant::Right;
  QList<FileGrant> grants;
  for (const char* path : {"/usr", "/lib", "/lib32", "/lib64", "/etc", "/opt", "/proc", "/sys", "/dev", "/run/udev",
                           "/var/cache/fontconfig", "/var/lib"})
    grants.append({path, Right::Read});
  for (const char* path : {"/dev/snd", "/dev/null"}) grants.append({path, Right::Write});
  // Fonts of the user's own, and what lets the user's programs into the sound server.
  for (const char* path : {"/.fonts", "/.local/share/fonts", "/.config/pulse", "/.pulse-cookie"})
    grants.append({Home() + path, Right::Read});
  for (const char* path : {"/fontconfig", "/gstreamer-1.0", "/mesa_shader_cache"})
    grants.append({CacheFolder() + path, Right::Read});
  return RestrictFiles(grants);
}

}  // namespace

void ForbidWriting() {
  prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
  using Right = FileGrant::Right;
  const QByteArray plugins = CacheFolder() + "/gstreamer-1.0";
  mkdir(CacheFolder().constData(), S_IRWXU);
  mkdir(plugins.constData(), S_IRWXU);
  QList<FileGrant> grants = {{"/", Right::ReadAndRun}, {"/dev", Right::Write}, {plugins, Right::Write}};
  for (const char* path : {"/fontconfig", "/mesa_shader_cache"}) grants.append({CacheFolder() + path, Right::Write});
  RestrictFiles(grants);
}

bool EnterFilmSandbox() {
  const rlimit none = {0, 0};
  setrlimit(RLIMIT_CORE, &none);
#if !defined(__SANITIZE_ADDRESS__)
  const rlimit memory = {kMostMemory, kMostMemory};
  setrlimit(RLIMIT_DATA, &memory);
#endif
  const bool files = KeepSystemFilesOnly();
  return prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 && FilterCalls(files);
}
