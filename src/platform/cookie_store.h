// SPDX-License-Identifier: GPL-3.0-or-later
// The program's cookies, one file for browser windows and page reads alike: what a user's sign-in to a callbook service
// has left. The sign-in window fills it, the URL reader sends from it.
#pragma once

#include <QList>
#include <QNetworkCookie>
#include <QObject>
#include <QString>
#include <QUrl>

class CookieStore : public QObject {
  Q_OBJECT

 public:
  // Reads the file "cookies" in the data folder; a missing or broken one is no cookies.
  explicit CookieStore(const QString& appDataDir, QObject* parent = nullptr);

  // Those that have not expired; session cookies outlive the program, as a sign-in is to last.
  QList<QNetworkCookie> All() const;
  QList<QNetworkCookie> CookiesFor(const QUrl& url) const;
  // host: where a cookie without a domain came from.
  void Add(QNetworkCookie cookie, const QString& host);
  void Remove(const QNetworkCookie& cookie);
  // All of a host and of the domains above it that it would get: the end of a sign-in.
  void RemoveOf(const QUrl& url);

 Q_SIGNALS:
  // Written to the file already, whole or not at all, readable by the user alone.
  void Changed();
};
