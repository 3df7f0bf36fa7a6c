// SPDX-License-Identifier: GPL-3.0-or-later
// Asynchronous reads of http(s) addresses by key. UrlNetwork is the program's one network thread with its limits;
// each download control owns a UrlReader with a key space of its own.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QNetworkCookie>
#include <QObject>
#include <QPointer>
#include <QQueue>
#include <QThread>
#include <QTimer>
#include <QUrl>
#include <memory>

#include "platform/net/address_rules.h"
#include "platform/net/body_budget.h"
#include "platform/net/url_answer.h"
#include "platform/net/url_limits.h"

class CookieStore;
class UrlReader;
class UrlWorker;

// The network thread, and what all reads share.
class UrlNetwork : public QObject {
  Q_OBJECT

 public:
  // rules: which addresses no redirect of a public server may lead to.
  explicit UrlNetwork(const UrlLimits& limits = {},
                      std::shared_ptr<const AddressRules> rules = std::make_shared<AddressRules>(),
                      QObject* parent = nullptr);
  ~UrlNetwork() override;  // ends all reads; none of them answers

  // From now on reads carry the store's cookies to the hosts that they belong to, and these hosts may renew or expire
  // them. Without a store, and to any other host, no cookie goes out and none is kept.
  void SetCookies(CookieStore& store);

 Q_SIGNALS:
  // A server sent more than any answer may have: a body without end, or head lines. Its read fails just after.
  void HostFlooded(const QString& host);

 private:
  friend class UrlReader;

  // Whom an answer is for.
  struct Asker {
    UrlReader* reader = nullptr;
    QString key;
  };

  quint64 Begin(UrlReader* reader, const QString& key, const QUrl& url, const ReadOptions& options);
  void End(quint64 id);
  void PassCookies();
  void RenewCookies(const QUrl& url, const QList<QNetworkCookie>& received);
  void Take(const UrlAnswer& answer);
  void HandOut();
  void Raise(const UrlAnswer& answer);
  void ReleaseBody(const QByteArray& body);
  void ReleaseUnused();
  void GiveBack(qint64 bytes);

  const std::shared_ptr<const AddressRules> rules_;
  BodyBudget budget_;
  // Sockets, TLS and unpacking run on a thread of their own: none of it can hold the event loop.
  QThread thread_;
  UrlWorker* worker_;
  QPointer<CookieStore> cookies_;
  QHash<quint64, Asker> askers_;
  quint64 lastId_ = 0;
  // Answers wait here and are handed out a few milliseconds at a time: a page of them arrives at once.
  QQueue<UrlAnswer> answers_;
  QTimer handOut_;
  QList<QByteArray> bodiesInUse_;  // handed out, in the budget as long as somebody else holds them
  QTimer releaseTimer_;
};

// The reads of one owner, by their keys.
class UrlReader : public QObject {
  Q_OBJECT

 public:
  explicit UrlReader(UrlNetwork& network, QObject* parent = nullptr);
  ~UrlReader() override;

  // Begins a read. A read that is pending under the same key is cancelled first and raises no signal. Never answers
  // before it returns.
  void Start(const QString& key, const QUrl& url, UrlPriority priority = UrlPriority::Page);
  void StartWith(const QString& key, const QUrl& url, const ReadOptions& options);
  // Ends a read, which then raises no signal; a key that is not pending is ignored.
  void Cancel(const QString& key);
  void CancelAll();
  bool IsPending(const QString& key) const;

 Q_SIGNALS:
  // A read of UrlPriority::Behind has its place among the running ones; again, when it had to give that place away.
  void Begun(const QString& key);
  // Bytes: max of the whole body, 0 where the server announced none or those of a packed body; read so far. Every 30 ms
  // at the most, and once just before Done.
  void Progress(const QString& key, qint64 max, qint64 read);
  // The whole body, whatever the HTTP status. The key is no longer pending when this is raised.
  void Done(const QString& key, const QByteArray& body);
  // Transport error, limit exceeded, or an address that is not http(s).
  void Failed(const QString& key);

 private:
  friend class UrlNetwork;

  QPointer<UrlNetwork> network_;
  QHash<QString, quint64> pending_;
};
