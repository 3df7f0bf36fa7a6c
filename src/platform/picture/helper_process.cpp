// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/picture/helper_process.h"

#include <signal.h>

#include <utility>

#include "platform/picture/helper_pipe.h"

HelperProcess::HelperProcess(const QString& program, const QString& role, QObject* parent)
    : QObject(parent), pipe_(std::make_unique<HelperPipe>(program, role)) {}

HelperProcess::~HelperProcess() {
  if (!thread_.joinable()) return;
  Wish([](Wishes& wishes) { wishes.end = true; });
  thread_.join();
}

qint64 HelperProcess::ProcessId() const {
  return pipe_->ProcessId();
}

void HelperProcess::Start() {
  Wish([](Wishes& wishes) { wishes.start = true; });
}

void HelperProcess::Take(HelperJob job) {
  jobId_ = ++lastId_;
  Wish([&](Wishes& wishes) {
    wishes.job = std::move(job);
    wishes.jobId = jobId_;
  });
}

void HelperProcess::Kill() {
  Wish([this](Wishes& wishes) {
    wishes.kill = true;
    wishes.killedUpTo = lastId_;
  });
}

void HelperProcess::Wish(const std::function<void(Wishes&)>& change) {
  {
    const std::lock_guard lock(mutex_);
    change(wishes_);
  }
  if (thread_.joinable()) {
    pipe_->Wake();
  } else {
    thread_ = std::thread([this]() { Run(); });
  }
}

HelperProcess::Wishes HelperProcess::TakeWishes() {
  const std::lock_guard lock(mutex_);
  Wishes taken = std::exchange(wishes_, {});
  wishes_.end = taken.end;
  wishes_.killedUpTo = taken.killedUpTo;
  return taken;
}

bool HelperProcess::IsKilled(quint64 id) {
  const std::lock_guard lock(mutex_);
  return wishes_.end || wishes_.killedUpTo >= id;
}

void HelperProcess::Run() {
  // Writing to a child that has died raises SIGPIPE. It is to be an error of the write, not the end of the program.
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, SIGPIPE);
  pthread_sigmask(SIG_BLOCK, &signals, nullptr);
  while (true) {
    const Wishes wishes = TakeWishes();
    if (wishes.end) break;
    if (wishes.kill) pipe_->Kill();
    if (wishes.start) pipe_->Start();
    if (wishes.job) {
      Do(*wishes.job, wishes.jobId);
    } else {
      pipe_->WaitIdle();
    }
  }
  pipe_->Kill();
}

void HelperProcess::Do(const HelperJob& job, quint64 id) {
  HelperAnswer answer;
  answer.end = HelperEnd::Killed;
  if (!IsKilled(id)) {
    const std::optional<HelperJob::Frame> frame = job.make();
    answer.end = HelperEnd::NothingSent;
    if (frame) {
      answer = pipe_->Exchange(
          *frame, job, [&]() { return IsKilled(id); }, [&]() { RunForJob(id, [this]() { Q_EMIT Overdue(this); }); });
    }
  }
  if (job.then) job.then(answer);
  RunForJob(id, [this, answer]() {
    jobId_ = 0;
    Q_EMIT Answered(this, answer);
  });
  if (pipe_->IsWorn()) {
    pipe_->Kill();
    pipe_->Start();
  }
}

// Runs what() on the event loop if the job is still in hand there.
void HelperProcess::RunForJob(quint64 id, const std::function<void()>& what) {
  QMetaObject::invokeMethod(
      this,
      [this, id, what]() {
        if (jobId_ == id) what();
      },
      Qt::QueuedConnection);
}
