// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/net/url_worker.h"

#include <algorithm>

#include "platform/net/url_transfer.h"

using namespace std::chrono_literals;

namespace {

constexpr int kKeptForUsers = 2;  // of the reads at once, for UrlPriority::User
// A body may grow to this size even if the budget is spent, so that thumbs and pages go on while large bodies wait. All
// 24 reads together take little memory with such bodies, and a page is not held up for that.
constexpr qint64 kSmallBody = 1024LL * 1024;
// For so long after a read of a page has begun no read behind it begins. Sites that take longer do not hold those up.
constexpr auto kFresh = 1s;
constexpr auto kAgain = 100ms;

}  // namespace

UrlWorker::UrlWorker(const UrlLimits& limits, const AddressRules& rules, BodyBudget& budget, Callbacks callbacks)
    : limits_(limits), budget_(budget), callbacks_(std::move(callbacks)), pool_(limits_, rules, this), again_(this) {
  again_.setSingleShot(true);
  again_.setInterval(kAgain);
  connect(&again_, &QTimer::timeout, this, &UrlWorker::BeginWaiting);
}

// Deletes the transfers before the pool to which they give their connections back.
UrlWorker::~UrlWorker() {
  qDeleteAll(findChildren<UrlTransfer*>(Qt::FindDirectChildrenOnly));
}

void UrlWorker::Add(quint64 id, const QUrl& url, const ReadOptions& options) {
  Enqueue({id, url, url, options});
  BeginWaiting();
}

void UrlWorker::Enqueue(const Waiting& read) {
  const auto isBehind = [&read](const Waiting& other) { return other.options.priority < read.options.priority; };
  waiting_.insert(std::find_if(waiting_.begin(), waiting_.end(), isBehind), read);
}

void UrlWorker::Drop(quint64 id) {
  const auto found =
      std::find_if(waiting_.begin(), waiting_.end(), [id](const Waiting& read) { return read.id == id; });
  if (found != waiting_.end()) {
    if (found->transfer) found->transfer->deleteLater();
    waiting_.erase(found);
    return;
  }
  if (running_.contains(id)) EndTransfer(id);
  ResumePaused();
  BeginWaiting();
}

void UrlWorker::BeginWaiting() {
  for (qsizetype i = 0; i < waiting_.size();) {
    if (MayBegin(waiting_[i])) {
      BeginRead(waiting_.takeAt(i));
    } else {
      ++i;
    }
  }
  const bool othersHaveBegun = readsBehind_ < running_.size();
  if (!waiting_.isEmpty() && waiting_.last().options.priority == UrlPriority::Behind && othersHaveBegun) again_.start();
}

bool UrlWorker::MayBegin(const Waiting& read) {
  if (readsByHost_.value(read.url.host()) >= limits_.maxReadsPerHost) return false;
  const UrlPriority priority = read.options.priority;
  if (priority == UrlPriority::Behind) return MayBeginBehind();
  const int most = priority == UrlPriority::User ? limits_.maxReads : std::max(limits_.maxReads - kKeptForUsers, 1);
  return running_.size() < most || PutOneBack();
}

bool UrlWorker::MayBeginBehind() const {
  if (readsBehind_ >= std::min(limits_.maxReadsBehind, limits_.maxReads - kKeptForUsers)) return false;
  if (running_.size() >= limits_.maxReads - kKeptForUsers) return false;
  const auto isBefore = [](const auto& read) { return read.options.priority != UrlPriority::Behind; };
  if (std::any_of(waiting_.begin(), waiting_.end(), isBefore)) return false;
  const auto fresh = std::chrono::steady_clock::now() - kFresh;
  return std::none_of(running_.begin(), running_.end(),
                      [&](const Running& read) { return isBefore(read) && read.begun > fresh; });
}

// Ends the youngest read of UrlPriority::Behind, which begins anew later. From its first address: a transfer that goes
// on from a redirect's target would not know any more which servers have led it there. False where no such read runs.
bool UrlWorker::PutOneBack() {
  if (readsBehind_ == 0) return false;
  quint64 youngest = 0;
  for (auto read = running_.constBegin(); read != running_.constEnd(); ++read) {
    if (read->options.priority == UrlPriority::Behind) youngest = read.key();
  }
  const Running read = running_.value(youngest);
  EndTransfer(youngest);
  Enqueue({youngest, read.first, read.first, read.options});
  return true;
}

void UrlWorker::BeginRead(const Waiting& read) {
  UrlTransfer* transfer = read.transfer ? read.transfer : MakeTransfer(read.id, read.options);
  running_.insert(read.id, {transfer, read.url.host(), read.first, read.options, std::chrono::steady_clock::now()});
  ++readsByHost_[read.url.host()];
  if (read.options.priority == UrlPriority::Behind) {
    ++readsBehind_;
    callbacks_.answer({.kind = UrlAnswer::Kind::Begun, .id = read.id, .body = {}, .floodingHost = {}});
  }
  transfer->Begin(read.url);
}

UrlTransfer* UrlWorker::MakeTransfer(quint64 id, const ReadOptions& options) {
  const UrlTransfer::Shared shared{pool_, limits_, cookies_, budget_};
  auto* transfer = new UrlTransfer(
      shared, options, [this, id](qint64 size) { return MayGrow(id, size); }, this);
  connect(transfer, &UrlTransfer::Progress, this, [this, id](qint64 max, qint64 read) {
    callbacks_.answer(
        {.kind = UrlAnswer::Kind::Progress, .id = id, .max = max, .read = read, .body = {}, .floodingHost = {}});
  });
  connect(transfer, &UrlTransfer::Done, this, [this, id](const QByteArray& body) {
    Answer({.kind = UrlAnswer::Kind::Done, .id = id, .body = body, .floodingHost = {}});
  });
  connect(transfer, &UrlTransfer::Failed, this, [this, id](bool isFlood) {
    Answer({.kind = UrlAnswer::Kind::Failed,
            .id = id,
            .body = {},
            .floodingHost = isFlood ? running_.value(id).host : QString()});
  });
  connect(transfer, &UrlTransfer::Moved, this, [this, id](const QUrl& target) { Move(id, target); });
  connect(transfer, &UrlTransfer::CookiesReceived, this, &UrlWorker::TakeReceivedCookies);
  return transfer;
}

void UrlWorker::EndTransfer(quint64 id) {
  UrlTransfer* transfer = running_.value(id).transfer;
  Release(id);
  // Not deleted at once: it may be the transfer that is just raising its answer.
  transfer->disconnect(this);
  transfer->Stop();
  transfer->deleteLater();
}

// The redirected read waits again, because the target's server may have as many reads as are allowed.
void UrlWorker::Move(quint64 id, const QUrl& target) {
  const Running read = running_.value(id);
  Release(id);
  waiting_.prepend({id, target, read.first, read.options, read.transfer});
  // From the event loop, not from within the answer that has just been read.
  QMetaObject::invokeMethod(this, &UrlWorker::BeginWaiting, Qt::QueuedConnection);
}

void UrlWorker::Answer(const UrlAnswer& answer) {
  callbacks_.answer(answer);
  Drop(answer.id);
}

// Called before each step of a body. While the budget is spent, the oldest read alone goes on, so that one always comes
// to its end and gives room to the next.
bool UrlWorker::MayGrow(quint64 id, qint64 size) {
  if (!budget_.IsSpent() || size < kSmallBody || running_.firstKey() == id) return true;
  budget_.SetWaiting(true);
  // Tested again: bytes that were given back just before SetWaiting() would resume nobody.
  if (budget_.IsSpent()) return false;
  return true;
}

void UrlWorker::ResumePaused() {
  if (!budget_.IsWaiting()) return;
  budget_.SetWaiting(false);
  // Each of them asks MayGrow first, and may be paused again.
  const QList<quint64> ids = running_.keys();
  for (const quint64 id : ids) {
    const auto read = running_.constFind(id);
    if (read != running_.cend() && read->transfer->IsPaused()) read->transfer->Resume();
  }
}

void UrlWorker::Release(quint64 id) {
  const Running read = running_.take(id);
  if (read.options.priority == UrlPriority::Behind) --readsBehind_;
  if (--readsByHost_[read.host] <= 0) readsByHost_.remove(read.host);
}

// Changes this thread's copy at once, for the next request of a chain of redirects. On the event loop the cookie store
// decides what is kept, as the user may just have signed out.
void UrlWorker::TakeReceivedCookies(const QUrl& url, const QList<QNetworkCookie>& received) {
  if (cookies_.Renew(url, received)) callbacks_.cookies(url, received);
}
