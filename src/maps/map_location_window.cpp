// SPDX-License-Identifier: GPL-3.0-or-later
#include "maps/map_location_window.h"

#include "maps/map_list.h"

using namespace Qt::StringLiterals;

frmMapLoc::frmMapLoc(Program& program, MapStore& store, MenuOpener& menus, QWidget* opener)
    : MapWindow({u"frmMapLoc"_s}, program, store, menus, opener) {}

void frmMapLoc::PickMapForTarget(const QString& callsign, double TargetLat, double TargetLon) {
  target_ = {callsign, TargetLat, TargetLon};
  SetMapIndex(BestMapIndex(program_.lstMap, target_.lat, target_.lon));
  StoreMapIndex(MapIndex());
  Redraw_Map();
}

MapDrawing frmMapLoc::BuildDrawing(const MapSurface& surface) {
  return BuildLocationMap(program_, target_, surface);
}

void frmMapLoc::LabelPressed(const QString& name, const QPoint& at, bool byKeyboard) {
  Q_UNUSED(name)  // every label that can be pressed is the target's
  MenuRequest request;
  request.menu = MenuId::MapCall;
  request.subject.caller = target_.call;
  request.subject.placed = true;
  request.owner = this;
  request.name = target_.call;
  request.at = at;
  request.byKeyboard = byKeyboard;
  menus_.OpenMenu(request);
}

void frmMapLoc::MnuPopupClick(int index) {
  if (index != 0) return;  // app/media_views opens the views of the place
  // The lookup opens beside a clickable label, one that is in view if there is any.
  QRect seen;
  for (qsizetype i = 0; i < View().Labels().size(); ++i) {
    const QRect place = View().LabelRect(i);
    if (View().Labels().at(i).clickable && (seen.isNull() || View().rect().intersects(place))) seen = place;
  }
  Q_EMIT LookupWanted(target_.call, QRect(View().mapToGlobal(seen.topLeft()), seen.size()));
}
