// SPDX-License-Identifier: GPL-3.0-or-later
// The program's own text of a date and time, and a reader for it and for the forms in older files. Captions, the site
// lists and the configuration file read and write their dates through it.
#pragma once

#include <QDateTime>
#include <QLocale>
#include <QString>

// Reads "M/D/YYYY hh:mm" and the forms in older files: seconds, AM and PM, day first with points or dashes, year first;
// a date alone is midnight. The fields are taken over unchanged and held as UTC; invalid if the text is no date.
QDateTime ReadDate(const QString& text);
// "M/D/YYYY hh:mm" of the fields without any shift of the time zone; empty for an invalid date.
QString DateText(const QDateTime& when);
// A date in the short form of the locale, the year with four digits.
QString ShownDate(QDate date, const QLocale& locale);
