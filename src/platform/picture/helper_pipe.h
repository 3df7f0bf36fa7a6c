// SPDX-License-Identifier: GPL-3.0-or-later
// The system's side of helper_process, which alone calls it: a child, a pipe into it and one out of it. Its calls
// block, each with an end, so it lives on the helper's own thread; only Wake() and ProcessId() are for any thread.
#pragma once

#include <QString>
#include <atomic>
#include <chrono>
#include <functional>

#include "platform/picture/helper_job.h"

// One child and its pipes.
class HelperPipe {
 public:
  HelperPipe(QString program, QString role);
  ~HelperPipe();  // kills the child
  HelperPipe(const HelperPipe&) = delete;
  HelperPipe& operator=(const HelperPipe&) = delete;

  // Ends the present wait, or the next one.
  void Wake();
  // 0 where no child runs.
  qint64 ProcessId() const { return pid_.load(); }

  // Starts a child where none runs. False where it cannot be started.
  bool Start();
  // Waits until Wake(). A child that ends meanwhile, or writes something that nobody asked for, is killed.
  void WaitIdle();
  // Sends the frame and reads the answer's. killed is asked after each Wake(); overdue is called once when
  // job.overdueAfter has passed.
  HelperAnswer Exchange(const HelperJob::Frame& frame, const HelperJob& job, const std::function<bool()>& killed,
                        const std::function<void()>& overdue);
  void Kill();
  // True when the child has done so much that it should be replaced: whatever a picture may have done to it then ends.
  bool IsWorn() const;

 private:
  using Time = std::chrono::steady_clock::time_point;

  // How far one exchange has come.
  struct State {
    const HelperJob::Frame& frame;
    qint64 mostBytes;
    qint64 sent = 0;
    qint64 filled = 0;
    HelperAnswer answer;
    bool hasLine = false;
    bool Whole() const { return hasLine && filled == answer.body.size(); }
    qint64 Total() const { return frame.line.size() + frame.body.size(); }
  };

  bool Spawn(int jobs, int answers);
  bool BecomeReady(const std::function<bool()>& killed);
  bool ReadReady();
  HelperEnd Pass(State& state, const HelperJob& job, const std::function<bool()>& killed,
                 const std::function<void()>& overdue);
  // Why a wait has ended.
  struct Seen {
    bool woken = false;
    bool readable = false;
    bool writable = false;
  };
  // Waits until something can be read, or written if writing is set, until Wake(), or until that time.
  Seen Poll(bool writing, Time until);
  bool WriteSome(State& state);
  bool ReadSome(State& state);
  bool ReadLine(State& state);

  const QString program_;
  const QString role_;
  int wake_ = -1;
  int in_ = -1;   // the end that is written to
  int out_ = -1;  // the end that is read
  int pidfd_ = -1;
  std::atomic<qint64> pid_{0};
  bool ready_ = false;
  QByteArray readyLine_;
  int jobs_ = 0;  // since the child's start
};
