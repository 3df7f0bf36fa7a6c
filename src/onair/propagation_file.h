// SPDX-License-Identifier: GPL-3.0-or-later
// Reads PropagationPaths.txt, the reports of who received whom, into rows. The propagation map parses each answer of
// the server with it, beside the event loop.
#pragma once

#include <QByteArray>
#include <QString>
#include <memory>
#include <vector>

// One report: a row of List1.
struct PropagationRow {
  QString from;     // the station that received, a clean call
  QString to;       // the station that was received
  QString mode;     // without blanks at its ends
  QString text;     // of the report, as it stands
  double kHz = -1;  // below 0: the file holds no number
  qint64 date = 0;  // seconds since 1970, UTC; see kNoDate
};

// The date of a row whose file name holds none. Such a row is kept and never drawn.
inline constexpr qint64 kNoDate = -1;

// What one file holds, in its order.
struct PropagationReports {
  std::vector<PropagationRow> rows;
  qint64 newest = kNoDate;  // the latest date of all rows
  qsizetype leftOut = 0;    // rows beyond the most that are kept, the oldest ones
};

inline constexpr qsizetype kMostReports = 100'000;

// Linear in the bytes, whoever sent them.
PropagationReports ReadPropagationFile(const QByteArray& file, qsizetype most = kMostReports);
// "YYYY/MM/DD hh:mm:ss" as UTC, the way in which List1 holds the date of a row.
QString ReportDateText(qint64 date);
