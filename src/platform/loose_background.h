// SPDX-License-Identifier: GPL-3.0-or-later
// Work beside the event loop for a window that may be closed while it runs. The map windows lay out labels and paint
// frames with it: closing one of them must not wait for a picture that nobody will see.
#pragma once

#include "platform/background.h"

// A Background whose owner does not wait for the job that runs. So a job works on values of its own only.
class LooseBackground {
 public:
  LooseBackground() : background_(new Background) {}
  // Within an event loop the thread ends by itself when its jobs are done, at the latest when the program quits.
  // Without one it is waited for.
  ~LooseBackground();
  LooseBackground(const LooseBackground&) = delete;
  LooseBackground& operator=(const LooseBackground&) = delete;

  // As Background::Run.
  template <typename Result>
  void Run(QObject* context, std::function<Result()> work, std::function<void(Result)> then) {
    background_->Run<Result>(context, std::move(work), std::move(then));
  }

 private:
  Background* background_;
};
