// SPDX-License-Identifier: GPL-3.0-or-later
// The setup menu: what each of its entries does, and the makers of the setup windows that it opens. Form1 owns the only
// one. A new setup window is a maker and a row of the table in setup_windows.cpp; until then its entry stays grey.
#pragma once

#include <QObject>
#include <functional>

#include "app/menu_tables.h"
#include "app/page_logic.h"
#include "app/services.h"
#include "app/site_windows.h"
#include "app/windows.h"
#include "core/backup.h"
#include "ui/menu_opener.h"

// The handlers of the setup menu.
class SetupWindows : public QObject {
  Q_OBJECT

 public:
  // What the setup windows and the handlers use; all of it outlives this object.
  struct Dependencies {
    Services& services;
    PageLogic& logic;
    MenuOpener& menus;
    Windows& windows;
    QWidget* mainWindow;
    std::function<void()> showReceivedOkMap;  // a click on lblMap
    std::function<void()> showOwnLocation;    // the own location has changed
    std::function<void()> focusCallField;     // txtCall of the main window takes the focus
  };

  explicit SetupWindows(const Dependencies& dependencies);

  // Does what an entry of the setup menu says; index from 0. The menus are closed first, then open setup windows.
  void MnuSetupClick(int index);
  // Opens a setup window from elsewhere, for instance from the menu of a cell; open setup windows are closed first.
  void Open(WindowKind kind);
  // Also for the update check, which copies the user's files before it changes them.
  Backup& Backups() { return backup_; }
  // Opens Help.txt with the program that the desktop has for texts.
  void ShowHelp();

 private:
  // A setup window that an entry opens.
  struct Row {
    int index;
    WindowKind kind;
    BaseWindow* (SetupWindows::*make)();
  };
  static const QList<Row>& Rows();
  BaseWindow* MakeOwnLocation();
  BaseWindow* MakeDatabaseEditor();
  LookupSession::Dependencies LookUps() const;
  BaseWindow* MakePageNames();
  Backup::Dependencies BackupNeeds();
  void MakeBackup();
  void TellBackup(const BackupResult& result);
  void ShowAbout();
  BaseWindow* MakeAddSite() { return sites_.MakeAddSite(); }
  BaseWindow* MakeEditSite() { return sites_.MakeEditSite(); }
  BaseWindow* MakeDeleteSite() { return sites_.MakeDeleteSite(); }
  BaseWindow* MakeBlockCalls() { return sites_.MakeBlockCalls(); }

  Dependencies deps_;
  SiteWindows sites_;
  Backup backup_;
};
