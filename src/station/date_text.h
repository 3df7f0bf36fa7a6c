// SPDX-License-Identifier: GPL-3.0-or-later
// The program's own text of a date and time, and the reader for it and for what older files hold. Captions, the site
// lists and the configuration file read and write their dates through here.
#pragma once

#include <QDateTime>
#include <QLocale>
#include <QString>

// Reads "M/D/YYYY hh:mm" and the shapes of older files: seconds, AM and PM, day first with points or dashes, year
// first; a date alone is midnight. The fields as they stand, held as UTC; invalid where the text is no date.
QDateTime ReadDate(const QString& text);
// "M/D/YYYY hh:mm", the fields of the moment as they stand; empty for an invalid one.
QString DateText(const QDateTime& when);
// A date as people of the locale write it in digits, the year with four of them.
QString ShownDate(QDate date, const QLocale& locale);
