// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/picture/helper_pipe.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/eventfd.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

#include <QFile>
#include <QProcessEnvironment>
#include <algorithm>
#include <array>
#include <cerrno>
#include <utility>
#include <vector>

#include "platform/picture/helper_frame.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto kReadyPatience = 5s;  // from the start to the first word
constexpr auto kLastWait = 100ms;    // for the end of a killed child
constexpr auto kWornAfter = 300s;    // of processor time
constexpr int kWornJobs = 500;       // in one child's life
constexpr int kPipeBytes = 1 << 20;  // the most that an ordinary user may ask for
constexpr qint64 kReadChunk = 4096;  // while the line is looked for

void Close(int& file) {
  if (file >= 0) close(file);
  file = -1;
}

// Makes a pipe whose ends have numbers above standard error. The child's standard files become copies of them; where
// the program itself was started without standard files, an end would get such a low number and be overwritten.
bool MakePipe(int& readEnd, int& writeEnd) {
  std::array<int, 2> ends{-1, -1};
  if (pipe2(ends.data(), O_CLOEXEC) != 0) return false;
  for (int& end : ends) {
    if (end > STDERR_FILENO) continue;
    const int higher = fcntl(end, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    close(end);
    end = higher;
  }
  fcntl(ends[1], F_SETPIPE_SZ, kPipeBytes);  // if it fails, the pipe is slower but works
  readEnd = ends[0];
  writeEnd = ends[1];
  return readEnd >= 0 && writeEnd >= 0;
}

// Nothing of the user's environment decides how a stranger's bytes are decoded, except where Qt lives.
std::vector<QByteArray> ChildEnvironment() {
  const QProcessEnvironment own = QProcessEnvironment::systemEnvironment();
  std::vector<QByteArray> result;
  for (const QString& name : {u"PATH"_s, u"LD_LIBRARY_PATH"_s, u"QT_PLUGIN_PATH"_s, u"LC_ALL"_s, u"LANG"_s}) {
    if (own.contains(name)) result.push_back(QFile::encodeName(name + u'=' + own.value(name)));
  }
  return result;
}

std::vector<char*> Pointers(std::vector<QByteArray>& texts) {
  std::vector<char*> result;
  result.reserve(texts.size() + 1);
  for (QByteArray& text : texts) result.push_back(text.data());
  result.push_back(nullptr);
  return result;
}

}  // namespace

HelperPipe::HelperPipe(QString program, QString role)
    : program_(std::move(program)), role_(std::move(role)), wake_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {}

HelperPipe::~HelperPipe() {
  Kill();
  Close(wake_);
}

void HelperPipe::Wake() {
  const quint64 one = 1;
  [[maybe_unused]] const ssize_t written = write(wake_, &one, sizeof(one));  // full means woken already
}

bool HelperPipe::Start() {
  if (pid_ != 0) return true;
  int jobs = -1;
  int answers = -1;
  const bool started = MakePipe(jobs, in_) && MakePipe(out_, answers) && Spawn(jobs, answers);
  Close(jobs);
  Close(answers);
  ready_ = false;
  readyLine_.clear();
  jobs_ = 0;
  if (!started) {
    Close(in_);
    Close(out_);
    return false;
  }
  fcntl(in_, F_SETFL, O_NONBLOCK);
  fcntl(out_, F_SETFL, O_NONBLOCK);
  return true;
}

// posix_spawn() copies no page tables, so that a start costs the same however many pictures the program holds.
bool HelperPipe::Spawn(int jobs, int answers) {
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, jobs, STDIN_FILENO);
  posix_spawn_file_actions_adddup2(&actions, answers, STDOUT_FILENO);
  posix_spawnattr_t attributes;
  posix_spawnattr_init(&attributes);
  sigset_t signals;
  sigemptyset(&signals);
  posix_spawnattr_setsigmask(&attributes, &signals);
  sigaddset(&signals, SIGPIPE);
  sigaddset(&signals, SIGXFSZ);
  posix_spawnattr_setsigdefault(&attributes, &signals);
  posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
  std::vector<QByteArray> arguments{QFile::encodeName(program_), role_.toLatin1()};
  std::vector<QByteArray> environment = ChildEnvironment();
  pid_t pid = 0;
  const bool spawned = posix_spawn(&pid, arguments.front().constData(), &actions, &attributes,
                                   Pointers(arguments).data(), Pointers(environment).data()) == 0;
  posix_spawnattr_destroy(&attributes);
  posix_spawn_file_actions_destroy(&actions);
  if (!spawned) return false;
  pidfd_ = static_cast<int>(syscall(SYS_pidfd_open, pid, 0));
  pid_ = pid;
  return true;
}

void HelperPipe::Kill() {
  const auto pid = static_cast<pid_t>(pid_.exchange(0));
  if (pid == 0) return;
  kill(pid, SIGKILL);
  Close(in_);
  Close(out_);
  // A child that is stuck in the kernel is left to itself; the system reaps it when the program ends. Kernels before
  // 5.3 have no such descriptor: there waitpid() waits without an end.
  pollfd ended{pidfd_, POLLIN, 0};
  if (pidfd_ < 0 || poll(&ended, 1, static_cast<int>(std::chrono::milliseconds(kLastWait).count())) > 0) {
    while (waitpid(pid, nullptr, 0) < 0 && errno == EINTR) {
    }
  }
  Close(pidfd_);
}

HelperPipe::Seen HelperPipe::Poll(bool writing, Time until) {
  std::array<pollfd, 3> files{{{wake_, POLLIN, 0}, {out_, POLLIN, 0}, {writing ? in_ : -1, POLLOUT, 0}}};
  int timeout = -1;
  if (until != Time::max()) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(until - std::chrono::steady_clock::now());
    timeout = static_cast<int>(std::max<qint64>(0, left.count()));
  }
  Seen seen;
  if (poll(files.data(), files.size(), timeout) <= 0) return seen;
  quint64 count = 0;
  seen.woken = files[0].revents != 0 && read(wake_, &count, sizeof(count)) > 0;
  seen.readable = files[1].revents != 0;
  seen.writable = files[2].revents != 0;
  return seen;
}

void HelperPipe::WaitIdle() {
  while (true) {
    const Seen seen = Poll(false, Time::max());
    if (seen.readable && (ready_ || !ReadReady())) Kill();
    if (seen.woken) return;
  }
}

// False where the child has ended or said something else than that it is ready.
bool HelperPipe::ReadReady() {
  std::array<char, 64> chunk{};
  const ssize_t got = read(out_, chunk.data(), chunk.size());
  if (got < 0) return errno == EAGAIN || errno == EINTR;
  readyLine_.append(chunk.data(), got);
  ready_ = readyLine_ == ReadyLine();
  return got > 0 && (ready_ || ReadyLine().startsWith(readyLine_));
}

// A child that ended while it was idle, or at its start, is replaced once.
bool HelperPipe::BecomeReady(const std::function<bool()>& killed) {
  for (int attempt = 0; attempt < 2; ++attempt) {
    if (pid_ != 0 && ready_ && Poll(false, {}).readable) Kill();
    if (!Start()) return false;
    const Time until = std::chrono::steady_clock::now() + kReadyPatience;
    while (!ready_ && pid_ != 0) {
      const Seen seen = Poll(false, until);
      const bool late = std::chrono::steady_clock::now() >= until;
      if ((seen.readable && !ReadReady()) || (late && !ready_)) Kill();
      if (killed()) return false;
      if (late && !ready_) return false;
    }
    if (ready_ && pid_ != 0) return true;
  }
  return false;
}

HelperAnswer HelperPipe::Exchange(const HelperJob::Frame& frame, const HelperJob& job,
                                  const std::function<bool()>& killed, const std::function<void()>& overdue) {
  State state{frame, job.mostBytes, 0, 0, {}, false};
  if (!BecomeReady(killed)) {
    state.answer.end = killed() ? HelperEnd::Killed : HelperEnd::NotStarted;
    Kill();
    return state.answer;
  }
  ++jobs_;
  const HelperEnd end = Pass(state, job, killed, overdue);
  if (end != HelperEnd::Answered) {
    Kill();  // the state of the child is unknown now
    state.answer = {};
  }
  state.answer.end = end;
  return std::move(state.answer);
}

HelperEnd HelperPipe::Pass(State& state, const HelperJob& job, const std::function<bool()>& killed,
                           const std::function<void()>& overdue) {
  const Time start = std::chrono::steady_clock::now();
  const Time deadline = start + job.patience;
  Time late = job.overdueAfter > 0ms ? start + job.overdueAfter : Time::max();
  while (!state.Whole()) {
    const Seen seen = Poll(state.sent < state.Total(), std::min(late, deadline));
    if (killed()) return HelperEnd::Killed;
    if (seen.writable && !WriteSome(state)) return HelperEnd::Broken;
    if (seen.readable && !ReadSome(state)) return HelperEnd::Broken;
    const Time now = std::chrono::steady_clock::now();
    if (!state.Whole() && now >= deadline) return HelperEnd::TooLong;
    if (!state.Whole() && now >= late) {
      late = Time::max();
      overdue();
    }
  }
  return state.sent == state.Total() ? HelperEnd::Answered : HelperEnd::Broken;
}

bool HelperPipe::WriteSome(State& state) {
  const qint64 lineBytes = state.frame.line.size();
  const bool inLine = state.sent < lineBytes;
  const QByteArray& part = inLine ? state.frame.line : state.frame.body;
  const qint64 at = inLine ? state.sent : state.sent - lineBytes;
  const ssize_t written = write(in_, part.constData() + at, static_cast<size_t>(part.size() - at));
  if (written < 0) return errno == EAGAIN || errno == EINTR;
  state.sent += written;
  return true;
}

bool HelperPipe::ReadSome(State& state) {
  if (!state.hasLine) return ReadLine(state);
  QByteArray& body = state.answer.body;
  const ssize_t got = read(out_, body.data() + state.filled, static_cast<size_t>(body.size() - state.filled));
  if (got < 0) return errno == EAGAIN || errno == EINTR;
  state.filled += got;
  return got > 0;
}

bool HelperPipe::ReadLine(State& state) {
  std::array<char, kReadChunk> chunk{};
  const ssize_t got = read(out_, chunk.data(), chunk.size());
  if (got < 0) return errno == EAGAIN || errno == EINTR;
  QByteArray& line = state.answer.line;
  line.append(chunk.data(), got);
  const qsizetype end = line.indexOf('\n') + 1;
  if (end == 0) return got > 0 && line.size() < HelperLimits::kLine;
  const QByteArray rest = line.mid(end);
  line.truncate(end);
  const qint64 bytes = FrameBodyBytes(line);
  if (bytes < rest.size() || bytes > state.mostBytes) return false;
  state.answer.body = QByteArray(bytes, Qt::Uninitialized);
  std::copy(rest.cbegin(), rest.cend(), state.answer.body.begin());
  state.filled = rest.size();
  state.hasLine = true;
  return true;
}

bool HelperPipe::IsWorn() const {
  if (pid_ == 0) return false;
  if (jobs_ >= kWornJobs) return true;
  clockid_t clock = 0;
  timespec used{};
  return clock_getcpuclockid(static_cast<pid_t>(pid_.load()), &clock) == 0 && clock_gettime(clock, &used) == 0 &&
         std::chrono::seconds(used.tv_sec) >= kWornAfter;
}
