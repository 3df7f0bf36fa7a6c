// SPDX-License-Identifier: GPL-3.0-or-later
#include "callbook/own_location.h"

#include "station/callsign.h"
#include "station/locator.h"

using namespace Qt::StringLiterals;

namespace {

QString CallOf(QString typed) {
  return CleanCall(typed);
}

}  // namespace

OwnLocation::OwnLocation(Program& program, CallDatabase& database, QObject* parent)
    : QObject(parent), program_(program), database_(database) {}

void OwnLocation::SetPlace(double lat, double lon) {
  program_.config.MyLat = lat;
  program_.config.MyLon = lon;
}

void OwnLocation::SetUnit(bool miles) {
  program_.config.DistUnit = miles ? 1 : 0;
}

QString OwnLocation::GridText() const {
  const QString locator = MakeGridLocator(program_.config.MyLat, program_.config.MyLon);
  return locator.isEmpty() ? QString() : program_.language[TextLine::kGridWord].trimmed() + ":   "_L1 + locator;
}

bool OwnLocation::IsWrongCall(const QString& typed) {
  return !typed.trimmed().isEmpty() && CallOf(typed).isEmpty();
}

QString OwnLocation::TakeCall(const QString& typedCall) {
  const QString call = CallOf(typedCall);
  if (!call.isEmpty()) {
    program_.config.MyCall = call;
    program_.config.MyCallTyped = typedCall;
  }
  return call;
}

void OwnLocation::SaveAtEnd(const QString& typedCall, const QString& lat, const QString& lon) {
  const QString call = TakeCall(typedCall);
  if (!call.isEmpty()) SaveRecord(call, lat, lon, [](bool) {});
}

void OwnLocation::Save(const QString& typedCall, const QString& lat, const QString& lon,
                       const std::function<void(const QString& failedPath)>& then) {
  Config& config = program_.config;
  const QString call = TakeCall(typedCall);
  const int map = config.MapIndex;
  const bool written =
      config.SaveSetupLines(program_.AppDataDir, program_.MapLeft.value(map), program_.MapTop.value(map));
  const QString failed = written ? QString() : Config::Path(program_.AppDataDir);
  if (call.isEmpty()) return then(failed);
  SaveRecord(call, lat, lon, [this, then, failed](bool durable) {
    QStringList paths{failed};
    if (!durable) paths += database_.Path();
    paths.removeAll(QString());
    then(paths.join(", "_L1));
  });
}

// A record that is there keeps everything but its place, and its place too if the boxes have none.
void OwnLocation::SaveRecord(const QString& call, const QString& lat, const QString& lon,
                             const CallDatabase::Saved& then) {
  const std::optional<FoundRecord> old = database_.Find(call);
  if (old && (Coordinate(lat) == 0 || Coordinate(lon) == 0)) return then(true);
  DbRec record = old ? old->record : DbRec();
  record.Call = call;
  record.Lat = lat.isEmpty() ? u"0"_s : lat;
  record.Lon = lon.isEmpty() ? u"0"_s : lon;
  database_.SaveStation(call, record, this, then);
}
