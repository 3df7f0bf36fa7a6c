// SPDX-License-Identifier: GPL-3.0-or-later
// Cuts a text down to the call to be looked up. There is one way each for the clipboard, the field of the main window,
// and a sender's caption or menu entry. StationCalls calls these before it opens the lookup window.
#pragma once

#include <QString>
#include <QStringList>

// The text before the first character that is neither letter nor digit.
QString CutAtFirstOther(const QString& text);
// The call in a pasted text, with slashed zeros, which F8 puts into txtCall and looks up; empty if there is none.
QString CallOfClipboard(const QString& text);
// The text of txtCall unchanged, for cmdGo; empty if there is no call in it.
QString CallOfField(const QString& text);
// The call in a sender's caption or a menu entry; empty for a call that is not to be reported.
QString CallOfCaption(const QString& text, const QStringList& lstBadCalls);
