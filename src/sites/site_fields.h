// SPDX-License-Identifier: GPL-3.0-or-later
// A site as a user types it, and what becomes of it in a record. SiteDesk stores it; Form3 and Form7 show it.
#pragma once

#include <QString>

#include "core/site_table.h"

// The two tables, in the order of the option buttons.
enum class SiteTableKind { Dsstv = 0, Wx = 1 };

// What stands in the boxes.
struct SiteFields {
  QString call;  // with plain zeros; of a WX site its title
  QString url;   // without "NoDelete"
  double lat = 0;
  double lon = 0;
  QString camUrl;
  bool keep = false;  // whatever the server's list says: the address gets the mark "NoDelete"

  bool IsComplete() const { return !call.isEmpty() && !url.isEmpty(); }
  bool operator==(const SiteFields&) const = default;
};

inline constexpr int kLongestCall = 20;
inline constexpr int kLongestTitle = 60;
inline constexpr int kLongestAddress = 2000;

SiteFields FieldsOf(const SiteRec& site, SiteTableKind list);
// Writes the fields into a record; what they do not hold stays.
void WriteFields(const SiteFields& fields, SiteTableKind list, SiteRec& site);
// Whether a DSSTV site with this address is asked for new pictures.
bool IsPolled(const QString& url);
