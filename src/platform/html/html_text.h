// SPDX-License-Identifier: GPL-3.0-or-later
// An HTML page as the text that a browser would show, line by line. The readers of callbook pages and on-air lists cut
// their fields out of it.
#pragma once

#include <QString>

// What innerText of a page's body gives: blocks and table rows on lines of their own, ended by CR LF, cells parted by a
// tab, entities decoded, white space collapsed, scripts, styles and hidden parts gone. Any nesting, any breakage; of a
// page longer than kMostHtml characters only the beginning is read. Safe on any thread; 50 kB take about 3 ms.
QString HTMLDecode(const QString& html);

inline constexpr qsizetype kMostHtml = 2 * 1024 * 1024;
