// SPDX-License-Identifier: GPL-3.0-or-later
#include "onair/propagation_session.h"

#include "onair/bands.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

// The given Timer2, a one-shot beside each request, does nothing that can be seen and is left out.
constexpr auto kRefresh = 30s;
constexpr auto kSoon = 100ms;  // after a choice of the period
const QString& Key() {
  static const QString key = u"2"_s;
  return key;
}

// What a pass over the rows comes to.
struct Filtered {
  PropagationPaths paths;
  bool outdated = false;
  qsizetype leftOut = 0;
};

}  // namespace

PropagationSession::PropagationSession(const Dependencies& dependencies, QObject* parent)
    : QObject(parent),
      deps_(dependencies),
      reader_(dependencies.network),
      database_(std::make_shared<CallReader>(dependencies.database.Reader())) {
  Timer1_.setObjectName(u"Timer1"_s);
  connect(&Timer1_, &QTimer::timeout, this, [this]() {
    Timer1_.setInterval(kRefresh);
    // A server that takes longer than that would never deliver if each tick began anew.
    if (!reader_.IsPending(Key())) Request();
  });
  connect(&reader_, &UrlReader::Done, this, [this](const QString&, const QByteArray& body) {
    // An empty answer counts as a failed one, which changes nothing.
    if (!body.isEmpty()) Take(body);
  });
}

void PropagationSession::Open() {
  const StoredSettings settings(deps_.store);
  const auto stored = [&settings](Setting setting, std::size_t count) {
    const int index = settings.Number(setting);
    return index >= 0 && index <= static_cast<int>(count) ? index : 0;
  };
  choice_.PeriodMinutes = deps_.PeriodMinutes;
  choice_.band = stored(Setting::TxBand, kBands.size());
  choice_.mode = stored(Setting::TxMode, kModes.size());
  Timer1_.start(kRefresh);
  Request();
}

void PropagationSession::Request() {
  reader_.Start(Key(), QUrl(deps_.hosts.OnAirText + u"/zz9qx/Files/PropagationPaths.txt"_s));
}

void PropagationSession::SetPeriod(int minutes) {
  if (minutes == choice_.PeriodMinutes) return;
  choice_.PeriodMinutes = minutes;
  deps_.PeriodMinutes = minutes;
  // A read that is under way is not waited for: the choice is to be seen at once.
  reader_.Cancel(Key());
  Timer1_.start(kSoon);
  Filter(false);
}

void PropagationSession::SetBand(int index) {
  if (index == choice_.band) return;
  choice_.band = index;
  Store(Setting::TxBand, index);
}

void PropagationSession::SetMode(int index) {
  if (index == choice_.mode) return;
  choice_.mode = index;
  Store(Setting::TxMode, index);
}

void PropagationSession::Store(Setting setting, int index) {
  StoredSettings(deps_.store).SetNumber(setting, index);
  deps_.store.SaveLater(deps_.background);
  Filter(false);
  Timer1_.start(kRefresh);
  Request();
}

void PropagationSession::Take(const QByteArray& file) {
  const auto read = [file]() {
    return std::shared_ptr<const PropagationReports>(std::make_shared<PropagationReports>(ReadPropagationFile(file)));
  };
  deps_.background.Run<std::shared_ptr<const PropagationReports>>(
      this, read, [this, token = read_.Ask()](const std::shared_ptr<const PropagationReports>& reports) {
        if (!token.StillWanted()) return;
        reports_ = reports;
        Filter(true);
      });
}

void PropagationSession::Filter(bool answered) {
  const auto pass = [reports = reports_, choice = choice_, now = Now(), bad = deps_.program.lstBadCalls,
                     database = database_]() {
    const auto spotOf = [&database](const QString& call) -> std::optional<StationSpot> {
      const TargetLocation place = database->LookupTargetLocation(call);
      if (!place.InDatabase) return std::nullopt;
      return StationSpot{place.TargetLat, place.TargetLon};
    };
    Filtered result;
    result.paths = ShownPaths(*reports, choice, now, bad, spotOf);
    result.outdated = IsOlderThan(reports->newest, choice.PeriodMinutes, now);
    result.leftOut = reports->leftOut;
    return result;
  };
  deps_.background.Run<Filtered>(this, pass, [this, answered, token = filter_.Ask()](const Filtered& result) {
    if (!token.StillWanted()) return;
    const bool same = result.paths == paths_ && result.outdated == outdated_ && result.leftOut == leftOut_;
    paths_ = result.paths;
    outdated_ = result.outdated;
    leftOut_ = result.leftOut;
    if (!same) Q_EMIT Changed();
    if (answered) Q_EMIT Refreshed();
  });
}

qint64 PropagationSession::Now() const {
  return deps_.clock.Now().toSecsSinceEpoch();
}

QList<ReceivedRow> PropagationSession::Received(const QString& call) const {
  return ReceivedIn12Hours(*reports_, call, Now());
}
