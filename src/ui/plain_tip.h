// SPDX-License-Identifier: GPL-3.0-or-later
// A stranger's text as a tool tip. Every window uses it for tips with texts from a page, a caption or a user.
#pragma once

#include <QString>

// The argument for setToolTip that shows a text as it is. A tip takes a text with tags for rich text and any other for
// plain text, so that escaping every text would show "&amp;".
QString PlainTip(const QString& text);
