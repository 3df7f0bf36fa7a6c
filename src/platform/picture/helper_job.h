// SPDX-License-Identifier: GPL-3.0-or-later
// One job for a helper process and its answer, as values. Made by whoever has work for a role (picture_job for
// `pictures`), done by helper_process.
#pragma once

#include <QByteArray>
#include <chrono>
#include <functional>
#include <optional>

// How a job ended.
enum class HelperEnd {
  Answered,     // one whole frame came back
  NothingSent,  // the job's bytes could not be had
  NotStarted,   // there is no such program, or it never said that it is ready
  Broken,       // the process died or broke the framing
  TooLong,      // it took longer than the job's patience; the process is gone
  Killed        // by Kill(); the process is gone
};

// The answer to one job.
struct HelperAnswer {
  HelperEnd end = HelperEnd::Broken;
  QByteArray line;  // with its LF; of Answered only
  QByteArray body;
};

// One job. Its two functions run on the helper's own thread, so whatever they touch must be safe there.
struct HelperJob {
  // What is sent to the helper. The line has its LF and tells the body's size.
  struct Frame {
    QByteArray line;
    QByteArray body;
  };
  quint64 id = 0;  // chosen by the owner: never 0, and no two jobs of one owner have the same
  // Makes the frame when the job's turn has come; nothing: the job ends as NothingSent.
  std::function<std::optional<Frame>()> make;
  std::function<void(const HelperAnswer&)> then;  // before Answered is emitted; may be empty
  qint64 mostBytes = 0;                           // of the answer's body
  // Counted from the moment when the process is ready and the bytes begin to flow.
  std::chrono::milliseconds overdueAfter{0};  // Overdue is emitted then; 0: never
  std::chrono::milliseconds patience{5000};
};
