// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop_window.h"

#include <QPointer>
#include <QThread>
#include <condition_variable>
#include <mutex>

#include "platform/x11_windows.h"

using namespace std::chrono_literals;

namespace {

constexpr auto kBetweenTries = 50ms;

KeyEnd EndOf(X11Windows::Press press) {
  switch (press) {
    case X11Windows::Press::Pressed:
      return KeyEnd::Sent;
    case X11Windows::Press::NotYet:
      return KeyEnd::NoFocus;
    case X11Windows::Press::Gone:
      return KeyEnd::Gone;
    case X11Windows::Press::Impossible:
      return KeyEnd::Impossible;
    case X11Windows::Press::NoConnection:
      break;
  }
  return KeyEnd::NoDisplay;
}

}  // namespace

// One sending, shared by the event loop and the thread that talks to the display. A display that hangs may keep the
// thread for ever, so either side may go first.
struct DesktopWindow::Run {
  std::mutex mutex;
  std::condition_variable changed;
  DesktopWindow* owner = nullptr;  // null: nobody waits any more, and no key may go out

  bool Wanted() {
    const std::scoped_lock lock(mutex);
    return owner != nullptr;
  }
  // Lets a time pass; false, at once, when nobody waits any more.
  bool Rest(std::chrono::milliseconds time) {
    std::unique_lock lock(mutex);
    return !changed.wait_for(lock, time, [this]() { return owner == nullptr; });
  }
  void LeaveAlone() {
    const std::scoped_lock lock(mutex);
    owner = nullptr;
    changed.notify_all();
  }
  // The thread's work: to its end or until nobody waits any more.
  KeyEnd Press(const QByteArray& display, const QByteArray& title, const Times& times);
  void Tell(const std::shared_ptr<Run>& self, KeyEnd end) {
    const std::scoped_lock lock(mutex);
    if (owner == nullptr) return;
    QMetaObject::invokeMethod(
        owner,
        [to = owner, self, end]() {
          if (to->run_ == self) to->Finish(end);
        },
        Qt::QueuedConnection);
  }
};

KeyEnd DesktopWindow::Run::Press(const QByteArray& display, const QByteArray& title, const Times& times) {
  const std::unique_ptr<X11Windows> windows = X11Windows::Connect(display);
  if (windows == nullptr) return KeyEnd::NoDisplay;
  const X11Windows::Window window = windows->Find(title);
  if (window == 0) return KeyEnd::NoWindow;
  windows->BringToFront(window);
  if (!Rest(times.pause)) return KeyEnd::NoFocus;
  const auto last = std::chrono::steady_clock::now() + times.patience;
  for (;;) {
    const X11Windows::Press press = windows->PressF7(window, [this]() { return Wanted(); });
    const bool isLast = std::chrono::steady_clock::now() >= last;
    if (press != X11Windows::Press::NotYet || isLast || !Rest(kBetweenTries)) return EndOf(press);
  }
}

DesktopWindow::DesktopWindow(const QByteArray& display, QObject* parent) : DesktopWindow(display, Times(), parent) {}

DesktopWindow::DesktopWindow(const QByteArray& display, const Times& times, QObject* parent)
    : QObject(parent), display_(display), times_(times) {
  deadline_.setSingleShot(true);
  connect(&deadline_, &QTimer::timeout, this, [this]() { Finish(KeyEnd::NoAnswer); });
}

DesktopWindow::~DesktopWindow() {
  if (run_ != nullptr) run_->LeaveAlone();
}

void DesktopWindow::SendF7(const QString& title, QObject* context, Done done) {
  if (Busy()) return;
  done_ = [context = QPointer<QObject>(context), done = std::move(done)](KeyEnd end) {
    if (context != nullptr) done(end);
  };
  run_ = std::make_shared<Run>();
  run_->owner = this;
  // A thread for this one sending, and not one of a pool, whose end would wait for a display that hangs.
  QThread* thread = QThread::create([run = run_, display = display_, title = title.toUtf8(), times = times_]() {
    run->Tell(run, run->Press(display, title, times));
  });
  connect(thread, &QThread::finished, thread, &QObject::deleteLater);
  thread->start();
  deadline_.start(times_.pause + times_.patience + times_.silence);
}

void DesktopWindow::Finish(KeyEnd end) {
  deadline_.stop();
  run_->LeaveAlone();
  run_.reset();
  const Done done = std::move(done_);
  done(end);
}
