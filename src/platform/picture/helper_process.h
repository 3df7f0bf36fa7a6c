// SPDX-License-Identifier: GPL-3.0-or-later
// One process of omni-perch-decoder in one role, and the one job that it has in hand. A thread of its own exchanges
// bytes with it, so that no pixel goes through the event loop. picture_tool and page_text_tool own theirs. If the
// process fails, the answer says so, and the next job gets a fresh one.
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

// The process as the event loop sees it.
class HelperProcess : public QObject {
  Q_OBJECT

 public:
  // program: its path; role: its one argument. Nothing is started yet.
  HelperProcess(const QString& program, const QString& role, QObject* parent = nullptr);
  ~HelperProcess() override;  // kills the process; waits a tenth of a second for its end at the most

  // Starts the process ahead of the first job.
  void Start();
  // True while no job is in hand: before Take(), and again from Answered on.
  bool IsIdle() const { return jobId_ == 0; }
  // 0 where none runs.
  qint64 ProcessId() const;
  // Only while idle. Ends in Answered, never before it returns.
  void Take(HelperJob job);
  // Kills the process. A job in hand ends as Killed, unless its answer has come in the meantime.
  void Kill();

 Q_SIGNALS:
  void Overdue(HelperProcess* process);
  void Answered(HelperProcess* process, const HelperAnswer& answer);

 private:
  // What the event loop asks of the thread.
  struct Wishes {
    bool end = false;
    bool start = false;
    bool kill = false;
    quint64 killedUpTo = 0;  // jobs up to this one are killed; a later one is not
    std::optional<HelperJob> job;
    quint64 jobId = 0;
  };

  void Wish(const std::function<void(Wishes&)>& change);
  Wishes TakeWishes();
  bool IsKilled(quint64 id);
  void Run();
  void Do(const HelperJob& job, quint64 id);
  void RunForJob(quint64 id, const std::function<void()>& what);

  quint64 jobId_ = 0;  // 0: idle
  quint64 lastId_ = 0;
  std::mutex mutex_;
  Wishes wishes_;
  const std::unique_ptr<HelperPipe> pipe_;
  std::thread thread_;  // from the first wish on
};
