// SPDX-License-Identifier: GPL-3.0-or-later
// What a film would do that has taken over its decoder: hostile_film FOLDER, which holds a file "secret". It enters the
// player's sandbox, with a thread that was there before, and tries. Its status is the number of the first step that was
// not refused; 0 if all were, and what a film needs was granted.
#include <arpa/inet.h>
#include <fcntl.h>
#include <sys/ioctl.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <QByteArray>
#include <QThread>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <memory>

#include "film_sandbox.h"

namespace {

bool Opens(const QByteArray& path, int flags) {
  const int file = open(path.constData(), flags, 0600);
  if (file >= 0) close(file);
  return file >= 0;
}

int FirstNotRefused(const QByteArray& folder) {
  const QByteArray secret = folder + "/secret";
  int step = 0;
  const auto refused = [&step](bool done) {
    ++step;
    return !done;
  };
  if (!refused(socket(AF_INET, SOCK_STREAM, 0) >= 0)) return step;
  if (!refused(socket(AF_INET6, SOCK_DGRAM, 0) >= 0)) return step;
  if (!refused(socket(AF_NETLINK, SOCK_RAW, 0) >= 0)) return step;
  if (!refused(Opens(folder + "/new", O_WRONLY | O_CREAT))) return step;
  if (!refused(Opens(secret, O_RDWR))) return step;
  if (!refused(Opens(secret, O_WRONLY | O_APPEND))) return step;
  if (!refused(unlink(secret.constData()) == 0)) return step;
  if (!refused(rename(secret.constData(), (folder + "/moved").constData()) == 0)) return step;
  if (!refused(truncate(secret.constData(), 0) == 0)) return step;
  if (!refused(symlink("/etc/passwd", (folder + "/link").constData()) == 0)) return step;
  if (!refused(kill(getppid(), 0) == 0)) return step;
  if (!refused(syscall(SYS_tgkill, getppid(), getppid(), 0) == 0)) return step;
  // Without a terminal the kernel itself would say something else than that it is not permitted.
  if (!refused(ioctl(STDIN_FILENO, TIOCSTI, "x") == 0 || errno != EPERM)) return step;
  execl("/bin/true", "true", nullptr);
  ++step;
  const pid_t child = fork();
  if (child == 0) _exit(0);
  return refused(child > 0) ? 0 : step;
}

// The steps that only the kernel's file rules refuse, for the threads that begin behind the sandbox.
int FirstRead(const QByteArray& folder) {
  return Opens(folder + "/secret", O_RDONLY) ? 20 : 0;
}

int FirstNotGranted() {
  if (!Opens("/usr/bin/env", O_RDONLY)) return 30;
  const int memory = memfd_create("film", MFD_CLOEXEC);
  if (!Opens("/proc/self/fd/" + QByteArray::number(memory), O_RDONLY)) return 31;
  return socket(AF_UNIX, SOCK_STREAM, 0) >= 0 ? 0 : 32;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  const QByteArray folder = argv[1];
  ForbidWriting();
  std::atomic<bool> entered = false;
  std::atomic<int> earlier = -1;
  const std::unique_ptr<QThread> thread(QThread::create([&]() {
    entered.wait(false);
    earlier = FirstNotRefused(folder);
  }));
  thread->start();
  if (!EnterFilmSandbox()) return 40;
  entered = true;
  entered.notify_all();
  thread->wait();
  if (earlier != 0) _exit(100 + earlier);
  for (const int step : {FirstNotRefused(folder), FirstRead(folder), FirstNotGranted()})
    if (step != 0) _exit(step);
  _exit(0);
}
