// SPDX-License-Identifier: GPL-3.0-or-later
// Dates as stations write them behind their pictures, in any order, separator and language. The caption readers and the
// ageing of cells turn them into the program's own text here.
#pragma once

#include <QString>

// Without control characters and line ends: lists hold a record a line, and labels one line, and nothing of a
// stranger's bytes may end it.
QString WithoutControls(QString text);
// A date in any of the shapes that stations send, as "M/D/YYYY hh:mm"; line ends are taken out. What cannot be read as
// a date gives an empty date part; where there is no ":", the date stands alone.
QString NormaliseDate(const QString& text);
// Month 1 to 12 of a word in the languages that stations write; 1 for an unknown word.
int MonthNumber(const QString& word);
