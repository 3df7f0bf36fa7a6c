// SPDX-License-Identifier: GPL-3.0-or-later
// The base of all map windows: the bar with the list of maps, the reading of the picture, its place and size, panning
// and the offsets that are stored, the information line, the help. A map window derives from it, says what is drawn,
// and puts its own controls into the bar.
#pragma once

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>

#include "core/program.h"
#include "maps/map_chooser.h"
#include "maps/map_store.h"
#include "maps/map_view.h"
#include "ui/base_window.h"
#include "ui/menu_opener.h"

// One map in a window of its own, which shows itself when its picture has been read.
class MapWindow : public BaseWindow {
  Q_OBJECT

 public:
  // The given names of a window and of its list of maps.
  struct Names {
    QString window;
    QString mapsButton = QStringLiteral("cmdMaps");
    QString mapsList = QStringLiteral("lstMaps");
  };

  MapWindow(const Names& names, Program& program, MapStore& store, MenuOpener& menus, QWidget* opener);

  // An entry of the menu on a call, which the window has opened.
  virtual void MnuPopupClick(int index) = 0;

  // The bar's texts, and what is drawn on an open map. A window with texts of its own calls this one last.
  void ShowTexts() override;
  // Reads the picture of the map at MapIndex, then shows the window with it.
  void Redraw_Map();

 protected:
  // What lies upon the map now. Called whenever something may have changed: the map, the letters, the language.
  virtual MapDrawing BuildDrawing(const MapSurface& surface) = 0;
  // A clickable label was clicked, or pressed by keyboard; at: where a menu of it opens on the screen.
  virtual void LabelPressed(const QString& name, const QPoint& at, bool byKeyboard) = 0;
  // The user has chosen a map; kept for the next window and the next run.
  virtual void StoreMapIndex(int index) { program_.config.MapIndex = index; }

  int MapIndex() const { return mapIndex_; }
  void SetMapIndex(int index) { mapIndex_ = index; }
  // Draws anew upon the picture that is shown, wherever the user has moved it to.
  void RedrawOverlay();
  // Stands between the list of maps and the help.
  void AddToBar(QWidget* control);
  MapView& View() { return *picOuter_; }

  void PlaceWindow() override {}
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

  Program& program_;
  MenuOpener& menus_;

 private:
  void MakeBar();
  void PrepareFirstShow();
  void Display_Map(const MapPicture& picture);
  void PlaceOnScreen();
  void PlaceControls();
  void PlaceInfo();
  void ShowInfo();
  QSize FrameAllowance();
  void ChooseMap(int index);
  void StoreOffsets(int left, int top);

  MapStore& store_;
  int mapIndex_ = -1;
  int reads_ = 0;        // of pictures asked for; only the last one's answer counts
  QString shownFile_;    // the map whose picture is shown
  bool failed_ = false;  // the present map's file could not be read
  QString info_;
  std::optional<QPointF> keep_;
  QSize frameAllowance_ = QSize(0, 0);

  MapView* picOuter_;
  QFrame imgMenuBar_;
  QHBoxLayout* bar_;
  MapChooser maps_;
  QFrame Shape1_;
  QLabel lblHelp_;
  QFrame Shape2_;
  BarLabel cmdClose_;
  QFrame picInfo_;
  QLabel lblMapInfo1_;
};
