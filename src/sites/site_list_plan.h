// SPDX-License-Identifier: GPL-3.0-or-later
// What the author's list would change in the user's sites. The update check makes a plan beside the event loop, Form6
// shows it, and when that closes ApplyPlan carries it out.
#pragma once

#include <QList>
#include <QSet>
#include <QString>
#include <QStringList>
#include <functional>
#include <optional>

#include "core/site_table.h"
#include "sites/site_edit.h"
#include "sites/update_file.h"

// An address that is replaced as soon as the list has come.
struct AddressChange {
  QString call;
  QString before;
  QString after;
};

// A row of List1: a new site, or a cam for a site that has none.
struct SiteAddition {
  ListedSite site;
  bool isCam = false;

  QString Text() const;
};

// A row of List2: a site that the author lists no longer.
struct SiteRemoval {
  QString call;
  QString url;

  QString Text() const;
};

// What is changed in a site of the user without asking.
struct SiteChange {
  QString call;  // the new one where the call changes, too
  std::optional<QString> url;
  std::optional<QString> camUrl;
  std::optional<GivenPlace> place;
};

// All changes, each found by its call: the user's list may be another one when they are made.
struct SiteListPlan {
  QList<SiteAddition> additions;   // List1
  QList<SiteRemoval> removals;     // List2
  QList<ChangedCall> calls;        // List3
  QStringList log;                 // List4
  QList<SiteChange> edits;         // told in List4
  QList<ListedStation> positions;  // for the call database

  bool IsEmpty() const { return additions.isEmpty() && removals.isEmpty() && calls.isEmpty() && log.isEmpty(); }
};

// A row of List3.
QString ChangedCallText(const ChangedCall& changed);

// The addresses that the list has otherwise, for sites that the user has not marked to be kept as they are.
QList<AddressChange> AddressChanges(const UpdateFile& file, const QList<SiteRec>& sites);
// Changes those addresses that are still what they were.
void ReplaceAddresses(const QList<AddressChange>& changes, SiteTable& sites);

// The position of a call in the call database; nothing where that does not have the call.
using DatabasePlace = std::function<std::optional<GivenPlace>(const QString& call)>;
// Compares the list with the user's sites. replaced: the addresses that were changed when it came.
SiteListPlan PlanSiteListChanges(const UpdateFile& file, const QList<SiteRec>& sites, const DatabasePlace& placeOf,
                                 const QList<AddressChange>& replaced);

// Carries the plan out. kept: rows of List2 that the user keeps; they are marked, so that they are not offered again.
void ApplyPlan(const SiteListPlan& plan, const QSet<int>& kept, TableEdit& sites);
// The calls of the sites that it takes away, and how many it adds.
QStringList RemovedCalls(const SiteListPlan& plan, const QSet<int>& kept);
int AddedSites(const SiteListPlan& plan);
