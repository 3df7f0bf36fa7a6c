// SPDX-License-Identifier: GPL-3.0-or-later
// What the main window has to do with cams: lblCam, the lights of the cells, their menu entries, and the choice of a
// site in the site index. Form1 owns the only one; CamRound decides, Windows opens the windows.
#pragma once

#include <QObject>
#include <QTimer>

#include "app/menu_strip.h"
#include "app/page_logic.h"
#include "app/services.h"
#include "app/windows.h"
#include "cams/cam_viewer.h"
#include "page/page_view.h"

// Handlers of those controls and menu entries.
class MainCams : public QObject {
  Q_OBJECT

 public:
  // The main window's parts that are used here; all outlive this object.
  struct MainWindow {
    Services& services;
    PageLogic& logic;
    MenuStrip& pic;
    PageView& picAll;
    Windows& windows;
  };

  MainCams(const MainWindow& mainWindow, QObject* parent);

  // Caption and tip of lblCam, in the present language.
  void ShowLabel();
  // Another page or another layout is on the screen, and its walk has begun.
  void PageChanged();
  // The closing sequence has begun.
  void Stop();

 private:
  // A site that was pressed in the site index, and the cell from which the index had been opened.
  struct Choice {
    int site = -1;
    int page = 0;
    int slot = -1;
    bool wasEmpty = false;
  };

  void RegisterCommands();
  void ShowCamOf(const QString& call);
  void OpenIndex(const MenuSubject& subject);
  void Timer9Tick();

  Services& services_;
  Program& program_;
  PageLogic& logic_;
  MenuStrip& pic_;
  Windows& windows_;
  CamViewer viewer_;
  QTimer Timer9;  // once: takes up a choice when the site index has closed
  Choice choice_;
};
