// SPDX-License-Identifier: GPL-3.0-or-later
// Numbers in text files: always a point, never the locale. The configuration, the site lists and the map files read and
// write theirs through here.
#pragma once

#include <QString>

// Leading number of a text: blanks are skipped, then sign, digits and point up to the first other character; 0 for
// none.
double Val(const QString& text);
bool HasLeadingNumber(const QString& text);
// The whole text is a number that Val reads without a rest; blanks around it do not count.
bool IsPlainNumber(const QString& text);
// The nearest integer; values out of range become the nearest end of it.
int WholeNumber(double value);
// Shortest text of a double with a point, never with an exponent; it reads back as the same double.
QString NumberText(double value);
