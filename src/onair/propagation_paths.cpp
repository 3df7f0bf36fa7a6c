// SPDX-License-Identifier: GPL-3.0-or-later
#include "onair/propagation_paths.h"

#include <QDateTime>
#include <QLocale>
#include <QSet>
#include <cmath>

#include "maps/map_projection.h"
#include "onair/bands.h"
#include "station/callsign.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kGridMinutes = 720;
constexpr int kFewestMinutes = 15;  // a smaller number of the list is hours

// Both times are cut to their minute first, so that a report becomes old as the minute changes.
qint64 MinutesBetween(qint64 a, qint64 b) {
  return std::abs(a / 60 - b / 60);
}

bool IsChosen(const PropagationRow& row, const PropagationChoice& choice) {
  const bool modeFits = choice.mode == 0 || row.mode == kModes[static_cast<std::size_t>(choice.mode - 1)];
  if (choice.band == 0) return modeFits;
  // A frequency outside the table has no band and never matches a chosen one.
  return modeFits && row.kHz >= 0 && BandOf(row.kHz) == choice.band;
}

// Gathers the paths of one pass; every call is judged and looked up once.
class Pass {
 public:
  Pass(const QStringList& lstBadCalls, const SpotOf& spotOf) : lstBadCalls_(lstBadCalls), spotOf_(spotOf) {}

  bool IsBad(const QString& call) {
    const auto known = bad_.constFind(call);
    if (known != bad_.cend()) return *known;
    QString judged = call;
    return *bad_.insert(call, IsBadCall(judged, lstBadCalls_));
  }

  void Add(const QString& from, const QString& to) {
    const std::optional<StationSpot> spotFrom = Spot(from);
    const std::optional<StationSpot> spotTo = Spot(to);
    if (!spotFrom || !spotTo) return;
    const PropagationPath path{Station(from, *spotFrom), Station(to, *spotTo)};
    ++result_.pathCount;
    const std::pair ends(path.from, path.to);
    if (drawn_.contains(ends)) return;
    drawn_.insert(ends);
    result_.paths.push_back(path);
  }

  PropagationPaths Take() { return std::move(result_); }

 private:
  std::optional<StationSpot> Spot(const QString& call) {
    const auto known = spots_.constFind(call);
    if (known != spots_.cend()) return *known;
    std::optional<StationSpot> spot = spotOf_(call);
    if (spot && !IsPlaced(spot->lat, spot->lon)) spot.reset();
    return *spots_.insert(call, spot);
  }
  qsizetype Station(const QString& call, const StationSpot& spot) {
    const auto known = numbers_.constFind(call);
    if (known != numbers_.cend()) return *known;
    result_.calls.append(call);
    result_.spots.push_back(spot);
    return *numbers_.insert(call, result_.calls.size() - 1);
  }

  const QStringList& lstBadCalls_;
  const SpotOf& spotOf_;
  QHash<QString, bool> bad_;
  QHash<QString, std::optional<StationSpot>> spots_;
  QHash<QString, qsizetype> numbers_;
  QSet<std::pair<qsizetype, qsizetype>> drawn_;
  PropagationPaths result_;
};

}  // namespace

int PeriodMinutesOf(const QString& entry) {
  const int number = entry.left(2).trimmed().toInt();
  return number < kFewestMinutes ? number * 60 : number;
}

bool IsOlderThan(qint64 newest, int periodMinutes, qint64 now) {
  return newest != kNoDate && newest < now && MinutesBetween(now, newest) >= periodMinutes;
}

PropagationPaths ShownPaths(const PropagationReports& reports, const PropagationChoice& choice, qint64 now,
                            const QStringList& lstBadCalls, const SpotOf& spotOf) {
  Pass pass(lstBadCalls, spotOf);
  for (const PropagationRow& row : reports.rows) {
    if (row.date == kNoDate || MinutesBetween(now, row.date) >= choice.PeriodMinutes) continue;
    if (!IsChosen(row, choice) || pass.IsBad(row.from) || pass.IsBad(row.to)) continue;
    pass.Add(row.from, row.to);
  }
  return pass.Take();
}

QList<ReceivedRow> ReceivedIn12Hours(const PropagationReports& reports, const QString& call, qint64 now) {
  QList<ReceivedRow> rows;
  const QString wanted = call.trimmed();
  const QLocale locale;
  for (const PropagationRow& row : reports.rows) {
    // Only the first station of a report has received something.
    if (row.from != wanted || row.date == kNoDate || MinutesBetween(now, row.date) >= kGridMinutes) continue;
    const QDateTime date = QDateTime::fromSecsSinceEpoch(row.date, Qt::UTC);
    QString megahertz;
    if (row.kHz >= 0) {
      megahertz = QString::number(row.kHz / 1000, 'f', 3);
      // The format has no digit in front of the point for less than 1 MHz.
      if (megahertz.startsWith(u"0."_s)) megahertz.remove(0, 1);
    }
    rows.append({row.to, row.mode, megahertz, row.text,
                 locale.toString(date.date(), QLocale::ShortFormat) + date.toString(u" HH:mm:ss"_s) + u" utc"_s});
  }
  return rows;
}
