// SPDX-License-Identifier: GPL-3.0-or-later
// Readers of the small pages that the update check fetches: time of day, newest version, blocked calls. Each takes the
// bytes of a page as they came, and is linear in their number.
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QStringList>
#include <optional>

// The UTC time of day on the page of the time service; nothing where the page has none.
std::optional<QTime> UtcTimeIn(const QByteArray& page);
// The moment with that time of day that is nearest to now, which is in UTC.
QDateTime NearestMoment(const QDateTime& now, QTime timeOfDay);

// The version "d.dd" on the author's root page if its text is greater than ownVersion; else empty.
QString NewerVersionIn(const QByteArray& page, const QString& ownVersion);

// The list of blocked calls, a call a line. A page without any line break gives an empty list. Nothing where the page
// is no such list: web pages, binary data, more lines than the list can ever have.
std::optional<QStringList> BadCallsIn(const QByteArray& page);
