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
#include "platform/loose_background.h"
#include "platform/wanted.h"
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

  // The user has chosen an entry (counted from 0) of the menu on a call that the window has opened.
  virtual void MnuPopupClick(int index) = 0;

  // Shows the bar's texts and redraws an open map. A derived window shows its own texts first and calls this last.
  void ShowTexts() override;
  // Reads the picture of the map at MapIndex, then shows the window with it.
  void Redraw_Map();
  // The part of the map that the window shows, with its marks.
  QImage Seen();

 Q_SIGNALS:
  // Ctrl+C, Ctrl+S, or the buttons of the bar: what the window shows is to be copied, or saved.
  void CopyWanted(const QImage& seen);
  void SaveWanted(const QImage& seen);

 protected:
  // Returns what is drawn on the map. Called whenever map, font or language may have changed.
  virtual MapDrawing BuildDrawing(const MapSurface& surface) = 0;
  // A clickable label was clicked or pressed by keyboard. name: the label's; at: where its menu opens on the screen.
  virtual void LabelPressed(const QString& name, const QPoint& at, bool byKeyboard) = 0;
  // The window's title while a map is shown that is called so.
  virtual QString TitleOn(const QString& map) const { return map; }
  // Stores the map that the user has chosen, for the next window and the next run.
  virtual void StoreMapIndex(int index) { program_.config.MapIndex = index; }

  int MapIndex() const { return mapIndex_; }
  void SetMapIndex(int index) { mapIndex_ = index; }
  // Draws lines, circles and labels anew; the picture stays where the user has moved it.
  void RedrawOverlay();
  // Gives the information panel the size of its text.
  void PlaceInfo();
  // Puts a control into the bar, between the list of maps and the help text.
  void AddToBar(QWidget* control);
  MapView& View() { return *picOuter_; }

  void PlaceWindow() override {}
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

  Program& program_;
  MenuOpener& menus_;

 private:
  void MakeBar();
  void PrepareFirstShow();
  void Display_Map(const MapPicture& picture);
  void PlaceOnScreen();
  void PlaceControls();
  void ShowOverlay(const MapOverlay& overlay);
  void ShowInfo();
  void ShowPointer(const std::optional<QPointF>& point);
  void PlacePointer();
  QSize FrameAllowance();
  void ChooseMap(int index);
  void StoreOffsets(int left, int top);

  MapStore& store_;
  int mapIndex_ = -1;
  Wanted picture_;       // only the answer to the last read counts
  QString shownFile_;    // the map whose picture is shown
  bool failed_ = false;  // the present map's file could not be read
  QString overlayFile_;  // the map that the overlay was made for
  Wanted layoutWanted_;
  QString info_;
  QString spoken_;
  std::optional<QPointF> keep_;  // point of the picture to be kept in view
  QSize frameAllowance_ = QSize(0, 0);

  MapView* picOuter_;
  QFrame imgMenuBar_;
  QHBoxLayout* bar_;
  MapChooser maps_;
  QFrame Shape1_;
  QLabel lblHelp_;
  QFrame Shape2_;
  BarLabel lblCopy_;
  BarLabel lblSave_;
  BarLabel cmdClose_;
  QFrame picInfo_;
  QLabel lblMapInfo1_;
  QLabel lblPointer_;       // where the pointer is on the earth
  LooseBackground layout_;  // of labels
};
