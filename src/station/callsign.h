// SPDX-License-Identifier: GPL-3.0-or-later
// What a callsign is. Every call that enters the program passes CleanCall, and IsBadCall before it is reported.
#pragma once

#include <QString>
#include <QStringList>

// The bare callsign of a text, "SWL", or empty. Rewrites its argument as callers expect it: cut and cleaned, and left
// cut where it holds no digit.
QString CleanCall(QString& text);
// Count of the letters and digits that a text begins with, as CleanCall sees them.
qsizetype LeadingWord(const QString& text);
// True when a call is not to be reported. Trims and upper-cases its argument, but for "SWL" and the empty text.
bool IsBadCall(QString& call, const QStringList& lstBadCalls);
// The calls refused until a list from the server replaces them.
QStringList BuiltInBadCalls();
// Text with every "0" as the glyph that shows a zero.
QString ShownCall(const QString& call, QChar zeroGlyph);
// The glyph for zeros in calls: "0" where the locale writes the year first, else the slashed zero.
QChar ZeroGlyphFor(const QString& presentDateText);
