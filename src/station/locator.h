// SPDX-License-Identifier: GPL-3.0-or-later
// The Maidenhead locator of a position, for the window of the own location. Nothing goes the other way: a locator is
// text to be shown.
#pragma once

#include <QString>

// Six characters such as "FN20jm" of degrees, north and east positive; empty outside -90 to 90 and -180 to 180.
QString MakeGridLocator(double lat, double lon);
