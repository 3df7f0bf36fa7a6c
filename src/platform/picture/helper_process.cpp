// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/picture/helper_process.h"

#include <signal.h>

#include <utility>

#include "platform/picture/helper_pipe.h"
#include "platform/picture/ready_jobs.h"

HelperProcess::HelperProcess(const QString& program, const QString& role, ReadyJobs* ready, QObject* parent)
    : QObject(parent), ready_(ready), pipe_(std::make_unique<HelperPipe>(program, role)) {}

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
  jobId_ = job.id;
  Wish([&](Wishes& wishes) {
    wishes.job = std::move(job);
    wishes.killedJob = 0;  // it may be the second try of a job that was killed here
  });
}

void HelperProcess::Kill() {
  Wish([this](Wishes& wishes) {
    if (jobId_ == 0) wishes.kill = true;
    wishes.killedJob = jobId_;
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
  wishes_.killedJob = taken.killedJob;
  return taken;
}

bool HelperProcess::IsKilled(quint64 id) {
  const std::lock_guard lock(mutex_);
  return wishes_.end || wishes_.killedJob == id;
}

void HelperProcess::Run() {
  // Writing to a child that has died raises SIGPIPE. It is to be an error of the write, not the end of the program.
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, SIGPIPE);
  pthread_sigmask(SIG_BLOCK, &signals, nullptr);
  std::optional<HelperJob> job;
  while (true) {
    Wishes wishes = TakeWishes();
    if (wishes.end) break;
    if (wishes.kill) pipe_->Kill();
    if (wishes.start) pipe_->Start();
    if (wishes.job) job = std::move(wishes.job);
    if (job) {
      job = Do(*job);
    } else {
      pipe_->WaitIdle();
    }
  }
  pipe_->Kill();
}

// Does the job; the one that follows, if one lies ready.
std::optional<HelperJob> HelperProcess::Do(const HelperJob& job) {
  const quint64 id = job.id;
  HelperAnswer answer;
  answer.end = HelperEnd::Killed;
  if (IsKilled(id)) {
    pipe_->Kill();
  } else {
    const std::optional<HelperJob::Frame> frame = job.make();
    answer.end = HelperEnd::NothingSent;
    if (frame) {
      answer = pipe_->Exchange(
          *frame, job, [&]() { return IsKilled(id); }, [&]() { RunForJob(id, [this]() { Q_EMIT Overdue(this); }); });
    }
  }
  if (job.then) job.then(answer);
  std::optional<HelperJob> next = ready_ != nullptr ? ready_->Take() : std::nullopt;
  RunForJob(id, [this, answer, nextId = next ? next->id : 0]() {
    jobId_ = nextId;
    Q_EMIT Answered(this, answer, nextId);
  });
  if (pipe_->IsWorn()) {
    pipe_->Kill();
    pipe_->Start();
  }
  return next;
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
