// SPDX-License-Identifier: GPL-3.0-or-later
// What a callsign is. Every call that enters the program passes CleanCall, and IsBadCall before it is reported.
#pragma once

#include <QString>
#include <QStringList>

// The bare callsign in a text, "SWL", or empty. Callers also use the changed argument: it is cut and cleaned, and only
// cut if it holds no digit.
QString CleanCall(QString& text);
// Number of letters and digits that a text begins with, by CleanCall's notion of a letter.
qsizetype LeadingWord(const QString& text);
// True when a call is not to be reported. Trims and upper-cases its argument, but for "SWL" and the empty text.
bool IsBadCall(QString& call, const QStringList& lstBadCalls);
// The calls refused until a list from the server replaces them.
QStringList BuiltInBadCalls();
// The text with every "0" replaced by the glyph that shows a zero.
QString ShownCall(const QString& call, QChar zeroGlyph);
// The glyph for zeros in calls: "0" where the locale writes the year first, else the slashed zero.
QChar ZeroGlyphFor(const QString& presentDateText);
