// SPDX-License-Identifier: GPL-3.0-or-later
#include "sites/site_desk.h"

#include <QFileInfo>
#include <QPointer>
#include <QSet>
#include <utility>

#include "station/callsign.h"

using namespace Qt::StringLiterals;

namespace {

// Calls compare with plain zeros: a stored call has no other, and the box shows every zero as the ZeroGlyph.
QString KeyOf(SiteTableKind list, const SiteFields& fields) {
  return list == SiteTableKind::Wx ? fields.url : QString(fields.call).replace(u'Ø', u'0');
}

QString KeyOf(SiteTableKind list, const SiteRec& site) {
  return list == SiteTableKind::Wx ? site.Url : site.Call;
}

QString DuplicateText(SiteTableKind list, const SiteFields& fields, QChar zeroGlyph) {
  return list == SiteTableKind::Wx ? fields.url + u"\r\n already in WX list"_s
                                   : ShownCall(fields.call, zeroGlyph) + u"\r\n already in OmniPerch list"_s;
}

// What is to be written into a site, with the site as it was when the button was pressed: the database answers later,
// and in between another change may have given the index to a neighbour.
struct Target {
  SiteDesk::Edit edit;
  QString call;
  QString url;
};

QList<Target> TargetsOf(const QList<SiteRec>& sites, const QList<SiteDesk::Edit>& edits) {
  QList<Target> targets;
  for (const SiteDesk::Edit& edit : edits) {
    if (edit.first < 0 || edit.first >= sites.size()) continue;
    const SiteRec& site = sites.at(edit.first);
    targets.append({edit, site.Call, site.Url});
  }
  return targets;
}

// Where the site of a target stands now; -1: it has been removed or changed.
int FindTarget(const TableEdit& table, const Target& target) {
  const auto isIt = [&](int index) {
    return index < table.FormerSize() && table.At(index).Call == target.call && table.At(index).Url == target.url;
  };
  if (isIt(target.edit.first)) return target.edit.first;
  for (int index = 0; index < table.FormerSize(); ++index) {
    if (isIt(index)) return index;
  }
  return -1;
}

void ChangeTable(TableEdit& table, SiteTableKind list, const QList<Target>& targets) {
  // All are found before one is written, because a site may take the call that another one gives up.
  QList<int> places;
  for (const Target& target : targets) places.append(FindTarget(table, target));
  for (qsizetype i = 0; i < targets.size(); ++i) {
    if (places.at(i) >= 0) WriteFields(targets.at(i).edit.second, list, table.Change(places.at(i)));
  }
}

}  // namespace

SiteDesk::SiteDesk(Program& program, SiteChanges& changes, CallDatabase& database, QObject* parent)
    : QObject(parent), program_(program), changes_(changes), database_(database) {}

QString SiteDesk::DuplicateOf(SiteTableKind list, const SiteFields& fields) const {
  const QString key = KeyOf(list, fields);
  const QList<SiteRec>& sites = list == SiteTableKind::Wx ? program_.sites.WxSites : program_.sites.Sites;
  for (const SiteRec& site : sites) {
    if (!site.Call.isEmpty() && KeyOf(list, site) == key) return DuplicateText(list, fields, program_.ZeroGlyph);
  }
  return {};
}

// A rename to the name of another site would lose one of the two at the next save. Two WX sites that have one address
// already may both be edited.
QString SiteDesk::DuplicateAmong(SiteTableKind list, const QList<Edit>& edits) const {
  const QList<SiteRec>& sites = list == SiteTableKind::Wx ? program_.sites.WxSites : program_.sites.Sites;
  QSet<int> edited;
  for (const Edit& edit : edits) edited.insert(edit.first);
  QSet<QString> keys;
  for (int index = 0; index < sites.size(); ++index) {
    if (!edited.contains(index) && !sites.at(index).Call.isEmpty()) keys.insert(KeyOf(list, sites.at(index)));
  }
  for (const auto& [index, fields] : edits) {
    if (index < 0 || index >= sites.size()) continue;
    const QString key = KeyOf(list, fields);
    const bool isNew = key != KeyOf(list, sites.at(index));
    if (isNew && keys.contains(key)) return DuplicateText(list, fields, program_.ZeroGlyph);
    keys.insert(key);
  }
  return {};
}

bool SiteDesk::IsForDatabase(SiteTableKind list, const SiteFields& fields) const {
  if (list == SiteTableKind::Dsstv) return true;
  QString title = fields.call;
  QString call = CleanCall(title);
  const bool isCall = !call.isEmpty() && call == fields.call && !IsBadCall(call, program_.lstBadCalls);
  return isCall && (fields.lat != 0 || fields.lon != 0);
}

std::optional<StationRecord> SiteDesk::RecordWith(const SiteFields& fields, bool make) {
  const QString call = QString(fields.call).replace(u'Ø', u'0');
  const bool isPlaced = fields.lat != 0 && fields.lon != 0;
  std::optional<FoundRecord> found = database_.Find(call);
  // The record of a call that is known changes nothing but its place.
  if (found ? !isPlaced : !make) return std::nullopt;
  StationRecord station{call, found ? found->record : DbRec()};
  if (!found) station.record.Call = call;
  station.record.Lat = CoordinateText(fields.lat);
  station.record.Lon = CoordinateText(fields.lon);
  return station;
}

QPair<double, double> SiteDesk::PlaceInDatabase(const QString& call) {
  const std::optional<FoundRecord> found = database_.Find(QString(call).replace(u'Ø', u'0'));
  if (!found) return {0, 0};
  return {Coordinate(found->record.Lat.Text()), Coordinate(found->record.Lon.Text())};
}

// The database comes first, as was always so. Where it cannot be written nothing else is touched, so that the user can
// press the button again.
void SiteDesk::SaveRecords(const QList<StationRecord>& records, QObject* context, const Then& then,
                           const std::function<void()>& next) {
  if (records.isEmpty()) return next();
  database_.SaveStations(records, this, [this, then, next, context = QPointer<QObject>(context)](bool durable) {
    if (durable) return next();
    if (context) then({{}, {QFileInfo(database_.Path()).fileName()}});
  });
}

void SiteDesk::Change(const SiteChanges::Change& change, const ChangeOptions& options, QObject* context,
                      const Then& then) {
  changes_.ChangeSites(change, options, context, [then](const QStringList& notWritten) { then({{}, notWritten}); });
}

void SiteDesk::Add(SiteTableKind list, const SiteFields& fields, QObject* context, const Then& then) {
  if (!fields.IsComplete()) return;
  if (const QString duplicate = DuplicateOf(list, fields); !duplicate.isEmpty()) return then({duplicate, {}});
  QList<StationRecord> records;
  if (IsForDatabase(list, fields)) {
    if (const std::optional<StationRecord> record = RecordWith(fields, true)) records.append(*record);
  }
  SiteRec site;
  SiteFields kept = fields;
  kept.keep = list == SiteTableKind::Dsstv;
  WriteFields(kept, list, site);
  if (list == SiteTableKind::Wx) site.PageSlots.fill(u"0"_s);
  SaveRecords(records, context, then, [this, list, site, then, context = QPointer<QObject>(context)]() {
    const auto add = [list, site](SiteEdit& edit) { (list == SiteTableKind::Wx ? edit.wx : edit.dsstv).Add(site); };
    Change(add, {}, context, then);
  });
}

void SiteDesk::Save(const QList<Edit>& dsstv, const QList<Edit>& wx, QObject* context, const Then& then) {
  QString duplicate = DuplicateAmong(SiteTableKind::Dsstv, dsstv);
  if (duplicate.isEmpty()) duplicate = DuplicateAmong(SiteTableKind::Wx, wx);
  if (!duplicate.isEmpty()) return then({duplicate, {}});
  QList<StationRecord> records;
  for (const Edit& edit : dsstv) {
    if (const std::optional<StationRecord> record = RecordWith(edit.second, false)) records.append(*record);
  }
  SaveRecords(records, context, then,
              [this, dsstvTargets = TargetsOf(program_.sites.Sites, dsstv),
               wxTargets = TargetsOf(program_.sites.WxSites, wx), then, context = QPointer<QObject>(context)]() {
                const auto write = [dsstvTargets, wxTargets](SiteEdit& edit) {
                  ChangeTable(edit.dsstv, SiteTableKind::Dsstv, dsstvTargets);
                  ChangeTable(edit.wx, SiteTableKind::Wx, wxTargets);
                };
                Change(write, {}, context, then);
              });
}

void SiteDesk::Remove(SiteTableKind list, int index, QObject* context, const Then& then) {
  const QList<SiteRec>& sites = list == SiteTableKind::Wx ? program_.sites.WxSites : program_.sites.Sites;
  if (index < 0 || index >= sites.size()) return;
  ChangeOptions options;
  options.news = SiteNews{{sites.at(index).Call}, 0};
  const auto remove = [list, index](SiteEdit& edit) {
    (list == SiteTableKind::Wx ? edit.wx : edit.dsstv).Remove(index);
  };
  Change(remove, options, context, then);
}
