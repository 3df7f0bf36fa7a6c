// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/termination.h"

#include <fcntl.h>
#include <unistd.h>

#include <csignal>

namespace {

// A signal handler may do little more than write to a pipe, and gets no argument that could name it.
volatile sig_atomic_t pipeEnd = -1;

void OnSignal(int) {
  const char mark = 1;
  [[maybe_unused]] const ssize_t written = ::write(pipeEnd, &mark, 1);
}

}  // namespace

Termination::Termination(QObject* parent) : QObject(parent) {
  if (::pipe2(pipe_.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
  pipeEnd = pipe_[1];
  notifier_ = std::make_unique<QSocketNotifier>(pipe_[0], QSocketNotifier::Read);
  connect(notifier_.get(), &QSocketNotifier::activated, this, &Termination::Arrived);
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) std::signal(signal, OnSignal);
}

Termination::~Termination() {
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) std::signal(signal, SIG_DFL);
  notifier_.reset();
  pipeEnd = -1;
  for (const int end : pipe_) {
    if (end >= 0) ::close(end);
  }
}

void Termination::Arrived() {
  char mark = 0;
  while (::read(pipe_[0], &mark, 1) > 0) {
  }
  Q_EMIT Requested();
}
