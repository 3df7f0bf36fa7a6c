// SPDX-License-Identifier: GPL-3.0-or-later
// Cookies in memory: which of them an address gets, and what a server may change about them. The cookie file and the
// network thread hold one each.
#pragma once

#include <QList>
#include <QNetworkCookie>
#include <QString>
#include <QUrl>

// A domain that begins with "." is that of a domain cookie; without one the cookie goes to this host alone.
class CookieList {
 public:
  // A site that floods its visitors is not to fill the disk, nor to push another one's sign-in out.
  static constexpr qsizetype kMostCookies = 200;
  static constexpr qsizetype kMostBytes = 8 * 1024;  // of one cookie as a line of the file

  QList<QNetworkCookie> All() const;  // without the expired
  // Those that a request for the address carries, the longest path first.
  QList<QNetworkCookie> For(const QUrl& url) const;
  // The same as the value of a request's Cookie header; empty for none.
  QByteArray HeaderFor(const QUrl& url) const;

  // All that change something say whether they did.
  // An expired cookie removes the one of its name; one that no line of the file can hold is left out.
  bool Add(QNetworkCookie cookie, const QString& host);
  bool Remove(QNetworkCookie cookie);
  // All that the host gets; where one of them is a domain's, the whole domain's: a site that shares a cookie between
  // its hosts signs in at any of them.
  bool RemoveOf(const QString& host);
  // A server's answer to a page read: it may renew, replace or expire cookies of a host or domain that has some here
  // already. Nobody else leaves any.
  bool Renew(const QUrl& url, const QList<QNetworkCookie>& told);

 private:
  bool RenewOne(const QUrl& url, QNetworkCookie cookie);
  bool Holds(const QString& domain, bool secure) const;
  void DropSurplus();

  QList<QNetworkCookie> cookies_;  // the latest last
};
