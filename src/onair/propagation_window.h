// SPDX-License-Identifier: GPL-3.0-or-later
// frmMapPropagation: the paths over which pictures were received of late, on any of the maps. lblPropagation of the
// main window opens it. PropagationSession decides, this shows.
#pragma once

#include <QComboBox>
#include <QSet>

#include "maps/call_map_window.h"
#include "onair/propagation_session.h"
#include "onair/received_grid.h"

// The map of paths with its three lists and the grid of a station.
class frmMapPropagation : public CallMapWindow {
  Q_OBJECT

 public:
  // What the window uses beside its session.
  struct Dependencies : PropagationSession::Dependencies {
    MapStore& maps;
    MenuOpener& menus;
  };

  frmMapPropagation(const Dependencies& dependencies, QWidget* opener);

  // Shows the map that was used last and begins to ask for the reports, or brings the open window to the front.
  void Open();
  void ShowTexts() override;
  void Rebuild() override { session_.Rebuild(); }

 protected:
  MapDrawing BuildDrawing(const MapSurface& surface) override;
  void LabelPressed(const QString& name, const QPoint& at, bool byKeyboard) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void ConnectParts();
  void FillLists();
  QString CallOf(const QString& labelName) const;
  void PointAt(qsizetype label);
  void ShowGrid(qsizetype label);
  void FollowPan();
  void EndWalk();
  void HideLabel(const QString& name);
  void GoToPartner(qsizetype label, int step);

  PropagationSession session_;
  QLabel lblPropagation_;
  QComboBox cboPropagation_;
  QComboBox cboBand_;
  QComboBox cboMode_;
  ReceivedGrid picRx_;
  QString gridCall_;    // whose grid was shown last
  QSet<QString> imgX_;  // calls whose label was closed, until the next refresh
  QString walked_;      // the station whose partners are walked through, and where the walk is
  QString partner_;
};
