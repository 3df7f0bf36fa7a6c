// SPDX-License-Identifier: GPL-3.0-or-later
// A stranger's text as a tool tip. Every window that shows in a tip what a page, a caption or a user wrote asks here.
#pragma once

#include <QString>

// The text for setToolTip: shown as it stands, whatever it looks like. A tip takes a text with tags for rich text and
// any other as plain, so that escaping each text would show "&amp;".
QString PlainTip(const QString& text);
