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

// A change that a browser window has made to one of its cookies.
struct CookieChange {
  QNetworkCookie cookie;
  bool removed = false;
};

// The cookies in memory, the file that keeps them, and the trail of each sign-in.
class CookieStore : public QObject {
  Q_OBJECT

 public:
  // Reads the file "cookies" in the data folder; a missing or broken file gives no cookies. A file that exists but
  // cannot be read is never overwritten: cookies that are added then last as long as the program runs.
  explicit CookieStore(const QString& appDataDir, QObject* parent = nullptr);

  // All cookies that have not expired. Session cookies outlive the program, because a sign-in is to last.
  QList<QNetworkCookie> All() const;
  QList<QNetworkCookie> CookiesFor(const QUrl& url) const;
  const CookieList& List() const { return list_; }
  // host: where a cookie without a domain came from. The cookie's domain is as in CookieList.
  void Add(const QNetworkCookie& cookie, const QString& host);
  void Remove(const QNetworkCookie& cookie);
  // Ends a sign-in: removes the cookies of the host, those of the domains above it that it would get, and all cookies
  // below these, and the same for each host that the sign-in there has led through.
  void RemoveOf(const QUrl& url);
  // Notes that a browser window that was opened on a page of site has gone to visited. It is written to the file with
  // the next cookie: a host that sets none leaves nothing to remove.
  void NoteVisit(const QUrl& site, const QUrl& visited) { trail_.Add(site, visited); }
  // Scheme, host and port of the hosts whose cookies RemoveOf would remove besides those of site.
  QList<QUrl> VisitedFrom(const QUrl& site) const { return trail_.VisitedFrom(site); }
  // Makes the changes in their order and writes the file once.
  void Apply(const QList<CookieChange>& changes);
  // Takes the cookies that a server sent with the page at url. Only hosts and domains that have cookies here may change
  // theirs.
  void Renew(const QUrl& url, const QList<QNetworkCookie>& received);

 Q_SIGNALS:
  // Raised when the file has been written: whole or not at all, readable by the user alone.
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
