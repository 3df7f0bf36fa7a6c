// SPDX-License-Identifier: GPL-3.0-or-later
// The address of a page about a station's place, which the lookup window and the maps open.
#pragma once

#include "callbook/call_database.h"
#include "core/hosts.h"

// PageViewUrl for a satellite map of the place, "*" and the call behind it: by coordinates where they are real, else
// by address.
QString SatelliteViewUrl(const Hosts& hosts, const TargetLocation& target, const QString& call);
