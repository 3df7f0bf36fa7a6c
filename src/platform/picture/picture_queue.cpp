// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/picture/picture_queue.h"

#include <algorithm>
#include <utility>

namespace {

constexpr qsizetype kMostSuspects = 1000;

bool IsWanted(const QueuedPicture& job) {
  return !job.wanted || job.wanted();
}

bool OnlyShows(const QueuedPicture& job) {
  return job.target.isEmpty();
}

template <typename Entries>
auto Find(Entries& entries, quint64 id) {
  return std::find_if(entries.begin(), entries.end(), [id](const auto& entry) { return entry.job.id == id; });
}

}  // namespace

void PictureQueue::Add(QueuedPicture job, Time now) {
  waiting_.push_back({std::move(job), now});
}

bool PictureQueue::IsSlow(const Entry& entry) const {
  return entry.again || (!entry.job.origin.isEmpty() && suspects_.contains(entry.job.origin));
}

// Two jobs that store the same file are done one after the other, so that the later one's picture stays.
bool PictureQueue::IsRunningTarget(const QString& target) const {
  return !target.isEmpty() &&
         std::any_of(running_.begin(), running_.end(), [&](const Entry& entry) { return entry.job.target == target; });
}

long PictureQueue::SlowRunning() const {
  return std::count_if(running_.begin(), running_.end(), [](const Entry& entry) { return entry.slow; });
}

int PictureQueue::Rank(const Entry& entry, Time now) const {
  constexpr int kFirst = -1;
  constexpr int kBehindAllOthers = 10;
  const bool wanted = IsWanted(entry.job);
  const int rank = static_cast<int>(wanted ? entry.job.priority : PicturePriority::Later);
  if (!IsSlow(entry)) return rank;
  return now - entry.added >= PictureTimes::kLongestStanding ? kFirst : kBehindAllOthers + rank;
}

long PictureQueue::AtWork() const {
  return std::count_if(running_.begin(), running_.end(), [](const Entry& entry) { return !entry.ahead; });
}

std::deque<PictureQueue::Entry>::iterator PictureQueue::Next(Time now) {
  const long slow = SlowRunning();
  auto chosen = waiting_.end();
  int chosenRank = 0;
  for (auto entry = waiting_.begin(); entry != waiting_.end(); ++entry) {
    if ((slow >= PictureTimes::kSlowHelpers && IsSlow(*entry)) || IsRunningTarget(entry->job.target)) continue;
    const int rank = Rank(*entry, now);
    if (chosen != waiting_.end() && rank >= chosenRank) continue;
    chosen = entry;
    chosenRank = rank;
  }
  return chosen;
}

std::optional<quint64> PictureQueue::Begin(Time now) {
  if (AtWork() >= (SlowRunning() > 0 ? PictureTimes::kHelpersWhileSlow : PictureTimes::kHelpers)) return std::nullopt;
  const auto chosen = Next(now);
  if (chosen == waiting_.end()) return std::nullopt;
  chosen->slow = IsSlow(*chosen);
  const quint64 id = chosen->job.id;
  running_.push_back(std::move(*chosen));
  waiting_.erase(chosen);
  return id;
}

std::optional<quint64> PictureQueue::BeginAhead(Time now) {
  const long atWork = AtWork();
  const long ahead = static_cast<long>(running_.size()) - atWork;
  if (SlowRunning() > 0 || atWork > PictureTimes::kHelpers || ahead >= PictureTimes::kAhead) return std::nullopt;
  const auto chosen = Next(now);
  if (chosen == waiting_.end() || IsSlow(*chosen) || !OnlyShows(chosen->job) || !IsWanted(chosen->job) ||
      chosen->job.priority != PicturePriority::Screen) {
    return std::nullopt;
  }
  chosen->ahead = true;
  const quint64 id = chosen->job.id;
  running_.push_back(std::move(*chosen));
  waiting_.erase(chosen);
  return id;
}

void PictureQueue::Begun(quint64 id) {
  const auto running = Find(running_, id);
  if (running != running_.end()) running->ahead = false;
}

void PictureQueue::PutBack(const QList<quint64>& ids) {
  for (auto id = ids.crbegin(); id != ids.crend(); ++id) {
    const auto running = Find(running_, *id);
    if (running == running_.end()) continue;
    running->ahead = false;
    waiting_.push_front(std::move(*running));
    running_.erase(running);
  }
}

bool PictureQueue::HasUnwantedAhead() const {
  return std::any_of(running_.begin(), running_.end(),
                     [](const Entry& entry) { return entry.ahead && !IsWanted(entry.job); });
}

bool PictureQueue::CutsOff(quint64 id) {
  const auto running = Find(running_, id);
  if (running == running_.end()) return false;
  Suspect(running->job.origin);
  if (OnlyShows(running->job) && !IsWanted(running->job)) return true;
  if (running->slow) return false;  // a slow job has its second, long try
  const bool othersWait =
      std::any_of(waiting_.begin(), waiting_.end(), [&](const Entry& entry) { return !IsSlow(entry); });
  if (othersWait || SlowRunning() >= PictureTimes::kSlowHelpers) return true;
  running->slow = true;
  return false;
}

void PictureQueue::PutLast(quint64 id, Time now) {
  const auto running = Find(running_, id);
  if (running == running_.end()) return;
  waiting_.push_back({std::move(running->job), now, true, false});
  running_.erase(running);
}

void PictureQueue::End(quint64 id, bool quick) {
  const auto running = Find(running_, id);
  if (running == running_.end()) return;
  if (quick) suspects_.remove(running->job.origin);
  running_.erase(running);
}

PictureQueue::Dropped PictureQueue::DropUnwanted() {
  Dropped dropped;
  const auto unwanted = [](const Entry& entry) { return OnlyShows(entry.job) && !IsWanted(entry.job); };
  for (const Entry& entry : running_) {
    if (entry.slow && unwanted(entry)) dropped.running.push_back(entry.job.id);
  }
  for (auto entry = waiting_.begin(); entry != waiting_.end();) {
    if (!unwanted(*entry)) {
      ++entry;
      continue;
    }
    dropped.waiting.push_back(entry->job.id);
    entry = waiting_.erase(entry);
  }
  return dropped;
}

void PictureQueue::Suspect(const QString& origin) {
  if (origin.isEmpty()) return;
  if (suspects_.size() >= kMostSuspects) suspects_.clear();  // a list of all the world's hosts helps nobody: begin anew
  suspects_.insert(origin);
}
