// SPDX-License-Identifier: GPL-3.0-or-later
// Makes the services, shows Form1 and runs the event loop.
#include <QApplication>

#include "app/main_window.h"
#include "app/services.h"
#include "platform/heap.h"
#include "platform/instance_lock.h"
#include "platform/termination.h"
#include "ui/menu_accessible.h"

using namespace Qt::StringLiterals;

int main(int argc, char** argv) {
  ReturnFreedMemory();
  QApplication app(argc, argv);
  QApplication::setApplicationName(u"omni-perch"_s);
  QApplication::setApplicationVersion(u"6.50"_s);
  QGuiApplication::setDesktopFileName(u"omni-perch"_s);
  QApplication::setQuitOnLastWindowClosed(false);
  AccessibleCell::Install();
  AccessibleMenuOwner::Install();

  SystemClock systemClock;
  RunSettings run = RunSettings::OfUser();
  run.systemClock = &systemClock;
  // Before the first file is touched, because a second instance must change no file of the first.
  InstanceLock lock(run.appDataDir);
  const bool anotherRuns = !lock.Acquire();

  Clock clock;
  Dialogs dialogs;
  Services services(run, dialogs, clock);
  Form1 form(services);
  if (!form.Load(anotherRuns)) return 0;
  const Termination termination;
  QObject::connect(&termination, &Termination::Requested, &form, &Form1::CloseMe);
  QObject::connect(&form, &Form1::Closed, &app, &QApplication::quit);
  return QApplication::exec();
}
