// SPDX-License-Identifier: GPL-3.0-or-later
// Tells whether an asynchronous answer is still wanted. Whoever asks keeps a Wanted; each step of the chain carries a
// token of it and tests the token before it touches anything. The cells, the intake, the download controls and the map
// windows use it.
#pragma once

#include <QtGlobal>
#include <memory>

// Belongs to whoever asks. A copy is an asker of its own: tokens of the original say nothing about it.
class Wanted {
 public:
  // Handed from step to step of one chain. It may outlive its asker, and then is no longer wanted.
  class Token {
   public:
    // A token of no chain: never wanted.
    Token() = default;
    bool StillWanted() const { return now_ != nullptr && *now_ == mine_; }

   private:
    friend class Wanted;
    explicit Token(std::shared_ptr<const quint64> now) : now_(std::move(now)), mine_(*now_) {}

    std::shared_ptr<const quint64> now_;
    quint64 mine_ = 0;
  };

  Wanted() = default;
  Wanted(const Wanted&) {}
  Wanted(Wanted&&) noexcept = default;
  Wanted& operator=(const Wanted& other) {
    if (this != &other) Withdraw();
    return *this;
  }
  Wanted& operator=(Wanted&&) = delete;
  ~Wanted() { Withdraw(); }

  // Begins a new chain: every earlier token is void.
  Token Ask() {
    Withdraw();
    return Present();
  }
  // Another token of the present chain.
  Token Present() const { return Token(now_); }
  // Voids all tokens: answers that are under way are no longer wanted.
  void Withdraw() {
    if (now_ != nullptr) ++*now_;  // null in an object that was moved from
  }

 private:
  std::shared_ptr<quint64> now_ = std::make_shared<quint64>(0);
};
