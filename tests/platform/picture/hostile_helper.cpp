// SPDX-License-Identifier: GPL-3.0-or-later
// Stands in for the decoder in tests of its sandbox.
//   hostile_helper FOLDER user|ordinary   behaves like a decoder that an attacker has taken over, with the file
//                                         FOLDER/cookies as its prey; ends with 0 where the kernel refused everything
//   hostile_helper ROLE                   runs the decoder as on a system that cannot filter system calls
#include <fcntl.h>
#include <grp.h>
#include <seccomp.h>
#include <signal.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/ptrace.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QFile>
#include <QString>
#include <array>

#include "sandbox.h"

using namespace Qt::StringLiterals;

namespace {

constexpr quint64 kAddressSpace = 1ULL << 30;
constexpr uid_t kOrdinaryUser = 65534;

// The files and the process that the attack aims at; all of them exist before the sandbox is entered.
struct Prey {
  QByteArray secret;    // a file of the user's
  QByteArray unmade;    // a name in a folder of the user's
  pid_t neighbour = 0;  // another process of the same user
  int inherited = -1;   // an open file, inherited from the process that started this one
};

bool CanRead(const Prey& prey) {
  return open(prey.secret.constData(), O_RDONLY) >= 0 || syscall(SYS_openat, AT_FDCWD, "/etc/passwd", O_RDONLY) >= 0;
}

bool CanLook(const Prey& prey) {
  struct stat facts {};
  char target[16];
  return stat(prey.secret.constData(), &facts) == 0 || access(prey.secret.constData(), R_OK) == 0 ||
         readlink("/proc/self/exe", target, sizeof(target)) > 0;
}

bool CanWrite(const Prey& prey) {
  return open(prey.unmade.constData(), O_WRONLY | O_CREAT, 0600) >= 0 ||
         rename(prey.secret.constData(), prey.unmade.constData()) == 0 || unlink(prey.secret.constData()) == 0 ||
         truncate(prey.secret.constData(), 0) == 0 || syscall(SYS_memfd_create, "m", 0) >= 0;
}

bool CanTalk(const Prey&) {
  int pair[2];
  return socket(AF_INET, SOCK_STREAM, 0) >= 0 || socket(AF_UNIX, SOCK_STREAM, 0) >= 0 ||
         socketpair(AF_UNIX, SOCK_STREAM, 0, pair) == 0;
}

bool CanStart(const Prey&) {
  const pid_t child = fork();
  if (child == 0) _exit(0);
  char name[] = "/bin/true";
  char* const arguments[] = {name, nullptr};
  return child > 0 || execv(name, arguments) == 0;
}

bool CanDisturb(const Prey& prey) {
  char byte = 0;
  const iovec own{&byte, 1};
  const iovec other{&byte, 1};
  return kill(prey.neighbour, 0) == 0 || kill(getpid(), 0) == 0 || kill(-1, 0) == 0 ||
         syscall(SYS_tgkill, prey.neighbour, prey.neighbour, 0) == 0 ||
         ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) == 0 ||
         process_vm_readv(prey.neighbour, &own, 1, &other, 1, 0) >= 0;
}

bool CanRunNewCode(const Prey&) {
  constexpr int kPrivate = MAP_PRIVATE | MAP_ANONYMOUS;
  void* plain = mmap(nullptr, 4096, PROT_READ | PROT_WRITE, kPrivate, -1, 0);
  return plain == MAP_FAILED || mmap(nullptr, 4096, PROT_READ | PROT_EXEC, kPrivate, -1, 0) != MAP_FAILED ||
         mprotect(plain, 4096, PROT_READ | PROT_EXEC) == 0;
}

bool CanUseWhatIsOpen(const Prey& prey) {
  return write(prey.inherited, "x", 1) == 1 || fcntl(STDIN_FILENO, F_GETFD) >= 0 || dup(STDIN_FILENO) >= 0;
}

using Attempt = bool (*)(const Prey&);
constexpr std::array<Attempt, 8> kAttempts{&CanRead,  &CanLook,    &CanWrite,      &CanTalk,
                                           &CanStart, &CanDisturb, &CanRunNewCode, &CanUseWhatIsOpen};
constexpr int kNoFilter = 100;
constexpr int kNotTried = 101;

// The number of the first attempt that succeeds, counted from 1; 0 where all are refused.
int FirstLeak(const Prey& prey) {
  CloseInherited();
  if (!EnterSandbox(kAddressSpace).calls) return kNoFilter;
  for (size_t i = 0; i < kAttempts.size(); ++i) {
    if (kAttempts.at(i)(prey)) return static_cast<int>(i) + 1;
  }
  return 0;
}

bool BecomeOrdinary() {
  return setgroups(0, nullptr) == 0 && setgid(kOrdinaryUser) == 0 && setuid(kOrdinaryUser) == 0;
}

int Attack(const QString& home, bool ordinary) {
  Prey prey;
  prey.secret = QFile::encodeName(home + u"/cookies"_s);
  prey.unmade = QFile::encodeName(home + u"/hosts.ini"_s);
  if (ordinary) {
    const bool given = chown(QFile::encodeName(home).constData(), kOrdinaryUser, kOrdinaryUser) == 0 &&
                       chown(prey.secret.constData(), kOrdinaryUser, kOrdinaryUser) == 0;
    if (!given || !BecomeOrdinary()) return kNotTried;
  }
  prey.inherited = open(prey.secret.constData(), O_WRONLY | O_APPEND);
  if (prey.inherited < 0) return kNotTried;
  // The neighbour asks the kernel to end it together with this process; the attack begins when it has asked.
  int ready[2];
  if (pipe(ready) != 0) return kNotTried;
  sigset_t nothingBlocked;
  sigemptyset(&nothingBlocked);
  prey.neighbour = fork();
  if (prey.neighbour == 0) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (write(ready[1], "r", 1) == 1) sigsuspend(&nothingBlocked);
    _exit(1);
  }
  char byte = 0;
  if (read(ready[0], &byte, 1) != 1) return kNotTried;
  return FirstLeak(prey);
}

// As on a kernel that has no filters: this program's own filter refuses the calls that make one.
int RunWithoutFilters(char* role) {
  scmp_filter_ctx filter = seccomp_init(SCMP_ACT_ALLOW);
  seccomp_rule_add(filter, SCMP_ACT_ERRNO(EINVAL), SCMP_SYS(seccomp), 0);
  const scmp_arg_cmp enters = {0, SCMP_CMP_EQ, PR_SET_SECCOMP, 0};
  seccomp_rule_add_array(filter, SCMP_ACT_ERRNO(EINVAL), SCMP_SYS(prctl), 1, &enters);
  if (seccomp_load(filter) != 0) return kNotTried;
  char tool[] = PICTURE_TOOL;
  char* const arguments[] = {tool, role, nullptr};
  execv(tool, arguments);
  return kNotTried;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc == 2) return RunWithoutFilters(argv[1]);
  // _exit, because a sanitizer looks for leaks at the end of main and needs calls for it that the sandbox refuses.
  if (argc == 3) _exit(Attack(QFile::decodeName(argv[1]), QByteArray(argv[2]) == "ordinary"));
  return kNotTried;
}
