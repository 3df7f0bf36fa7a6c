// SPDX-License-Identifier: GPL-3.0-or-later
// updates.txt, the author's list of all sites and of what has changed in it. The update check reads it beside the event
// loop; site_list_plan compares it with the user's sites.
#pragma once

#include <QByteArray>
#include <QDate>
#include <QList>
#include <QString>
#include <optional>

// A position in the file, in degrees.
struct GivenPlace {
  bool isGiven = false;  // false: both fields are empty
  double lat = 0;
  double lon = 0;

  // A 0 stands for a number that nobody knows, so a record of the call database keeps what it has.
  bool MayReplaceRecord() const { return isGiven && lat != 0 && lon != 0; }
};

// A station whose position is to be corrected in the call database.
struct ListedStation {
  QString call;
  GivenPlace place;
};

// A call that has become another one.
struct ChangedCall {
  QString before;
  QString after;
};

// A site of the author's list.
struct ListedSite {
  QString call;
  bool isUsable = false;  // false: its call counts as listed, and nothing else of it is used
  QString url;
  QString camUrl;  // empty: none
  GivenPlace place;
};

// What is used of the file.
struct UpdateFile {
  QList<ListedStation> stations;
  QList<ChangedCall> calls;
  QList<ListedSite> sites;  // each call once
};

// Reads the file; nothing where it is damaged, lists no site or too many, or is older than 30 days.
std::optional<UpdateFile> ReadUpdateFile(const QByteArray& bytes, QDate today);
