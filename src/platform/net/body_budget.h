// SPDX-License-Identifier: GPL-3.0-or-later
// Counts how many bytes of bodies are in memory, from their arrival until whoever asked for them has let go of them.
// Counted up on the network thread and down on that and the event loop.
#pragma once

#include <QtGlobal>
#include <atomic>

// A count with a limit, safe on any thread.
class BodyBudget {
 public:
  explicit BodyBudget(qint64 most) : most_(most) {}

  void Take(qint64 bytes) { used_ += bytes; }
  void Give(qint64 bytes) { used_ -= bytes; }
  bool IsSpent() const { return used_ >= most_; }
  // Whether a read waits until others give bytes back.
  void SetWaiting(bool on) { isWaiting_ = on; }
  bool IsWaiting() const { return isWaiting_; }

 private:
  const qint64 most_;
  std::atomic<qint64> used_ = 0;
  std::atomic<bool> isWaiting_ = false;
};
