// SPDX-License-Identifier: GPL-3.0-or-later
// The update check in the main window: starts it after the first poll, shows what it finds, and carries out the changes
// with which Form6 was closed. Form1 owns the only one.
#pragma once

#include <QObject>
#include <QSet>
#include <functional>

#include "app/menu_strip.h"
#include "app/page_logic.h"
#include "app/services.h"
#include "app/update_check.h"
#include "app/windows.h"
#include "core/backup.h"
#include "sites/list_changes_window.h"

class MainUpdates : public QObject {
  Q_OBJECT

 public:
  // What it works on; all of it outlives it.
  struct Dependencies {
    Services& services;
    PageLogic& logic;
    MenuStrip& pic;
    Windows& windows;
    Backup& backup;
    QWidget* mainWindow;
  };

  explicit MainUpdates(const Dependencies& dependencies);

  void AskTime() { check_.AskTime(); }
  // The program closes: nothing is shown and nothing applied any more.
  void Stop();
  UpdateCheck& Check() { return check_; }

 private:
  UpdateCheck::Dependencies CheckDependencies();
  bool MayOpen() const;
  BaseWindow* MakeListChanges();
  BaseWindow* MakeNewVersion();
  void AskVersion(const QString& version);
  void OpenListChanges(const SiteListPlan& plan);
  void Apply(const SiteListPlan& plan, const QSet<int>& kept);
  void ShowMainWindow();
  // The files could not be written: Form6 comes back with its marks as soon as no other window keeps it away.
  void OpenAgain(const SiteListPlan& plan, const QSet<int>& kept, const QStringList& notWritten);
  void SavePositions(const QList<ListedStation>& positions);

  Dependencies deps_;
  Program& program_;
  UpdateCheck check_;
  QPoint corner_;  // of the main window, while Form6 is shown in its place
  bool isHidden_ = false;
  bool isStopped_ = false;
};
