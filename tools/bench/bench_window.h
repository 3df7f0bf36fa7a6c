// SPDX-License-Identifier: GPL-3.0-or-later
// The program's main window, made as main makes it on the data folder of this user. The benchmarks measure inside it.
#pragma once

#include <QApplication>
#include <QFileInfo>

#include "app/main_window.h"
#include "platform/heap.h"

// The main window and all that outlives it.
struct BenchWindow {
  BenchWindow() {
    ReturnFreedMemory();
    // Without hosts of its own a bench asks nobody: the built-in ones are public.
    if (!QFileInfo::exists(run.appDataDir + QStringLiteral("/hosts.ini"))) run.hosts = Hosts();
    run.closingPause = std::chrono::milliseconds(1);
    services = std::make_unique<Services>(run, dialogs, clock);
    window = std::make_unique<Form1>(*services);
    QObject::connect(window.get(), &Form1::Closed, qApp, []() { QCoreApplication::exit(0); });
  }

  RunSettings run = RunSettings::OfUser();
  Clock clock;
  Dialogs dialogs;
  std::unique_ptr<Services> services;
  std::unique_ptr<Form1> window;
};
