// SPDX-License-Identifier: GPL-3.0-or-later
// frmMapOnAir: the stations that are on the air as points on a map, with the same filters as the list and the list
// itself as a panel. The menu of lblOnAirNow opens it.
#pragma once

#include "core/stored_settings.h"
#include "maps/map_window.h"
#include "onair/check_panel.h"
#include "onair/on_air_caption.h"
#include "onair/on_air_grid.h"
#include "onair/on_air_session.h"
#include "onair/on_air_tip.h"
#include "ui/dialogs.h"

class frmMapOnAir : public MapWindow {
  Q_OBJECT

 public:
  // What the window uses beside its session and its maps.
  struct Dependencies : OnAirSession::Dependencies {
    Program& ownProgram;
    MapStore& maps;
    CallDatabase& database;
    PictureTool& tool;
    MenuOpener& menus;
    Dialogs& dialogs;
    const OnAirCaption& caption;
  };

  frmMapOnAir(const Dependencies& dependencies, QWidget* opener);

  // Shows the window with the map that it had last.
  void Open();
  void MnuPopupClick(int index) override;
  void ShowTexts() override;
  // The database has a new record: stations may have got a place.
  void Rebuild() { session_.Rebuild(); }

 Q_SIGNALS:
  // The lookup of a call is wanted; at: its label on the screen.
  void LookupWanted(const QString& call, const QRect& at);

 protected:
  MapDrawing BuildDrawing(const MapSurface& surface) override;
  void LabelPressed(const QString& name, const QPoint& at, bool byKeyboard) override;
  void StoreMapIndex(int index) override;
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void MakeControls();
  void ConnectSignals();
  void ShowView();
  void ShowFilter();
  void ShowCaptions();
  void ShowList(bool shown);
  void PlaceList();
  void ShowInfoOf(qsizetype label);
  QString TextOf(const QString& call);
  // The label of that name, or one with the call; none: an invalid index.
  qsizetype LabelNamed(const QString& name) const;

  Program& ownProgram_;
  SettingsStore& store_;
  Background& background_;
  CallDatabase& database_;
  Dialogs& dialogs_;
  const OnAirCaption& caption_;
  OnAirSession session_;
  CheckPanel picBand_;
  CheckPanel picMode_;
  BarLabel cmdOnAir_;
  BarLabel cmdPaste_;
  BarLabel cmdHelp_;
  QFrame picList2_;
  BarLabel lblList2_;
  OnAirGrid List2_;
  QLabel lstInfo_;
  frmTipOnAir tip_;
  QList<OnAirEntry> drawn_;
  QString menuCall_;
  bool opened_ = false;
};
