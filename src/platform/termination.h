// SPDX-License-Identifier: GPL-3.0-or-later
// Turns the system's request to end (SIGTERM, SIGINT, SIGHUP) into a signal on the event loop, so that a logout saves
// the user's lists like a click on the close box.
#pragma once

#include <QObject>
#include <QSocketNotifier>
#include <array>
#include <memory>

// Catches these signals as long as it lives; main makes one.
class Termination : public QObject {
  Q_OBJECT

 public:
  explicit Termination(QObject* parent = nullptr);
  ~Termination() override;

 Q_SIGNALS:
  void Requested();

 private:
  void Arrived();

  std::array<int, 2> pipe_{-1, -1};
  std::unique_ptr<QSocketNotifier> notifier_;
};
