// SPDX-License-Identifier: GPL-3.0-or-later
// The Maidenhead locator of a position, for the window of the own location. The reverse is not needed: a locator is
// only shown.
#pragma once

#include <QString>

// Six characters such as "FN20jm". Arguments in degrees, north and east positive; empty outside -90 to 90 and -180 to
// 180.
QString MakeGridLocator(double lat, double lon);
