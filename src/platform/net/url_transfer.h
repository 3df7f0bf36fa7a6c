// SPDX-License-Identifier: GPL-3.0-or-later
// One read of one address, through its redirects to its only answer. Lives on the network thread; url_worker makes one
// for each read that has begun.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>
#include <QUrl>
#include <functional>
#include <optional>

#include "platform/net/body_budget.h"
#include "platform/net/connection_pool.h"
#include "platform/net/cookie_list.h"
#include "platform/net/first_part.h"
#include "platform/net/http_body.h"
#include "platform/net/http_head.h"
#include "platform/net/url_limits.h"

// One read, whichever connection it uses at the time.
class UrlTransfer : public QObject {
  Q_OBJECT

 public:
  // The things that all reads share; they outlive the reads.
  struct Shared {
    ConnectionPool& pool;
    const UrlLimits& limits;
    const CookieList& cookies;  // each request carries those that belong to its own address
    BodyBudget& budget;
  };

  // mayGrow: called with the size of the body so far before more of it is taken. If it returns false, the read is
  // paused until Resume.
  UrlTransfer(const Shared& shared, const ReadOptions& options, std::function<bool(qint64 size)> mayGrow,
              QObject* parent = nullptr);
  ~UrlTransfer() override;

  // Reads the first address, or the target that Moved has handed out. Never answers before it returns.
  void Begin(const QUrl& url);
  bool IsPaused() const { return isPaused_; }
  void Resume();
  // Ends the read, which then raises no signal.
  void Stop();

 Q_SIGNALS:
  void Progress(qint64 max, qint64 read);
  // The body counts in the budget until its reader has let go of it.
  void Done(const QByteArray& body);
  // isFlood: the server sent more than any answer may have.
  void Failed(bool isFlood);
  // The answer was a redirect; the read goes on when Begin is called with the target.
  void Moved(const QUrl& target);
  // An answer, that of a redirect too, came with cookies.
  void CookiesReceived(const QUrl& url, const QList<QNetworkCookie>& cookies);

 private:
  void Ask(const ConnectionPool::Taken& taken);
  // Sites that are read one after the other, each once in minutes, would push the connections of the page out of the
  // pool.
  bool KeepsConnection() const { return options_.priority != UrlPriority::Behind; }
  void SendRequest();
  void OnReadable();
  void OnLost();
  void Pump();
  bool TakeHead();
  bool TakeBody();
  bool Step();
  void Pause();
  bool OnHead();
  bool IsTooLong(qint64 bytes);
  void OnPart(const QByteArray& part);
  void OnWhole();
  void Follow();
  void Fail() { Finish(false); }
  void FailAsFlood() { Finish(true); }
  void Finish(bool isFlood);
  void DropConnection();
  void ReleaseConnection();
  void ForgetBody();
  void EmitProgress();
  qint64 AnnouncedLength() const;

  const Shared shared_;
  const ReadOptions options_;
  const std::function<bool(qint64)> mayGrow_;
  QUrl url_;
  UrlConnection* connection_ = nullptr;
  bool isUsed_ = false;   // an earlier read has used the connection
  bool isHeard_ = false;  // the server has begun to answer this request
  bool isPaused_ = false;
  bool wasPublic_ = false;                     // one of the servers so far was outside of the user's own network
  QTimer stall_;                               // runs out when no byte comes
  QTimer opening_;                             // runs out when a connection takes too long to open
  QTimer deadline_;                            // runs out when the read takes too long in all
  std::chrono::milliseconds deadlineRest_{0};  // while paused
  QElapsedTimer sinceProgress_;
  QByteArray input_;  // has come in; the first used_ bytes are done
  qsizetype used_ = 0;
  qsizetype searched_ = 0;   // bytes of input_ that hold no end of a head
  qsizetype headBytes_ = 0;  // of this head and the interim ones before it
  std::optional<HttpHead> head_;
  std::unique_ptr<HttpBody> reader_;
  std::unique_ptr<FirstPart> part_;  // of a stream of which one part is wanted
  QByteArray body_;
  int redirects_ = 0;
};
