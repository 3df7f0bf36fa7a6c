// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/net/url_reader.h"

#include <QHostInfo>

#include "platform/net/cookie_store.h"
#include "platform/net/flood_watch.h"
#include "platform/net/url_transfer.h"

namespace {

constexpr int kReadsPerHost = 6;
constexpr qint64 kHandOutMs = 4;
constexpr int kLooksOfQuiet = 5;
constexpr int kLooksForDropped = 3 * kLooksOfQuiet;

}  // namespace

// The part of UrlNetwork that lives on the network thread: reads that wait for their host, and reads that run.
class UrlWorker : public QObject {
  Q_OBJECT

 public:
  UrlWorker(UrlNetwork& network, const UrlLimits& limits)
      : network_(network), limits_(limits), access_(this), watch_(this) {
    watch_.setInterval(limits.quiet / kLooksOfQuiet);
    connect(&watch_, &QTimer::timeout, this, &UrlWorker::Watch);
  }
  // Before the access manager goes, and its replies with it. A flood would hold both up.
  ~UrlWorker() override {
    qDeleteAll(findChildren<UrlTransfer*>(Qt::FindDirectChildrenOnly));
    if (isUnanswered_ || !dropped_.isEmpty()) FloodWatch::Cut(FloodWatch::Unread());
  }

  void Add(quint64 id, const QUrl& url) {
    waiting_ += {id, url};
    BeginWaiting();
  }

  void Drop(quint64 id) {
    // A flood goes on although nobody waits for it any more.
    if (const auto found = running_.constFind(id); found != running_.cend() && !found->transfer->Asked().isEmpty()) {
      dropped_ += {found->transfer->Asked()};
      if (!watch_.isActive()) watch_.start();
    }
    waiting_.removeIf([id](const Waiting& read) { return read.id == id; });
    Release(id);
    BeginWaiting();
  }

  void TakeCookies(const CookieList& cookies) { cookies_ = cookies; }

 private:
  struct Waiting {
    quint64 id = 0;
    QUrl url;
  };
  struct Running {
    UrlTransfer* transfer = nullptr;
    QString host;
  };
  struct Dropped {
    QUrl url;
    bool isSeen = false;  // at a look
  };

  void BeginWaiting() {
    for (qsizetype i = 0; i < waiting_.size();) {
      if (busy_.value(waiting_[i].url.host()) >= kReadsPerHost) {
        ++i;
        continue;
      }
      BeginRead(waiting_.takeAt(i));
    }
  }

  void BeginRead(const Waiting& read) {
    auto* transfer = new UrlTransfer(access_, limits_, cookies_, this);
    running_.insert(read.id, {transfer, read.url.host()});
    ++busy_[read.url.host()];
    const quint64 id = read.id;
    connect(transfer, &UrlTransfer::Progress, this, [this, id](qint64 max, qint64 count) {
      Report({.kind = UrlNetwork::Answer::Kind::Progress, .id = id, .max = max, .read = count, .body = {}});
    });
    connect(transfer, &UrlTransfer::Done, this, [this, id](const QByteArray& body) {
      Report({.kind = UrlNetwork::Answer::Kind::Done, .id = id, .body = body});
      Drop(id);
    });
    connect(transfer, &UrlTransfer::Failed, this, [this, id]() {
      Report({.kind = UrlNetwork::Answer::Kind::Failed, .id = id, .body = {}});
      Drop(id);
    });
    connect(transfer, &UrlTransfer::CookiesTold, this, &UrlWorker::RenewCookies);
    connect(transfer, &UrlTransfer::Heard, this, [this]() {
      wasHeard_ = true;
      isUnanswered_ = false;
    });
    isUnanswered_ = true;
    if (!watch_.isActive()) watch_.start();
    transfer->Begin(read.url);
  }

  // When no server at all was heard for a while, one of those that are being read may be flooding.
  void Watch() {
    const bool wasHeard = std::exchange(wasHeard_, false);
    // An answer that comes after the end of a read proves that the end was heeded; one that was on its way does not.
    if (wasHeard || quietLooks_ > kLooksForDropped) dropped_.removeIf([](const Dropped& read) { return read.isSeen; });
    for (Dropped& read : dropped_) read.isSeen = true;
    const bool isIdle = running_.isEmpty() && dropped_.isEmpty();
    if (wasHeard || isIdle) {
      quietLooks_ = 0;
      addresses_.clear();
      floods_.Forget();
      if (isIdle) watch_.stop();
      return;
    }
    if (++quietLooks_ < kLooksOfQuiet) return;
    QHash<quint64, QList<FloodWatch::Peer>> peers;
    QList<FloodWatch::Peer> all;
    for (const Dropped& read : std::as_const(dropped_)) all += PeersOf(read.url);
    for (auto read = running_.cbegin(); read != running_.cend(); ++read) {
      peers[read.key()] = PeersOf(read->transfer->Asked());
      all += peers[read.key()];
    }
    const QList<FloodWatch::Flood> floods = floods_.Look(all);
    // The read fails before its connection is cut: Qt would ask such a server again.
    for (auto read = peers.cbegin(); read != peers.cend(); ++read)
      for (const FloodWatch::Flood& flood : floods)
        if (read->contains(flood.peer)) FailFlooded(read.key());
    FloodWatch::Cut(floods);
  }

  void FailFlooded(quint64 id) {
    const auto found = running_.constFind(id);
    if (found == running_.cend()) return;
    found->transfer->Stop();
    Report({.kind = UrlNetwork::Answer::Kind::Failed, .id = id, .body = {}});
    Drop(id);
  }

  // Without an address until the name is looked up.
  QList<FloodWatch::Peer> PeersOf(const QUrl& url) {
    const auto port = static_cast<quint16>(url.port(url.scheme() == u"https" ? 443 : 80));
    QList<FloodWatch::Peer> peers;
    for (const QHostAddress& address : AddressesOf(url.host())) peers += {address, port};
    return peers;
  }

  QList<QHostAddress> AddressesOf(const QString& host) {
    if (!addresses_.contains(host)) {
      addresses_.insert(host, {});
      QHostInfo::lookupHost(host, this, [this, host](const QHostInfo& found) {
        if (addresses_.contains(host)) addresses_.insert(host, found.addresses());
      });
    }
    return addresses_.value(host);
  }

  void Release(quint64 id) {
    const auto found = running_.find(id);
    if (found == running_.end()) return;
    if (--busy_[found->host] == 0) busy_.remove(found->host);
    // It may be the one that is just raising its answer.
    found->transfer->disconnect(this);
    found->transfer->deleteLater();
    running_.erase(found);
  }

  // Here at once, for the next step of a chain of redirects; the store decides what stays, as the user may just have
  // signed out.
  void RenewCookies(const QUrl& url, const QList<QNetworkCookie>& told) {
    if (!cookies_.Renew(url, told)) return;
    QMetaObject::invokeMethod(
        &network_, [network = &network_, url, told]() { network->RenewCookies(url, told); }, Qt::QueuedConnection);
  }

  void Report(const UrlNetwork::Answer& answer) {
    QMetaObject::invokeMethod(
        &network_, [network = &network_, answer]() { network->Take(answer); }, Qt::QueuedConnection);
  }

  UrlNetwork& network_;
  const UrlLimits limits_;
  QNetworkAccessManager access_;
  CookieList cookies_;
  QList<Waiting> waiting_;
  QHash<quint64, Running> running_;
  QHash<QString, int> busy_;
  QTimer watch_;
  QList<Dropped> dropped_;
  bool wasHeard_ = false;
  // Nothing was heard since a read began; it may have been dropped meanwhile.
  bool isUnanswered_ = false;
  int quietLooks_ = 0;
  QHash<QString, QList<QHostAddress>> addresses_;
  FloodWatch floods_;
};

UrlNetwork::UrlNetwork(const UrlLimits& limits, QObject* parent)
    : QObject(parent), worker_(new UrlWorker(*this, limits)) {
  handOut_.setSingleShot(true);
  connect(&handOut_, &QTimer::timeout, this, &UrlNetwork::HandOut);
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

void UrlNetwork::RenewCookies(const QUrl& url, const QList<QNetworkCookie>& told) {
  if (cookies_) cookies_->Renew(url, told);
}

quint64 UrlNetwork::Begin(UrlReader* reader, const QString& key, const QUrl& url) {
  const quint64 id = ++lastId_;
  askers_.insert(id, {reader, key});
  QMetaObject::invokeMethod(
      worker_, [worker = worker_, id, url]() { worker->Add(id, url); }, Qt::QueuedConnection);
  return id;
}

void UrlNetwork::End(quint64 id) {
  if (!askers_.remove(id)) return;
  QMetaObject::invokeMethod(
      worker_, [worker = worker_, id]() { worker->Drop(id); }, Qt::QueuedConnection);
}

void UrlNetwork::Take(const Answer& answer) {
  answers_.enqueue(answer);
  if (!handOut_.isActive()) handOut_.start(0);
}

void UrlNetwork::HandOut() {
  QElapsedTimer spent;
  spent.start();
  while (!answers_.isEmpty() && spent.elapsed() < kHandOutMs) {
    const Answer answer = answers_.dequeue();
    // Armed before the handler runs: it may open a message box, and the other answers must arrive behind that.
    if (!answers_.isEmpty() && !handOut_.isActive()) handOut_.start(0);
    Raise(answer);
  }
}

void UrlNetwork::Raise(const Answer& answer) {
  const Asker asker = askers_.value(answer.id);
  if (!asker.reader) return;  // cancelled meanwhile
  if (answer.kind == Answer::Kind::Progress) {
    Q_EMIT asker.reader->Progress(asker.key, answer.max, answer.read);
    return;
  }
  askers_.remove(answer.id);
  asker.reader->pending_.remove(asker.key);
  if (answer.kind == Answer::Kind::Done) {
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

void UrlReader::Start(const QString& key, const QUrl& url) {
  Cancel(key);
  if (network_) pending_.insert(key, network_->Begin(this, key, url));
}

void UrlReader::Cancel(const QString& key) {
  const quint64 id = pending_.take(key);
  if (id != 0 && network_) network_->End(id);
}

bool UrlReader::IsPending(const QString& key) const {
  return pending_.contains(key);
}

#include "url_reader.moc"
