// SPDX-License-Identifier: GPL-3.0-or-later
// The address of a page about a station's place, which the lookup window and the maps open.
#pragma once

#include "callbook/call_database.h"
#include "core/hosts.h"

// PageViewUrl of a satellite map: the address of the map, "*" and the call. The place is given by coordinates, or by
// the address in the database if the coordinates are unknown or only the end of a map.
QString SatelliteViewUrl(const Hosts& hosts, const TargetLocation& target, const QString& call);
// PageViewUrl of the entries of the menus of cells and maps: the place is given as its entry says. Empty where no
// position is known.
QString PlaceViewUrl(const Hosts& hosts, const TargetLocation& target, const QString& call, bool byAddress);
