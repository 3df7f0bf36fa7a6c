// SPDX-License-Identifier: GPL-3.0-or-later
// The program's main window on the data folder of this user, as main makes it, for what is measured inside it.
#pragma once

#include <QApplication>

#include "app/main_window.h"
#include "core/hosts.h"
#include "core/program.h"
#include "platform/companion_link.h"
#include "platform/paths.h"
#include "platform/settings_store.h"
#include "ui/dialogs.h"

struct BenchWindow {
  BenchWindow() {
    program.AppDataDir = DefaultAppDataDir();
    program.ProgramDir = QApplication::applicationDirPath();
    store = std::make_unique<SettingsStore>(program.AppDataDir + QStringLiteral("/settings.ini"));
    hosts = Hosts::Read(program.AppDataDir);
    window = std::make_unique<Form1>(
        Form1::Parts{program, *store, hosts, dialogs, clock, program.ProgramDir + QStringLiteral("/omni-perch-decoder"),
                     CompanionLink::DefaultSocketDir(), UrlLimits(), std::chrono::milliseconds(1)});
    QObject::connect(window.get(), &Form1::Closed, qApp, []() { QCoreApplication::exit(0); });
  }

  Program program;
  Hosts hosts;
  Clock clock;
  Dialogs dialogs;
  std::unique_ptr<SettingsStore> store;
  std::unique_ptr<Form1> window;
};
