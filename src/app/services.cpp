// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/services.h"

#include <QCoreApplication>
#include <QFileInfo>

#include "platform/companion_link.h"
#include "platform/paths.h"

using namespace Qt::StringLiterals;

namespace {

Program ProgramOf(const RunSettings& run) {
  Program program;
  program.AppDataDir = run.appDataDir;
  program.ProgramDir = run.programDir;
  program.CallsDir = QFileInfo(run.appDataDir).path() + u"/QKCalls"_s;
  return program;
}

}  // namespace

RunSettings RunSettings::OfUser() {
  RunSettings run;
  run.appDataDir = DefaultAppDataDir();
  run.programDir = QCoreApplication::applicationDirPath();
  run.decoder = run.programDir + u"/omni-perch-decoder"_s;
  run.player = run.programDir + u"/omni-perch-player"_s;
  run.socketDir = CompanionLink::DefaultSocketDir();
  run.hosts = Hosts::Read(run.appDataDir);
  return run;
}

Services::Services(RunSettings runSettings, Dialogs& theDialogs, const Clock& theClock)
    : run(std::move(runSettings)),
      dialogs(theDialogs),
      clock(theClock),
      program(ProgramOf(run)),
      store(run.appDataDir + u"/settings.ini"_s),
      cookies(run.appDataDir),
      network(run.limits),
      tool(run.decoder, run.appDataDir),
      pageText(run.decoder),
      database(run.appDataDir),
      web(run.programDir, run.appDataDir + u"/browser"_s, cookies),
      maps(run.appDataDir) {
  // The decoders get ready while the main window is made.
  tool.WarmUp();
  network.SetCookies(cookies);
}

SignInBrowser Services::SignIn() {
  return {[this]() { return web.Windows(); }, [this](const QUrl& url) { web.Forget(url); }, dialogs};
}
