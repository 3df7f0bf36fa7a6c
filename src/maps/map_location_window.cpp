// SPDX-License-Identifier: GPL-3.0-or-later
#include "maps/map_location_window.h"

#include "maps/map_list.h"

using namespace Qt::StringLiterals;

namespace {

// Entries of the menu on lblCall.
enum PopupEntry { kLookup, kViewAddress, kViewCoordinates };

}  // namespace

frmMapLoc::frmMapLoc(Program& program, MapStore& store, QWidget* opener)
    : MapWindow({u"frmMapLoc"_s}, program, store, opener), menu_(this) {
  connect(&menu_, &frmMenu::Chosen, this, [this](const MenuEntry& entry) { MnuPopupClick(entry.index); });
}

void frmMapLoc::PickMapForTarget(const QString& callsign) {
  target_ = {callsign, program_.TargetLat, program_.TargetLon};
  SetMapIndex(BestMapIndex(program_.lstMap, target_.lat, target_.lon));
  StoreMapIndex(MapIndex());
  Redraw_Map();
}

MapDrawing frmMapLoc::BuildDrawing(const MapSurface& surface) {
  return BuildLocationMap(program_, target_, surface);
}

void frmMapLoc::LabelPressed(const QString& name, const QPoint& at, bool byKeyboard) {
  Q_UNUSED(name)  // every label that can be pressed is the target's
  QList<MenuEntry> entries;
  for (const TextLine line : MenuLines::kMapCall) {
    MenuEntry entry;
    entry.text =
        QString(program_.language[line]).replace("***"_L1, program_.config.CallbookName).replace("??"_L1, target_.call);
    entry.index = static_cast<int>(entries.size());
    // The satellite views have no window yet.
    entry.enabled = entry.index == kLookup;
    entries.append(entry);
  }
  menu_.setAccessibleName(target_.call);
  menu_.MakeMenu(entries);
  menu_.OpenAt(at, byKeyboard ? frmMenu::Opener::Keyboard : frmMenu::Opener::Pointer);
}

void frmMapLoc::MnuPopupClick(int index) {
  if (index != kLookup) return;
  // The lookup opens beside the label that can be seen.
  QRect seen;
  for (qsizetype i = 0; i < View().Labels().size(); ++i) {
    const QRect place = View().LabelRect(i);
    if (View().Labels().at(i).clickable && (seen.isNull() || View().rect().intersects(place))) seen = place;
  }
  Q_EMIT LookupWanted(target_.call, QRect(View().mapToGlobal(seen.topLeft()), seen.size()));
}
