// SPDX-License-Identifier: GPL-3.0-or-later
// Work beside the event loop: one thread that takes jobs in the order given. Whoever has to touch more of the disk than
// a few hundred bytes hands it over here, and goes on in a handler when it is done.
#pragma once

#include <QObject>
#include <QPointer>
#include <QThreadPool>
#include <functional>

// A thread of its own and its queue of jobs.
class Background : public QObject {
  Q_OBJECT

 public:
  explicit Background(QObject* parent = nullptr);
  ~Background() override;  // waits for the job that runs; jobs not yet begun are dropped

  // Runs work() on the thread, then then(result) on the event loop of context, unless context is gone by then.
  template <typename Result>
  void Run(QObject* context, std::function<Result()> work, std::function<void(Result)> then) {
    pool_.start([context = QPointer<QObject>(context), work = std::move(work), then = std::move(then), this]() {
      Result result = work();
      QMetaObject::invokeMethod(
          this,
          [context, then, result = std::move(result)]() mutable {
            if (context) then(std::move(result));
          },
          Qt::QueuedConnection);
    });
  }

 private:
  QThreadPool pool_;
};
