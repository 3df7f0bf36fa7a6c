// SPDX-License-Identifier: GPL-3.0-or-later
// How many bytes of bodies are in memory, from their arrival until the reader that asked for them has let go. Counted
// up on the network thread and down on both.
#pragma once

#include <QtGlobal>
#include <atomic>

class BodyBudget {
 public:
  explicit BodyBudget(qint64 most) : most_(most) {}

  void Take(qint64 bytes) { used_ += bytes; }
  void Give(qint64 bytes) { used_ -= bytes; }
  bool IsSpent() const { return used_ >= most_; }
  // Some read waits for room.
  void SetWaiting(bool on) { isWaiting_ = on; }
  bool IsWaiting() const { return isWaiting_; }

 private:
  const qint64 most_;
  std::atomic<qint64> used_ = 0;
  std::atomic<bool> isWaiting_ = false;
};
