// SPDX-License-Identifier: GPL-3.0-or-later
// Dates as stations write them behind their pictures, in any order, separator and language. The caption readers and the
// cells turn them into the program's own text by these functions.
#pragma once

#include <QString>

// Removes control characters and line ends: a list holds a record a line and a label shows one line, and a stranger's
// text must not end it.
QString WithoutControls(QString text);
// A date in any of the forms that stations send, as "M/D/YYYY hh:mm"; line ends are removed. The date part is empty if
// it cannot be read; without a ":" in the text there is no time part.
QString NormaliseDate(const QString& text);
// Month 1 to 12 of a word in one of the languages that stations use; 1 for an unknown word.
int MonthNumber(const QString& word);
