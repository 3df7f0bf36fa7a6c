// SPDX-License-Identifier: GPL-3.0-or-later
// One process of omni-perch-decoder in one role, and the one job that it has in hand. A thread of its own exchanges
// bytes with it, so that no pixel goes through the event loop; when a job has ended, the thread goes on with the next
// one that lies ready. picture_tool and page_text_tool own theirs. If the process fails, the answer says so, and the
// next job gets a fresh one.
#pragma once

#include <QObject>
#include <QString>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>

#include "platform/picture/helper_job.h"

class HelperPipe;
class ReadyJobs;

// The process as the event loop sees it.
class HelperProcess : public QObject {
  Q_OBJECT

 public:
  // program: its path; role: its one argument; ready: where the thread looks for its next job, if given; it must
  // outlive this object. Nothing is started yet.
  HelperProcess(const QString& program, const QString& role, ReadyJobs* ready = nullptr, QObject* parent = nullptr);
  ~HelperProcess() override;  // kills the process; waits a tenth of a second for its end at the most

  // Starts the process ahead of the first job.
  void Start();
  // True while no job is in hand: before Take(), and again from an Answered on that names no next job.
  bool IsIdle() const { return jobId_ == 0; }
  // 0 where none runs.
  qint64 ProcessId() const;
  // Only while idle. Ends in Answered, never before it returns.
  void Take(HelperJob job);
  // Kills the process. A job in hand ends as Killed; if its answer has come in the meantime, the process stays.
  void Kill();

 Q_SIGNALS:
  void Overdue(HelperProcess* process);
  // next: the job from the ready ones that is in hand now; 0: none, the process is idle.
  void Answered(HelperProcess* process, const HelperAnswer& answer, quint64 next);

 private:
  // What the event loop asks of the thread.
  struct Wishes {
    bool end = false;
    bool start = false;
    bool kill = false;  // the idle process
    quint64 killedJob = 0;
    std::optional<HelperJob> job;
  };

  void Wish(const std::function<void(Wishes&)>& change);
  Wishes TakeWishes();
  bool IsKilled(quint64 id);
  void Run();
  std::optional<HelperJob> Do(const HelperJob& job);
  void RunForJob(quint64 id, const std::function<void()>& what);

  quint64 jobId_ = 0;  // 0: idle
  ReadyJobs* const ready_;
  std::mutex mutex_;
  Wishes wishes_;
  const std::unique_ptr<HelperPipe> pipe_;
  std::thread thread_;  // from the first wish on
};
