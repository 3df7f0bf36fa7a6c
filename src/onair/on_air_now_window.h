// SPDX-License-Identifier: GPL-3.0-or-later
// frmOnAirNow: the stations that are on the air as a list, filtered by band and mode, refreshed every five minutes.
// lblOnAirNow of the main window opens it. OnAirSession decides, this shows.
#pragma once

#include <QLabel>

#include "onair/filter_panels.h"
#include "onair/on_air_grid.h"
#include "onair/on_air_session.h"
#include "onair/on_air_tip.h"
#include "ui/base_window.h"
#include "ui/menu_opener.h"

class frmOnAirNow : public BaseWindow {
  Q_OBJECT

 public:
  // What the window uses beside its session.
  struct Dependencies : OnAirSession::Dependencies {
    PictureTool& tool;
    MenuOpener& menus;
    QString caption;  // what lblOnAirNow says
  };

  frmOnAirNow(const Dependencies& dependencies, QWidget* owner);

  void ShowTexts() override;
  // The database has a new record: directions are figured anew.
  void Rebuild() { session_.Rebuild(); }

 Q_SIGNALS:
  // What lblOnAirNow says.
  void CaptionChanged(const QString& caption);

 protected:
  void PlaceWindow() override;
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void MakeLayout();
  void ConnectSignals();
  void ShowView();
  void ShowStation(int row, bool byPointer);
  void ShowPicture(int row, const QPoint& beside);
  void HideTips();

  const Program& program_;
  CallDatabase& database_;
  MenuOpener& menus_;
  OnAirSession session_;
  QWidget bar_;
  FilterPanels panels_;
  BarLabel lblRefresh_;
  OnAirGrid gridOnAir_;
  QLabel lblLeftOut_;
  frmTipOnAir tip_;
  OperatorPictureTip picBig_;
  const QString caption_;
  bool opened_ = false;
};
