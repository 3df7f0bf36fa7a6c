// SPDX-License-Identifier: GPL-3.0-or-later
// Bits of HTML that the pages of the simulated callbook services are put together from.
#pragma once

#include <QByteArray>
#include <QString>

// A text as HTML in Windows-1252. A letter that the code page lacks becomes a numeric entity, a sign of HTML itself a
// named one.
QByteArray Html(QStringView text);
// The same for a service that writes every accent as an entity.
QByteArray PlainHtml(QStringView text);
// Degrees with that many decimals.
QByteArray Degrees(double value, int decimals);
// The locator of a place, six characters.
QByteArray LocatorOf(double lat, double lon);
