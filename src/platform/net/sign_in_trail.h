// SPDX-License-Identifier: GPL-3.0-or-later
// Which servers the pages of a sign-in have come from: a login often leads through a host of its own, whose cookies
// would sign the user in again without a question. The cookie store keeps one, so that signing out removes those too.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QUrl>

// The servers of all sign-ins, by the site whose page the browser window was opened on.
class SignInTrail {
 public:
  // Limits: a page that leads to ever more hosts loses older steps of its own site only.
  static constexpr qsizetype kMostSites = 50;
  static constexpr qsizetype kMostOfSite = 20;

  // A browser window that was opened on a page of site has gone to visited.
  void Add(const QUrl& site, const QUrl& visited);
  // Scheme, host and port of the servers where the windows of the site have been, without the site itself and without
  // sites that have had windows of their own: the user has signed in to these for their own sake.
  QList<QUrl> VisitedFrom(const QUrl& site) const;
  void Remove(const QUrl& site);

  // The trail as lines of the cookie file, one for each step. They begin with the mark, as no cookie does.
  static constexpr char kMark = '#';
  QByteArrayList Lines() const;
  void AddLine(const QByteArray& line);

 private:
  // The windows that were opened on pages of one host.
  struct Site {
    QString host;
    QList<QUrl> visited;  // the latest last
  };

  Site& SiteOf(const QString& host);
  void AddStep(const QString& host, const QUrl& visited);

  QList<Site> sites_;  // the latest last
};
