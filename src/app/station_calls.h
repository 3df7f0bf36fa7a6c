// SPDX-License-Identifier: GPL-3.0-or-later
// The ways that lead from the main window to a station: the call field, the sender's caption and the cell's menu to the
// lookup, the cell's menu to the map. Form1 owns the only one; Windows opens what is wanted.
#pragma once

#include <QObject>

#include "app/menu_strip.h"
#include "app/page_logic.h"
#include "app/services.h"
#include "app/window_menus.h"
#include "app/windows.h"
#include "page/page_view.h"

class StationCalls : public QObject {
  Q_OBJECT

 public:
  // What the ways begin at, and what they lead to.
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
  // The text of a menu's entry begins with the call.
  void MnuQrzFromClick(const QString& text);
  // 0: the site of the selected cell; any other: its sender.
  void MnuMapLocCallClick(int index);

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
