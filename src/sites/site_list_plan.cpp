// SPDX-License-Identifier: GPL-3.0-or-later
#include "sites/site_list_plan.h"

#include <QHash>
#include <algorithm>

#include "platform/text/numbers.h"

using namespace Qt::StringLiterals;

namespace {

constexpr auto kBlanks = "   "_L1;
constexpr auto kNoDelete = "NoDelete"_L1;
constexpr qsizetype kDatabaseField = 15;  // characters of a coordinate in the call database

// Indices of the sites by call, as lstCalls finds them: whole calls without regard to letter case, the first of equals.
class CallIndex {
 public:
  explicit CallIndex(const QList<SiteRec>& sites)
      : CallIndex(sites.size(), [&sites](qsizetype at) { return sites.at(at).Call; }) {}
  CallIndex(qsizetype count, const std::function<QString(qsizetype)>& callAt) {
    places_.reserve(count);
    for (qsizetype i = count; i-- > 0;) {
      if (const QString call = callAt(i); !call.isEmpty()) places_.insert(call.toCaseFolded(), i);
    }
  }
  qsizetype Find(const QString& call) const { return places_.value(call.toCaseFolded(), -1); }
  // False where there is no such call, or another site has the new one already: two sites of one call would lose one of
  // them at the next save.
  bool Rename(const ChangedCall& changed) {
    const qsizetype site = Find(changed.before);
    if (site < 0 || Find(changed.after) >= 0) return false;
    places_.remove(changed.before.toCaseFolded());
    places_.insert(changed.after.toCaseFolded(), site);
    return true;
  }

 private:
  QHash<QString, qsizetype> places_;
};

QString PlaceText(const GivenPlace& place) {
  return NumberText(place.lat) + " , "_L1 + NumberText(place.lon);
}

QString ChangeText(const QString& call, const QString& before, const QString& after) {
  return call + kBlanks + before + " to "_L1 + after;
}

double AsInField(double degrees) {
  return Val(NumberText(degrees).left(kDatabaseField));
}

bool DiffersInDatabase(const GivenPlace& listed, const GivenPlace& stored) {
  return AsInField(listed.lat) != stored.lat || AsInField(listed.lon) != stored.lon;
}

bool IsKept(const SiteRec& site) {
  return site.Url.contains(kNoDelete);
}

// Written into the call database. Exactly 0, 0 stands for an unknown place.
bool IsKnown(const GivenPlace& place) {
  return place.isGiven && (place.lat != 0 || place.lon != 0);
}

// Adds what differs between a listed site and the user's.
void CompareSite(const ListedSite& listed, const SiteRec& site, SiteListPlan& plan) {
  SiteChange edit;
  edit.call = listed.call;
  if (site.Url != listed.url && !IsKept(site)) {
    plan.log.append(ChangeText(listed.call, site.Url, listed.url));
    edit.url = listed.url;
  }
  if (listed.camUrl.isEmpty() && !site.CamUrl.isEmpty()) {
    plan.log.append(listed.call + " cam removed"_L1);
    edit.camUrl = QString();
  } else if (listed.camUrl != site.CamUrl && site.CamUrl.isEmpty()) {
    plan.additions.append({listed, true});
  } else if (listed.camUrl != site.CamUrl) {
    plan.log.append(ChangeText(listed.call, site.CamUrl, listed.camUrl));
    edit.camUrl = listed.camUrl;
  }
  if (listed.place.isGiven && (listed.place.lat != site.Lat || listed.place.lon != site.Lon)) {
    plan.log.append(listed.call + kBlanks + "Changed coordinates to "_L1 + PlaceText(listed.place));
    edit.place = listed.place;
    if (IsKnown(listed.place)) plan.positions.append({listed.call, listed.place});
  }
  if (edit.url || edit.camUrl || edit.place) plan.edits.append(edit);
}

SiteRec NewSite(const ListedSite& listed) {
  SiteRec site;
  site.Call = listed.call;
  site.Url = listed.url;
  site.CamUrl = listed.camUrl;
  site.Lat = listed.place.lat;
  site.Lon = listed.place.lon;
  return site;
}

void Change(const SiteChange& edit, SiteRec& site) {
  if (edit.url && !IsKept(site)) site.Url = *edit.url;
  if (edit.camUrl) site.CamUrl = *edit.camUrl;
  if (!edit.place) return;
  site.Lat = edit.place->lat;
  site.Lon = edit.place->lon;
  // What the file held in place of a number is not written back.
  site.LatText.clear();
  site.LonText.clear();
}

}  // namespace

QString SiteAddition::Text() const {
  if (isCam) return site.call + " (Cam)"_L1 + kBlanks + site.camUrl;
  return site.call + kBlanks + site.url + kBlanks + NumberText(site.place.lat) + kBlanks + NumberText(site.place.lon) +
         kBlanks + site.camUrl;
}

QString SiteRemoval::Text() const {
  return call + kBlanks + url;
}

QString ChangedCallText(const ChangedCall& changed) {
  return changed.before + " changed to "_L1 + changed.after;
}

QList<AddressChange> AddressChanges(const UpdateFile& file, const QList<SiteRec>& sites) {
  const CallIndex index(sites);
  QList<AddressChange> changes;
  for (const ListedSite& listed : file.sites) {
    const qsizetype at = index.Find(listed.call);
    if (at < 0 || !listed.isUsable || IsKept(sites.at(at)) || sites.at(at).Url == listed.url) continue;
    changes.append({sites.at(at).Call, sites.at(at).Url, listed.url});
  }
  return changes;
}

void ReplaceAddresses(const QList<AddressChange>& changes, SiteTable& sites) {
  for (const AddressChange& change : changes) {
    const int at = sites.FindCall(change.call);
    if (at >= 0 && sites.Sites.at(at).Url == change.before) sites.Sites[at].Url = change.after;
  }
}

SiteListPlan PlanSiteListChanges(const UpdateFile& file, const QList<SiteRec>& sites, const DatabasePlace& placeOf,
                                 const QList<AddressChange>& replaced) {
  SiteListPlan plan;
  for (const ListedStation& station : file.stations) {
    const std::optional<GivenPlace> stored = placeOf(station.call);
    const bool replaces = stored && station.place.MayReplaceRecord() && DiffersInDatabase(station.place, *stored);
    if (!replaces) continue;
    plan.log.append(station.call + kBlanks + "Changed coordinates in DB to "_L1 + PlaceText(station.place));
    plan.positions.append(station);
  }
  CallIndex index(sites);
  QHash<qsizetype, QString> renamed;
  for (const ChangedCall& changed : file.calls) {
    if (!index.Rename(changed)) continue;
    plan.calls.append(changed);
    renamed.insert(index.Find(changed.after), changed.after);
  }
  for (const AddressChange& change : replaced) plan.log.append(ChangeText(change.call, change.before, change.after));
  QSet<QString> listed;
  for (const ListedSite& site : file.sites) {
    listed.insert(site.call.toCaseFolded());
    if (!site.isUsable) continue;
    const qsizetype at = index.Find(site.call);
    if (at >= 0) {
      CompareSite(site, sites.at(at), plan);
    } else {
      plan.additions.append({site, false});
      if (IsKnown(site.place)) plan.positions.append({site.call, site.place});
    }
  }
  for (qsizetype i = 0; i < sites.size(); ++i) {
    const SiteRec& site = sites.at(i);
    const QString call = renamed.value(i, site.Call);
    if (call.isEmpty() || listed.contains(call.toCaseFolded()) || IsKept(site)) continue;
    plan.removals.append({call, site.Url});
  }
  return plan;
}

void ApplyPlan(const SiteListPlan& plan, const QSet<int>& kept, TableEdit& sites) {
  CallIndex index(sites.Size(), [&sites](qsizetype at) { return sites.At(static_cast<int>(at)).Call; });
  const auto find = [&index](const QString& call) { return static_cast<int>(index.Find(call)); };
  for (const ChangedCall& changed : plan.calls) {
    const int at = find(changed.before);
    if (at >= 0 && index.Rename(changed)) sites.Change(at).Call = changed.after;
  }
  for (const SiteChange& edit : plan.edits) {
    if (const int at = find(edit.call); at >= 0) Change(edit, sites.Change(at));
  }
  // Whatever is selected in List1: it is added. This is wanted.
  for (const SiteAddition& addition : plan.additions) {
    const int at = find(addition.site.call);
    if (addition.isCam && at >= 0) sites.Change(at).CamUrl = addition.site.camUrl;
    if (!addition.isCam && at < 0) sites.Add(NewSite(addition.site));
  }
  for (int row = 0; row < plan.removals.size(); ++row) {
    const int at = find(plan.removals.at(row).call);
    if (at < 0) continue;
    if (!kept.contains(row)) {
      sites.Remove(at);
    } else if (!IsKept(sites.At(at))) {
      sites.Change(at).Url.prepend(kNoDelete);
    }
  }
}

QStringList RemovedCalls(const SiteListPlan& plan, const QSet<int>& kept) {
  QStringList calls;
  for (int row = 0; row < plan.removals.size(); ++row) {
    if (!kept.contains(row)) calls.append(plan.removals.at(row).call);
  }
  return calls;
}

int AddedSites(const SiteListPlan& plan) {
  return static_cast<int>(std::count_if(plan.additions.cbegin(), plan.additions.cend(),
                                        [](const SiteAddition& addition) { return !addition.isCam; }));
}
