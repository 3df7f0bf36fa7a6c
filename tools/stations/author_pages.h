// SPDX-License-Identifier: GPL-3.0-or-later
// The pages of the author's server: the version, the blocked calls, and updates.txt, the list of all sites.
#pragma once

#include <QByteArray>
#include <QDate>
#include <QString>
#include <QStringList>
#include <vector>

#include "demo_band.h"

inline const QString kUpdatesPath = QStringLiteral("updates/updates.txt");
inline const QString kBadCallsPath = QStringLiteral("zz9qx/Bad Calls/Bad Calls.txt");

// A site as the author lists it. Coordinates and addresses are texts, so that a test can write nonsense.
struct AuthorSite {
  QString call;
  QString url;
  QString lat;
  QString lon;
  QString camUrl{};
};

// What updates.txt holds.
struct AuthorList {
  QDate date;
  std::vector<AuthorSite> stations{};  // corrections for the call database; without addresses
  QStringList calls{};                 // "old*new"
  std::vector<AuthorSite> sites{};
};

// The whole file, its size in the header.
QByteArray UpdatesFile(const AuthorList& list);
// The demo's sites with a change of each kind: a new site, a new cam, one that is gone, another call, another address,
// other coordinates, a cam that is gone, and a corrected place in the call database.
AuthorList ChangedDemo(const Demo& demo, QDate date);

// The root page, which names the newest version.
QByteArray VersionPage(const QString& version);
QByteArray BadCallsList();
