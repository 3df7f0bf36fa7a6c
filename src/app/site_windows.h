// SPDX-License-Identifier: GPL-3.0-or-later
// Makes the setup windows of the sites and of the blocked calls and connects what follows from them; carries out the
// block entry of a picture's menu. SetupWindows owns the only one.
#pragma once

#include <QObject>
#include <functional>

#include "app/page_logic.h"
#include "app/services.h"
#include "sites/site_desk.h"
#include "ui/base_window.h"

// Makers of Form3, Form7, Form4 and Form18.
class SiteWindows : public QObject {
  Q_OBJECT

 public:
  // What the windows use; all of it outlives this object.
  struct Dependencies {
    Services& services;
    PageLogic& logic;
    QWidget* mainWindow;
    std::function<void()> openBlockWindow;
    std::function<void()> blocksChanged;
  };

  SiteWindows(const Dependencies& dependencies, QObject* parent);

  BaseWindow* MakeAddSite();
  BaseWindow* MakeEditSite();
  BaseWindow* MakeDeleteSite();
  BaseWindow* MakeBlockCalls();

 private:
  // The block entry of a picture's menu.
  void BlockSender(const QString& caller);
  void Blank();
  void ReloadPage();

  Dependencies deps_;
  SiteDesk desk_;
};
