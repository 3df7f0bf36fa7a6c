// SPDX-License-Identifier: GPL-3.0-or-later
// Where a call to look up comes from: the clipboard, the field of the main window, a sender's caption, a menu entry.
// Each has its own way of cutting a text down to a call. The main window asks before it opens the lookup window.
#pragma once

#include <QString>
#include <QStringList>

// What stands before the first character that is no letter and no digit.
QString CutAtFirstOther(const QString& text);
// What F8 puts into txtCall and looks up: the call in a pasted text, zeros slashed; empty where there is none.
QString CallOfClipboard(const QString& text);
// What cmdGo hands on: the text of txtCall as it was typed; empty where there is no call in it.
QString CallOfField(const QString& text);
// What a click on a sender's caption or on a menu entry looks up; empty for a call that is not to be reported.
QString CallOfCaption(const QString& text, const QStringList& lstBadCalls);
