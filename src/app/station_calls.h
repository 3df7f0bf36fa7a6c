// SPDX-License-Identifier: GPL-3.0-or-later
// Opens a lookup or a map from the main window: from the call field, a sender's caption, or a cell's menu. Form1 owns
// the only one; Windows opens the windows.
#pragma once

#include <QObject>

#include "app/menu_strip.h"
#include "app/page_logic.h"
#include "app/services.h"
#include "app/window_menus.h"
#include "app/windows.h"
#include "page/page_view.h"

// Handlers of those controls and menu entries.
class StationCalls : public QObject {
  Q_OBJECT

 public:
  // The main window's parts that are used here; all outlive this object.
  struct MainWindow {
    Services& services;
    PageLogic& logic;
    MenuStrip& pic;
    PageView& picAll;
    WindowMenus& menus;
    Windows& windows;
  };

  StationCalls(const MainWindow& mainWindow, QWidget* window);

  // F8 in txtCall: looks up the call on the clipboard.
  void PasteCall();
  // cmdGo, or Return in txtCall.
  void GoClick();
  // A click on the caption that names a sender.
  void SenderClick(int slot);
  // An entry of the lookup menu was chosen; its text begins with the call. The menu may be that of any window's cell.
  void MnuQrzFromClick(const QString& text, const MenuSubject& subject);
  // Shows a station on the map; 0: the site of the cell, any other index: its sender.
  void MnuMapLocCallClick(int index, const MenuSubject& subject);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QRect CallFieldPlace() const;

  Services& services_;
  Program& program_;
  PageLogic& logic_;
  MenuStrip& pic_;
  PageView& picAll_;
  WindowMenus& menus_;
  Windows& windows_;
  QWidget* window_;
};
