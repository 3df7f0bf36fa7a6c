// SPDX-License-Identifier: GPL-3.0-or-later
// The windows about one station, the lookup and the map of its place, and the ways that lead to them from the main
// window: the call field, the sender's caption, the cell's menu. Form1 owns the only one.
#pragma once

#include <QObject>
#include <QPointer>
#include <memory>

#include "app/menu_strip.h"
#include "app/page_logic.h"
#include "app/services.h"
#include "app/window_menus.h"
#include "callbook/lookup_window.h"
#include "maps/map_location_window.h"
#include "page/page_view.h"

class StationWindows : public QObject {
  Q_OBJECT

 public:
  struct Parts {
    Services& services;
    PageLogic& logic;
    MenuStrip& pic;
    PageView& picAll;
    WindowMenus& menus;
  };

  StationWindows(const Parts& parts, QWidget* window);
  ~StationWindows() override;

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
  // Before the program ends: browser windows need the event loop for it.
  void CloseAll();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  // Shows a call beside a place on the screen.
  void LookUp(const QString& call, const QRect& beside);
  void ShowOnMap(const QString& shown);
  // The call that the lookup window shows; its place is the target already.
  void ShowLookedUp(const QString& call);
  // The map windows come up again.
  void LookupClosed();
  Form12& Lookup();
  frmMapLoc& Map();
  QRect CallFieldPlace() const;

  Services& services_;
  Program& program_;
  PageLogic& logic_;
  MenuStrip& pic_;
  PageView& picAll_;
  WindowMenus& menus_;
  QWidget* window_;
  // Made when they first open: the start does not wait for them.
  QPointer<Form12> lookup_;  // both delete themselves when they are closed
  QPointer<frmMapLoc> map_;
};
