// SPDX-License-Identifier: GPL-3.0-or-later
#include "sites/site_drafts.h"

SiteFields SiteDrafts::Shown(SiteTableKind list, int index) {
  const Place place(list, index);
  if (const auto edit = edits_.constFind(place); edit != edits_.cend()) return *edit;
  if (const auto known = shown_.constFind(place); known != shown_.cend()) return *known;
  const QList<SiteRec>& table = list == SiteTableKind::Wx ? sites_.WxSites : sites_.Sites;
  if (index < 0 || index >= table.size()) return {};
  SiteFields fields = FieldsOf(table.at(index), list);
  if (list == SiteTableKind::Dsstv && fields.lat == 0 && fields.lon == 0) {
    const QPair<double, double> found = desk_.PlaceInDatabase(fields.call);
    fields.lat = found.first;
    fields.lon = found.second;
  }
  shown_.insert(place, fields);
  return fields;
}

void SiteDrafts::Keep(SiteTableKind list, int index, const SiteFields& fields) {
  const Place place(list, index);
  if (boxes_.value(place) == fields) {
    edits_.remove(place);
  } else {
    edits_.insert(place, fields);
  }
}

SiteFields SiteDrafts::Stored(SiteTableKind list, int index, const SiteFields& fields) const {
  const auto shown = shown_.constFind({list, index});
  const auto boxes = boxes_.constFind({list, index});
  if (shown == shown_.cend() || boxes == boxes_.cend()) return fields;
  SiteFields stored = fields;
  if (fields.call == boxes->call) stored.call = shown->call;
  if (fields.url == boxes->url) stored.url = shown->url;
  if (fields.camUrl == boxes->camUrl) stored.camUrl = shown->camUrl;
  if (fields.lat == boxes->lat) stored.lat = shown->lat;
  if (fields.lon == boxes->lon) stored.lon = shown->lon;
  return stored;
}

QList<SiteDesk::Edit> SiteDrafts::EditsOf(SiteTableKind list) const {
  QList<SiteDesk::Edit> edits;
  for (auto edit = edits_.cbegin(); edit != edits_.cend(); ++edit) {
    const auto [table, index] = edit.key();
    if (table == list) edits.append({index, Stored(table, index, edit.value())});
  }
  return edits;
}

QPair<SiteTableKind, int> SiteDrafts::FirstIncomplete() const {
  for (auto edit = edits_.cbegin(); edit != edits_.cend(); ++edit) {
    if (!edit.value().IsComplete()) return edit.key();
  }
  return {SiteTableKind::Dsstv, -1};
}

void SiteDrafts::Move(SiteTableKind list, const TableEdit::NewIndex& newIndex) {
  QMap<Place, SiteFields> moved;
  for (auto edit = edits_.cbegin(); edit != edits_.cend(); ++edit) {
    const auto [table, index] = edit.key();
    const int now = table == list ? newIndex.value(index, -1) : index;
    if (now >= 0) moved.insert({table, now}, edit.value());
  }
  edits_ = moved;
  QMap<Place, SiteFields> shown;
  QMap<Place, SiteFields> boxes;
  for (auto entry = edits_.cbegin(); entry != edits_.cend(); ++entry) {
    const Place place = entry.key();
    const int before = place.first == list ? static_cast<int>(newIndex.indexOf(place.second)) : place.second;
    shown.insert(place, shown_.value({place.first, before}));
    boxes.insert(place, boxes_.value({place.first, before}));
  }
  shown_ = shown;
  boxes_ = boxes;
}
