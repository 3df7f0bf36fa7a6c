// SPDX-License-Identifier: GPL-3.0-or-later
// Finds the newest copy of a site list below Backups that has any record: what the empty page offers to put back when
// the list itself was missing or empty at the start.
#pragma once

#include <QDateTime>
#include <QList>
#include <QString>
#include <optional>

#include "core/site_table.h"

// The two lists of sites.
enum class SiteList { Dsstv, Wx };

// A copy of one of them.
struct ListCopy {
  SiteList list = SiteList::Dsstv;
  QString path;
  QDateTime made;  // local time
  QList<SiteRec> sites;
};

// Looks through the last backup and all dated copies. Reads files, so it is to be called beside the event loop.
std::optional<ListCopy> NewestCopy(const QString& appDataDir, SiteList list);
