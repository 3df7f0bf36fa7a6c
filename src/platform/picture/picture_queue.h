// SPDX-License-Identifier: GPL-3.0-or-later
// Decides which picture job is done next, and what becomes of a job that takes long. It has no decoder, no clock and no
// process: picture_tool, which calls it, gives the times.
#pragma once

#include <QList>
#include <QSet>
#include <QString>
#include <chrono>
#include <deque>
#include <functional>
#include <optional>
#include <vector>

#include "platform/picture/picture_options.h"

// How long jobs may take, and how many helpers do them.
namespace PictureTimes {
inline constexpr std::chrono::milliseconds kFirstTry{250};   // after this, other jobs that wait go first
inline constexpr std::chrono::seconds kLongestStanding{30};  // behind all other jobs
inline constexpr int kHelpers = 2;                           // that work at a time
inline constexpr int kHelpersWhileSlow = 3;                  // while one of them is at a slow job
inline constexpr int kSlowHelpers = kHelpersWhileSlow - 1;   // so that one is always left for the others
inline constexpr int kAhead = 36;                            // jobs made ready ahead: a page of thumbs
}  // namespace PictureTimes

// A job as the queue knows it.
struct QueuedPicture {
  quint64 id = 0;
  PicturePriority priority = PicturePriority::Usual;
  QString origin;                // its host or, without one, its path; empty: neither is known
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
  // The job to be made ready ahead for a helper that is still busy: one for the screen that stores nothing, while no
  // helper is slow. Nothing where there is none, or where enough are ready.
  std::optional<quint64> BeginAhead(Time now);
  // Called when a helper has taken the job that was made ready.
  void Begun(quint64 id);
  // Puts jobs that were made ready, and that no helper has taken, back to where they were in the queue.
  void PutBack(const QList<quint64>& ids);
  bool HasUnwantedAhead() const;
  // Called when the running job has taken longer than its first try. True: its helper is to be killed, and the job, if
  // it is still wanted, put last for a second try; false: no other job needs the helper, it goes on.
  bool CutsOff(quint64 id);
  // Called when the running job's helper was killed as CutsOff() said: puts the job behind the others.
  void PutLast(quint64 id, Time now);
  // Called when the running job has ended. quick: within its first try.
  void End(quint64 id, bool quick);
  // Jobs that only show and are no longer wanted. Those that waited have left the queue; those that run are slow ones,
  // whose helpers are to be killed.
  struct Dropped {
    std::vector<quint64> waiting;
    std::vector<quint64> running;
  };
  Dropped DropUnwanted();
  // The jobs of this origin wait behind all others until one of its pictures has been done quickly.
  void Suspect(const QString& origin);

 private:
  // A job in the queue.
  struct Entry {
    QueuedPicture job;
    Time added;
    bool again = false;  // its first try was cut off
    bool slow = false;   // running, and may take long
    bool ahead = false;  // ready for a helper that is still busy
  };

  bool IsSlow(const Entry& entry) const;
  bool IsRunningTarget(const QString& target) const;
  long SlowRunning() const;
  long AtWork() const;
  // The job that is to be done next; the end of waiting_ where none may begin now.
  std::deque<Entry>::iterator Next(Time now);
  // Lower goes first.
  int Rank(const Entry& entry, Time now) const;

  std::deque<Entry> waiting_;  // in the order of their coming; a second try comes anew
  std::deque<Entry> running_;  // and those made ready ahead
  QSet<QString> suspects_;
};
