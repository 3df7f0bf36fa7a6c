// SPDX-License-Identifier: GPL-3.0-or-later
// Which of the reported paths the propagation map shows, where their ends lie, and what its grid tells of a station.
// The propagation map's session runs it beside the event loop.
#pragma once

#include <QHash>
#include <QStringList>
#include <array>
#include <functional>
#include <memory>
#include <optional>

#include "onair/propagation_file.h"

// By what the rows are filtered: indices of cboBand and cboMode, 0 for all.
struct PropagationChoice {
  int PeriodMinutes = 60;
  int band = 0;
  int mode = 0;

  bool operator==(const PropagationChoice&) const = default;
};

// Where a station is, in degrees; both coordinates are known.
struct StationSpot {
  double lat = 0;
  double lon = 0;

  bool operator==(const StationSpot&) const = default;
};

// Two stations that have heard each other, by their place in PropagationPaths::stations. One value for all reports of
// the two in this direction.
struct PropagationPath {
  qsizetype from = 0;
  qsizetype to = 0;

  bool operator==(const PropagationPath&) const = default;
};

// What is drawn, on whatever map.
struct PropagationPaths {
  QStringList calls;  // in the order of their first path
  std::vector<StationSpot> spots;
  std::vector<PropagationPath> paths;
  qsizetype pathCount = 0;  // of all reports that are drawn

  bool operator==(const PropagationPaths&) const = default;
};

// A row of gridRx.
struct ReceivedRow {
  QString call;
  QString mode;
  QString megahertz;
  QString text;
  QString date;

  bool operator==(const ReceivedRow&) const = default;
};

// Where the database has a station; none: it has no record, or not both coordinates.
using SpotOf = std::function<std::optional<StationSpot>(const QString& call)>;

// The minutes that an entry of cboPropagation stands for: below 15 its number is hours.
int PeriodMinutesOf(const QString& entry);
// The entries' numbers in the list's order.
inline constexpr std::array<int, 7> kPeriods = {15, 30, 1, 2, 4, 6, 12};

// Whether the newest of some reports lies further back than the period; not where there is no report at all.
bool IsOlderThan(qint64 newest, int periodMinutes, qint64 now);
// now: seconds since 1970.
PropagationPaths ShownPaths(const PropagationReports& reports, const PropagationChoice& choice, qint64 now,
                            const QStringList& lstBadCalls, const SpotOf& spotOf);
// What a station received in the last twelve hours, whatever the choice.
QList<ReceivedRow> ReceivedIn12Hours(const PropagationReports& reports, const QString& call, qint64 now);
