// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/net/url_reader.h"

#include "platform/heap.h"
#include "platform/net/cookie_store.h"
#include "platform/net/url_worker.h"

using namespace std::chrono_literals;

namespace {

constexpr qint64 kHandOutMs = 4;  // for which answers are handed out at a time
// A handler is done with a small body when it returns. A large one may still be on its way to the disk, so a timer
// looks now and then whether anybody else still holds it.
constexpr qsizetype kLargeBody = 256LL * 1024;
constexpr qint64 kFlood = 8LL << 20;  // bytes let go of at once, more than any picture has
constexpr auto kReleaseEvery = 20ms;

}  // namespace

UrlNetwork::UrlNetwork(const UrlLimits& limits, std::shared_ptr<const AddressRules> rules, QObject* parent)
    : QObject(parent), rules_(std::move(rules)), budget_(limits.maxMemory) {
  const UrlWorker::Callbacks callbacks{.answer =
                                           [this](const UrlAnswer& answer) {
                                             QMetaObject::invokeMethod(
                                                 this, [this, answer]() { Take(answer); }, Qt::QueuedConnection);
                                           },
                                       .cookies =
                                           [this](const QUrl& url, const QList<QNetworkCookie>& cookies) {
                                             QMetaObject::invokeMethod(
                                                 this, [this, url, cookies]() { RenewCookies(url, cookies); },
                                                 Qt::QueuedConnection);
                                           }};
  worker_ = new UrlWorker(limits, *rules_, budget_, callbacks);
  handOut_.setSingleShot(true);
  connect(&handOut_, &QTimer::timeout, this, &UrlNetwork::HandOut);
  releaseTimer_.setInterval(kReleaseEvery);
  connect(&releaseTimer_, &QTimer::timeout, this, &UrlNetwork::ReleaseUnused);
  worker_->moveToThread(&thread_);
  connect(&thread_, &QThread::finished, worker_, &QObject::deleteLater);
  thread_.setObjectName(QStringLiteral("network"));
  thread_.start();
}

UrlNetwork::~UrlNetwork() {
  thread_.quit();
  thread_.wait();
}

void UrlNetwork::SetCookies(CookieStore& store) {
  if (cookies_) cookies_->disconnect(this);
  cookies_ = &store;
  connect(&store, &CookieStore::Changed, this, &UrlNetwork::PassCookies);
  PassCookies();
}

void UrlNetwork::PassCookies() {
  QMetaObject::invokeMethod(
      worker_, [worker = worker_, list = cookies_->List()]() { worker->TakeCookies(list); }, Qt::QueuedConnection);
}

void UrlNetwork::RenewCookies(const QUrl& url, const QList<QNetworkCookie>& received) {
  if (cookies_) cookies_->Renew(url, received);
}

quint64 UrlNetwork::Begin(UrlReader* reader, const QString& key, const QUrl& url, const ReadOptions& options) {
  const quint64 id = ++lastId_;
  askers_.insert(id, {reader, key});
  QMetaObject::invokeMethod(
      worker_, [worker = worker_, id, url, options]() { worker->Add(id, url, options); }, Qt::QueuedConnection);
  return id;
}

void UrlNetwork::End(quint64 id) {
  if (!askers_.remove(id)) return;
  QMetaObject::invokeMethod(
      worker_, [worker = worker_, id]() { worker->Drop(id); }, Qt::QueuedConnection);
}

void UrlNetwork::Take(const UrlAnswer& answer) {
  answers_.enqueue(answer);
  if (!handOut_.isActive()) handOut_.start(0);
}

void UrlNetwork::HandOut() {
  QElapsedTimer spent;
  spent.start();
  while (!answers_.isEmpty() && spent.elapsed() < kHandOutMs) {
    const UrlAnswer answer = answers_.dequeue();
    // The timer is started before the handler runs: the handler may open a message box, and the other answers must
    // arrive while that is open.
    if (!answers_.isEmpty() && !handOut_.isActive()) handOut_.start(0);
    const QPointer<UrlNetwork> self(this);
    Raise(answer);
    if (!self) return;
    if (answer.kind == UrlAnswer::Kind::Done) ReleaseBody(answer.body);
  }
}

// Gives a body's bytes back to the budget when the last of its readers has dropped them.
void UrlNetwork::ReleaseBody(const QByteArray& body) {
  if (body.size() < kLargeBody) return GiveBack(body.size());
  bodiesInUse_ += body;
  if (!releaseTimer_.isActive()) releaseTimer_.start();
}

void UrlNetwork::ReleaseUnused() {
  qint64 bytes = 0;
  bodiesInUse_.removeIf([&bytes](const QByteArray& body) {
    if (!body.isDetached()) return false;
    bytes += body.size();
    return true;
  });
  if (bytes > 0) GiveBack(bytes);
  if (bodiesInUse_.isEmpty()) releaseTimer_.stop();
  // On the network thread, which nobody looks at.
  if (bytes >= kFlood) QMetaObject::invokeMethod(worker_, &GiveBackFreeMemory, Qt::QueuedConnection);
}

void UrlNetwork::GiveBack(qint64 bytes) {
  budget_.Give(bytes);
  if (!budget_.IsWaiting()) return;
  QMetaObject::invokeMethod(
      worker_, [worker = worker_]() { worker->ResumePaused(); }, Qt::QueuedConnection);
}

void UrlNetwork::Raise(const UrlAnswer& answer) {
  if (!answer.floodingHost.isEmpty()) Q_EMIT HostFlooded(answer.floodingHost);
  const Asker asker = askers_.value(answer.id);
  if (!asker.reader) return;  // cancelled meanwhile
  if (answer.kind == UrlAnswer::Kind::Begun) {
    Q_EMIT asker.reader->Begun(asker.key);
    return;
  }
  if (answer.kind == UrlAnswer::Kind::Progress) {
    Q_EMIT asker.reader->Progress(asker.key, answer.max, answer.read);
    return;
  }
  askers_.remove(answer.id);
  asker.reader->pending_.remove(asker.key);
  if (answer.kind == UrlAnswer::Kind::Done) {
    Q_EMIT asker.reader->Done(asker.key, answer.body);
  } else {
    Q_EMIT asker.reader->Failed(asker.key);
  }
}

UrlReader::UrlReader(UrlNetwork& network, QObject* parent) : QObject(parent), network_(&network) {}

UrlReader::~UrlReader() {
  if (!network_) return;
  for (const quint64 id : std::as_const(pending_)) network_->End(id);
}

void UrlReader::Start(const QString& key, const QUrl& url, UrlPriority priority) {
  ReadOptions options;
  options.priority = priority;
  StartWith(key, url, options);
}

void UrlReader::StartWith(const QString& key, const QUrl& url, const ReadOptions& options) {
  Cancel(key);
  if (network_) pending_.insert(key, network_->Begin(this, key, url, options));
}

void UrlReader::Cancel(const QString& key) {
  const quint64 id = pending_.take(key);
  if (id != 0 && network_) network_->End(id);
}

void UrlReader::CancelAll() {
  const QStringList keys = pending_.keys();
  for (const QString& key : keys) Cancel(key);
}

bool UrlReader::IsPending(const QString& key) const {
  return pending_.contains(key);
}
