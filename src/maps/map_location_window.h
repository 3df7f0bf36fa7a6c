// SPDX-License-Identifier: GPL-3.0-or-later
// frmMapLoc: one station on a map, with own position and the way to it. The picture menu, the history window and the
// lookup open it through PickMapForTarget.
#pragma once

#include "maps/location_map.h"
#include "maps/map_window.h"

// The map of one station, the target.
class frmMapLoc : public MapWindow {
  Q_OBJECT

 public:
  frmMapLoc(Program& program, MapStore& store, MenuOpener& menus, QWidget* opener);

  // Chooses the map for a place, in degrees, and shows the window when its picture has been read.
  void PickMapForTarget(const QString& callsign, double TargetLat, double TargetLon);
  void MnuPopupClick(int index) override;

 Q_SIGNALS:
  // The lookup of a call is wanted; at: its label on the screen.
  void LookupWanted(const QString& call, const QRect& at);

 protected:
  MapDrawing BuildDrawing(const MapSurface& surface) override;
  void LabelPressed(const QString& name, const QPoint& at, bool byKeyboard) override;

 private:
  MapTarget target_;
};
