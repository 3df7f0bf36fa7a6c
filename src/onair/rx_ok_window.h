// SPDX-License-Identifier: GPL-3.0-or-later
// frmMapRxOk: who received the user's own picture, on any of the maps. lblMap of the main window and the setup menu
// open it. RxOkList holds the stations, RxOkLookups finds their places, this shows them.
#pragma once

#include "maps/call_map_window.h"
#include "onair/rx_ok_map.h"
#include "onair/rx_ok_panels.h"

class frmMapRxOk : public CallMapWindow {
  Q_OBJECT

 public:
  // What the window uses beside its look-ups.
  struct Dependencies : RxOkLookups::Dependencies {
    const RxOkList& lstRxOk;
    MapStore& maps;
    MenuOpener& menus;
  };

  frmMapRxOk(const Dependencies& dependencies, QWidget* opener);

  // Shows the map that was used last a moment later, or brings the open window to the front.
  void Open();
  // Draws anew: the list has changed, or the database, or the own position.
  void RedrawMap2();
  void Rebuild() override { RedrawMap2(); }
  void ShowTexts() override;

  QTimer Timer2;  // from the click on lblMap to the window

 Q_SIGNALS:
  // The window has been opened without an own position, and draws nothing.
  void LocationMissing();

 protected:
  MapDrawing BuildDrawing(const MapSurface& surface) override;
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  bool HasOwnPosition() const { return program_.config.MyLat != 0 || program_.config.MyLon != 0; }
  void ShowMap();
  void Redraw();
  void TakeList();
  void PlacePanels();
  // Hides the legend while pointer or focus are at what lies under it.
  void UncoverMap(const QRect& wanted);

  const RxOkList& lstRxOk_;
  RxOkLookups lookUps_;
  QList<RxOkStation> stations_;
  RxOkLegend legend_;
  RxOkLookupPanel picLookUp_;
  bool positionWanted_ = false;  // the user has been asked for the own position
};
