// SPDX-License-Identifier: GPL-3.0-or-later
// The two menus of the lookup window as tables: the views of the place, and what can be done with the operator's
// picture; with the address that the views of the place open.
#pragma once

#include "callbook/call_database.h"
#include "core/hosts.h"
#include "core/program.h"
#include "ui/menu_entry.h"

inline constexpr int kLookupMapsMenu = 11;
inline constexpr int kLookupPictureMenu = 12;
inline constexpr int kSignInMenu = 16;  // one entry; opened from the login state

// Entries whose window is not built yet, by their index: there, and greyed. An entry leaves when its window comes.
struct LookupNotYet {
  QList<int> maps{1, 2};
  QList<int> picture{1, 2, 4};
};

// hasPosition: without one no view has a place to show.
QList<MenuEntry> LookupMapEntries(const Program& program, const QString& call, bool hasPosition,
                                  const LookupNotYet& notYet = {});
QList<MenuEntry> LookupPictureEntries(const Program& program, const LookupNotYet& notYet = {});

// PageViewUrl for a satellite map of the place, "*" and the call behind it: by coordinates where they are real, else
// by address.
QString SatelliteViewUrl(const Hosts& hosts, const TargetLocation& target, const QString& call);
