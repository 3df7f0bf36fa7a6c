// SPDX-License-Identifier: GPL-3.0-or-later
// The part of the reads that lives on the network thread: which read begins when, and which of them may go on while
// memory is short. UrlNetwork owns one and talks to it by queued calls.
#pragma once

#include <QHash>
#include <QList>
#include <QMap>
#include <QObject>
#include <QTimer>
#include <QUrl>
#include <chrono>
#include <functional>

#include "platform/net/address_rules.h"
#include "platform/net/body_budget.h"
#include "platform/net/connection_pool.h"
#include "platform/net/cookie_list.h"
#include "platform/net/url_answer.h"
#include "platform/net/url_limits.h"

class UrlTransfer;

// All reads of the program, waiting and running.
class UrlWorker : public QObject {
  Q_OBJECT

 public:
  // Both are called on the network thread.
  struct Callbacks {
    std::function<void(const UrlAnswer&)> answer;
    std::function<void(const QUrl&, const QList<QNetworkCookie>&)> cookies;
  };

  UrlWorker(const UrlLimits& limits, const AddressRules& rules, BodyBudget& budget, Callbacks callbacks);
  ~UrlWorker() override;

  void Add(quint64 id, const QUrl& url, const ReadOptions& options);
  void Drop(quint64 id);
  void TakeCookies(const CookieList& cookies) { cookies_ = cookies; }
  // Lets paused reads go on, as bytes have been given back to the budget.
  void ResumePaused();

 private:
  // A read that has not begun, or waits for the server that it was redirected to.
  struct Waiting {
    quint64 id = 0;
    QUrl url;    // where it goes next
    QUrl first;  // where it began
    ReadOptions options;
    UrlTransfer* transfer = nullptr;  // of a redirected read; else null
  };
  // A read that has begun.
  struct Running {
    UrlTransfer* transfer = nullptr;
    QString host;
    QUrl first;
    ReadOptions options;
    std::chrono::steady_clock::time_point begun{};
  };

  void Enqueue(const Waiting& read);
  void BeginWaiting();
  bool MayBegin(const Waiting& read);
  bool MayBeginBehind() const;
  bool PutOneBack();
  void BeginRead(const Waiting& read);
  UrlTransfer* MakeTransfer(quint64 id, const ReadOptions& options);
  void EndTransfer(quint64 id);
  void Move(quint64 id, const QUrl& target);
  void Answer(const UrlAnswer& answer);
  bool MayGrow(quint64 id, qint64 size);
  void Release(quint64 id);
  void TakeReceivedCookies(const QUrl& url, const QList<QNetworkCookie>& received);

  const UrlLimits limits_;
  BodyBudget& budget_;
  const Callbacks callbacks_;
  CookieList cookies_;
  ConnectionPool pool_;
  QList<Waiting> waiting_;           // those of users first, each kind in the order of their coming
  QMap<quint64, Running> running_;   // the oldest first
  QHash<QString, int> readsByHost_;  // reads that run, by host
  int readsBehind_ = 0;              // reads of UrlPriority::Behind that run
  QTimer again_;                     // while such reads wait for the others to have had their time
};
