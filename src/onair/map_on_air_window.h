// SPDX-License-Identifier: GPL-3.0-or-later
// frmMapOnAir: the stations that are on the air as points on a map, with the same filters as the list and the list
// itself as a panel. The menu of lblOnAirNow opens it.
#pragma once

#include "core/stored_settings.h"
#include "maps/call_map_window.h"
#include "onair/filter_panels.h"
#include "onair/on_air_caption.h"
#include "onair/on_air_grid.h"
#include "onair/on_air_session.h"
#include "onair/on_air_tip.h"
#include "ui/dialogs.h"

class frmMapOnAir : public CallMapWindow {
  Q_OBJECT

 public:
  // What the window uses beside its session and its maps.
  struct Dependencies : OnAirSession::Dependencies {
    Program& ownProgram;
    MapStore& maps;
    PictureTool& tool;
    MenuOpener& menus;
    Dialogs& dialogs;
    const OnAirCaption& caption;
  };

  frmMapOnAir(const Dependencies& dependencies, QWidget* opener);

  // Shows the window with the map that it had last.
  void Open();
  void ShowTexts() override;
  void Rebuild() override { session_.Rebuild(); }
  // Brings a call's label into view and gives it the focus; false where it has none on this map.
  bool ShowCall(const QString& call);
  // The panel of the list, on the screen.
  QRect ListPlace() const;

 Q_SIGNALS:
  // What the window shows is to be pasted into EasyPal.
  void PasteWanted(const QImage& seen);

 protected:
  MapDrawing BuildDrawing(const MapSurface& surface) override;
  // Whatever map it is: who is on the air, and how many.
  QString TitleOn(const QString& map) const override;
  void StoreMapIndex(int index) override;
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void MakeControls();
  void ConnectSignals();
  void ShowView();
  void ShowCaptions();
  QString CountText() const;
  void ShowList(bool shown);
  void PlaceList();
  void ShowInfoOf(qsizetype label);
  void PlaceInfoOf(qsizetype label);
  QString TextOf(const QString& call);

  SettingsStore& store_;
  Background& background_;
  CallDatabase& database_;
  Dialogs& dialogs_;
  const OnAirCaption& caption_;
  OnAirSession session_;
  FilterPanels panels_;
  BarLabel cmdOnAir_;
  BarLabel cmdPaste_;
  BarLabel cmdHelp_;
  QFrame picList2_;
  QToolButton lblList2_;
  OnAirGrid List2_;
  QLabel lstInfo_;
  QString infoCall_;  // whose text lstInfo shows
  frmTipOnAir tip_;
  QList<OnAirEntry> drawn_;
  QString leftOut_;
};
