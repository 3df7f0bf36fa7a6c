// SPDX-License-Identifier: GPL-3.0-or-later
// The program's cookies, one file for browser windows and page reads alike: what a user's sign-in to a callbook service
// has left. The sign-in window fills it, the URL reader sends from it.
#pragma once

#include <QList>
#include <QNetworkCookie>
#include <QObject>
#include <QString>
#include <QUrl>

#include "platform/net/cookie_list.h"
#include "platform/net/sign_in_trail.h"

// What a browser window says about one cookie of its own.
struct CookieChange {
  QNetworkCookie cookie;
  bool removed = false;
};

class CookieStore : public QObject {
  Q_OBJECT

 public:
  // Reads the file "cookies" in the data folder; a missing or broken one is no cookies. One that cannot be read is
  // never written over: what is added then lasts as long as the program.
  explicit CookieStore(const QString& appDataDir, QObject* parent = nullptr);

  // Those that have not expired; session cookies outlive the program, as a sign-in is to last.
  QList<QNetworkCookie> All() const;
  QList<QNetworkCookie> CookiesFor(const QUrl& url) const;
  const CookieList& List() const { return list_; }
  // host: where a cookie without a domain came from. A domain that begins with "." is the cookie's domain, another one
  // its only host.
  void Add(const QNetworkCookie& cookie, const QString& host);
  void Remove(const QNetworkCookie& cookie);
  // All of a host and of the domains above it that it would get, and all below these, and the same for each host that
  // the sign-in there has led through: the end of a sign-in.
  void RemoveOf(const QUrl& url);
  // A browser window that was opened on a page of site has gone to visited. Written with the next cookie: a host that
  // sets none leaves nothing to remove.
  void NoteVisit(const QUrl& site, const QUrl& visited) { trail_.Add(site, visited); }
  // Scheme, host and port of all that RemoveOf would take along.
  QList<QUrl> VisitedFrom(const QUrl& site) const { return trail_.Of(site); }
  // In their order, written once.
  void Apply(const QList<CookieChange>& changes);
  // What a server told in answer to a page read: only hosts and domains that have cookies here may change theirs.
  void Renew(const QUrl& url, const QList<QNetworkCookie>& told);

 Q_SIGNALS:
  // Written to the file already, whole or not at all, readable by the user alone.
  void Changed();

 private:
  void Read();
  bool Write() const;
  void Finish(bool changed);

  QString path_;
  CookieList list_;
  SignInTrail trail_;
  bool unreadable_ = false;
};
