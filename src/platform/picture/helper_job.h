// SPDX-License-Identifier: GPL-3.0-or-later
// One job for a helper process and what comes back, as values. Made by whoever has work for a role (picture_job for
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

// What came back.
struct HelperAnswer {
  HelperEnd end = HelperEnd::Broken;
  QByteArray line;  // with its LF; of Answered only
  QByteArray body;
};

// One job. What the two functions touch must be safe beside the event loop: they run on the helper's own thread.
struct HelperJob {
  // Makes the frame when the job's turn has come; nothing: the job ends as NothingSent. The line has its LF and tells
  // the body's size.
  struct Frame {
    QByteArray line;
    QByteArray body;
  };
  std::function<std::optional<Frame>()> make;
  std::function<void(const HelperAnswer&)> then;  // before Answered is emitted; may be empty
  qint64 mostBytes = 0;                           // of the answer's body
  // Counted from the moment when the process is ready and the bytes begin to flow.
  std::chrono::milliseconds overdueAfter{0};  // Overdue is emitted then; 0: never
  std::chrono::milliseconds patience{5000};
};
