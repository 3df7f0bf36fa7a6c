// SPDX-License-Identifier: GPL-3.0-or-later
// frmMapLoc: one station on a map, with own position and the way to it. The picture menu, the history window and the
// lookup open it through PickMapForTarget; Form1 owns the only one.
#pragma once

#include <QFrame>
#include <QLabel>
#include <QListWidget>
#include <QToolButton>
#include <QWidget>

#include "core/program.h"
#include "maps/location_map.h"
#include "maps/map_store.h"
#include "maps/map_view.h"
#include "ui/bar_label.h"
#include "ui/menu_window.h"

class frmMapLoc : public QWidget {
  Q_OBJECT

 public:
  frmMapLoc(Program& program, MapStore& store, QWidget* owner);

  // Chooses the map for the program's TargetLat and TargetLon and shows the window when its picture has been read.
  void PickMapForTarget(const QString& callsign);
  // The texts of the language, once more after it has changed; what is drawn on an open map follows.
  void SetTexts();
  void MnuPopupClick(int index);

 Q_SIGNALS:
  // The lookup of a call is wanted; at: its label on the screen.
  void LookupWanted(const QString& call, const QRect& at);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void MakeBar();
  void FillTexts();
  void Redraw_Map();
  void Display_Map(const QImage& picture);
  void Draw();
  void PlaceParts();
  void PlaceInfo();
  QSize FrameAllowance();
  void ToggleMaps();
  void ChooseMap(int index);
  void OpenPopup(const QPoint& at, bool byKeyboard);
  void StoreOffsets(int left, int top);

  Program& program_;
  MapStore& store_;
  QWidget* owner_;
  MapTarget target_;
  int reads_ = 0;  // of pictures asked for; only the last one's answer counts
  QSize frameAllowance_ = QSize(0, 0);
  std::optional<QPointF> keep_;

  MapView* picOuter_;
  QFrame imgMenuBar_;
  QLabel lblMaps_;
  BarLabel cmdMaps_;
  QFrame Shape1_;
  QLabel lblHelp_;
  QFrame Shape2_;
  BarLabel cmdClose_;
  QFrame picInfo_;
  QLabel lblMapInfo1_;
  QListWidget lstMaps_;
  frmMenu menu_;
};
