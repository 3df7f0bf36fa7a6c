// SPDX-License-Identifier: GPL-3.0-or-later
// What the main window does about pictures of the user's that were received: the companion's channel, Timer3 and the
// list that it builds, lblMap with its count, and the opening of the map. Form1 owns the only one.
#pragma once

#include <QObject>
#include <QTimer>

#include "app/menu_strip.h"
#include "app/services.h"
#include "app/windows.h"
#include "onair/rx_ok_list.h"
#include "platform/companion_link.h"
#include "poll/poll_cycle.h"

class ReceivedOk : public QObject {
  Q_OBJECT

 public:
  // What it works on; all of it outlives it.
  struct Dependencies {
    Services& services;
    PollCycle& poll;
    MenuStrip& pic;
    Windows& windows;
    RxOkList& lstRxOk;
  };

  ReceivedOk(const Dependencies& dependencies, QWidget* window);

  // Opens the channel and starts Timer3. Only for the instance that holds the lock: a second one must not take the
  // channel from the first.
  void Start();
  // The page is being left: its thumbnails count no more.
  void LeavePage();
  // The own location has changed: builds the list, and shows lblMap for a moment even without receptions if the user's
  // own site is on the page.
  void ShowOwnLocation();
  // A click on lblMap, or its entry in the setup menu.
  void OpenMap();
  // The program is closing: hangs up and tells the companion so.
  void SendClosed();

  QTimer Timer3;  // seconds; every second tick builds the list

 private:
  void Tick();
  void Build();
  void TakeText(const QString& item, const QString& text);
  void ShowLabel();

  Dependencies deps_;
  QWidget* window_;
  CompanionLink link_;
  int ticks_ = 0;
  bool asking_ = false;
  bool closed_ = false;
};
