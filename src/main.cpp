// SPDX-License-Identifier: GPL-3.0-or-later
// Builds the program's state, shows Form1 and runs the event loop.
#include <QApplication>
#include <QFileInfo>

#include "app/main_window.h"
#include "core/hosts.h"
#include "core/program.h"
#include "platform/clock.h"
#include "platform/companion_link.h"
#include "platform/instance_lock.h"
#include "platform/paths.h"
#include "platform/settings_store.h"
#include "platform/termination.h"
#include "ui/dialogs.h"
#include "ui/menu_accessible.h"

using namespace Qt::StringLiterals;

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  QApplication::setApplicationName(u"omni-perch"_s);
  QApplication::setApplicationVersion(u"6.50"_s);
  QGuiApplication::setDesktopFileName(u"omni-perch"_s);
  QApplication::setQuitOnLastWindowClosed(false);
  AccessibleCell::Install();
  AccessibleMenuOwner::Install();

  Program program;
  program.AppDataDir = DefaultAppDataDir();
  program.ProgramDir = QApplication::applicationDirPath();
  program.CallsDir = QFileInfo(program.AppDataDir).path() + u"/QKCalls"_s;

  // Asked before the first file is touched.
  InstanceLock lock(program.AppDataDir);
  const bool anotherRuns = !lock.Acquire();

  const Hosts hosts = Hosts::Read(program.AppDataDir);
  SettingsStore store(program.AppDataDir + u"/settings.ini"_s);
  Clock clock;
  Dialogs dialogs;
  Form1 form({program, store, hosts, dialogs, clock, program.ProgramDir + u"/omni-perch-decoder"_s,
              CompanionLink::DefaultSocketDir(), UrlLimits()});
  if (!form.Load(anotherRuns)) return 0;
  const Termination termination;
  QObject::connect(&termination, &Termination::Requested, &form, &Form1::CloseMe);
  QObject::connect(&form, &Form1::Closed, &app, &QApplication::quit);
  return QApplication::exec();
}
