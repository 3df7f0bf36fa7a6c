// SPDX-License-Identifier: GPL-3.0-or-later
// Reads the replies of the two on-air sources: text in, rows out. On Air Now and the on-air map list them, the count
// beside the main window's label is made with another end of the loop. Linear in the length of a reply, and callable
// beside the event loop.
#pragma once

#include <QByteArray>
#include <QList>
#include <QStringList>

#include "onair/on_air_row.h"

// The two sources; the values are the request keys.
enum class FeedSource { Cgi = 2, TextFile = 3 };

// Where the loop over a reply's elements ends. The windows leave the last one out, whatever stands in it; whoever only
// counts reads it too. Element 0 is read by nobody.
enum class FeedLoop { ToLastButOne, ToLast };

inline constexpr qsizetype kMostFeedRows = 20'000;                 // kept of one source
inline constexpr qsizetype kMostFeedCharacters = 4 * 1024 * 1024;  // read of one reply

// What a reply holds.
struct FeedRows {
  QList<OnAirRow> rows;
  qsizetype leftOut = 0;  // rows beyond those that are kept
  bool cut = false;       // the reply is longer than what is read
};

// The reply counts as failed: nothing came, or the word "Error" stands anywhere in it, in a caller's text too.
bool HasFailed(const QString& reply);
FeedRows ParseCgiReply(const QString& reply, FeedLoop loop, const QStringList& lstBadCalls);
FeedRows ParseTextFile(const QString& reply, FeedLoop loop, const QStringList& lstBadCalls);
