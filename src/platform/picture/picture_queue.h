// SPDX-License-Identifier: GPL-3.0-or-later
// Decides which picture job is done next, and what becomes of one that takes long: no decoder, no clock, no process.
// picture_tool asks it. Times are given by the caller.
#pragma once

#include <QSet>
#include <QString>
#include <chrono>
#include <deque>
#include <functional>
#include <optional>
#include <vector>

#include "platform/picture/picture_options.h"

namespace PictureTimes {
inline constexpr std::chrono::milliseconds kFirstTry{250};   // then others that wait go first
inline constexpr std::chrono::seconds kLongestStanding{30};  // that a job stands behind all others
inline constexpr int kHelpers = 2;                           // that work at a time
inline constexpr int kHelpersWhileSlow = 3;                  // while one of them is at a slow job
inline constexpr int kSlowHelpers = kHelpersWhileSlow - 1;   // so that one is always left for the others
}  // namespace PictureTimes

// A job as the queue knows it.
struct QueuedPicture {
  quint64 id = 0;
  PicturePriority priority = PicturePriority::Usual;
  QString origin;                // its host, or what stands for it; empty: nothing is known
  QString target;                // the file that it stores; empty where it only shows
  std::function<bool()> wanted;  // may be empty
};

// The order of jobs.
class PictureQueue {
 public:
  using Time = std::chrono::steady_clock::time_point;

  void Add(QueuedPicture job, Time now);
  // The job that a free helper begins now; nothing where none may begin.
  std::optional<quint64> Begin(Time now);
  // The running job has taken longer than its first try. True: it is killed and, where it is still wanted, put last for
  // a second try; false: nobody needs its helper, it goes on.
  bool CutsOff(quint64 id);
  // The running job's helper was killed as CutsOff() said.
  void PutLast(quint64 id, Time now);
  // The running job has ended; quick: within its first try.
  void End(quint64 id, bool quick);
  // Jobs that only show and are no longer wanted leave the queue. Those that run are named, too: their helpers are
  // killed where they are slow.
  struct Dropped {
    std::vector<quint64> waiting;
    std::vector<quint64> running;
  };
  Dropped DropUnwanted();
  // Its jobs wait behind all others until one of its pictures has been done quickly.
  void Suspect(const QString& origin);

 private:
  struct Entry {
    QueuedPicture job;
    Time added;
    bool again = false;  // its first try was cut off
    bool slow = false;   // of a running one: may take long
  };

  bool IsSlow(const Entry& entry) const;
  bool IsRunningTarget(const QString& target) const;
  long SlowRunning() const;
  // Lower goes first.
  int Rank(const Entry& entry, Time now) const;

  std::deque<Entry> waiting_;  // in the order of their coming; a second try comes anew
  std::deque<Entry> running_;
  QSet<QString> suspects_;
};
