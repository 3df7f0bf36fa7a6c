// SPDX-License-Identifier: GPL-3.0-or-later
// Cookies in memory: which of them an address gets, and what a server may change about them. The cookie file and the
// network thread hold one each.
#pragma once

#include <QList>
#include <QNetworkCookie>
#include <QString>
#include <QUrl>

// The cookies. One whose domain begins with "." goes to all hosts of that domain, any other to its one host.
class CookieList {
 public:
  // Limits, so that one site can neither fill the disk nor push out the sign-in of another.
  static constexpr qsizetype kMostCookies = 200;
  static constexpr qsizetype kMostBytes = 8 * 1024;  // of one cookie as a line of the file

  QList<QNetworkCookie> All() const;  // those that have not expired
  // The cookies that a request for the address carries, the longest path first.
  QList<QNetworkCookie> For(const QUrl& url) const;
  // The same cookies as the value of a request's Cookie header; empty for none.
  QByteArray HeaderFor(const QUrl& url) const;

  // The functions below return whether they have changed anything. Adding an expired cookie removes the cookie of its
  // name; one that no line of the file can hold is not added.
  bool Add(QNetworkCookie cookie, const QString& host);
  bool Remove(QNetworkCookie cookie);
  // Removes all cookies that the host gets; where one of them is a domain's, all cookies of that domain, because a site
  // that shares a cookie between its hosts is signed in to at any of them.
  bool RemoveOf(const QString& host);
  // Takes the cookies that a server sent with the page at url. It may renew, replace or expire cookies of a host or
  // domain that has some here already; a cookie of any other host is ignored.
  bool Renew(const QUrl& url, const QList<QNetworkCookie>& received);

 private:
  bool RenewOne(const QUrl& url, QNetworkCookie cookie);
  bool Holds(const QString& domain, bool secure) const;
  void DropSurplus();

  QList<QNetworkCookie> cookies_;  // the latest last
};
