// SPDX-License-Identifier: GPL-3.0-or-later
// One read of one address, through its redirects to its only answer. Lives on the network thread; url_reader makes one
// for each read that has begun.
#pragma once

#include <QElapsedTimer>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QObject>
#include <QTimer>
#include <QUrl>

#include "platform/net/cookie_list.h"
#include "platform/net/url_reader.h"

class UrlTransfer : public QObject {
  Q_OBJECT

 public:
  // Each request carries those of the cookies that belong to its own address.
  UrlTransfer(QNetworkAccessManager& access, const UrlLimits& limits, const CookieList& cookies,
              QObject* parent = nullptr);
  ~UrlTransfer() override;

  // Never answers before it returns.
  void Begin(const QUrl& url);
  // Ends the read without a word.
  void Stop();
  // What is being asked, a redirect's target too; empty when nothing is.
  QUrl Asked() const { return reply_ ? reply_->url() : QUrl(); }

 Q_SIGNALS:
  // The server was heard.
  void Heard();
  void Progress(qint64 max, qint64 read);
  void Done(const QByteArray& body);
  void Failed();
  // An answer, that of a redirect too, came with cookies.
  void CookiesTold(const QUrl& url, const QList<QNetworkCookie>& cookies);

 private:
  void Request(const QUrl& url);
  void OnHeaders();
  void OnData();
  void OnFinished();
  bool Follow();
  bool Drain();
  void Fail();
  void DropReply();
  qint64 ToldLength() const;

  QNetworkAccessManager& access_;
  const UrlLimits limits_;
  const CookieList& cookies_;
  QNetworkReply* reply_ = nullptr;
  QTimer stall_;
  QTimer deadline_;
  QElapsedTimer sinceProgress_;
  QByteArray body_;
  int redirects_ = 0;
};
