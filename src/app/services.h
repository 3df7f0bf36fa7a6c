// SPDX-License-Identifier: GPL-3.0-or-later
// All objects that live as long as the program and are used by many windows, in one plain struct. main makes the only
// one, before the main window, so that it outlives every window. Nobody below app/ includes it: a class takes in its
// constructor the references that it uses.
#pragma once

#include <QString>
#include <chrono>

#include "browser/web_library.h"
#include "callbook/call_database.h"
#include "callbook/sign_in_page.h"
#include "core/hosts.h"
#include "core/program.h"
#include "core/translations.h"
#include "maps/map_store.h"
#include "platform/background.h"
#include "platform/clock.h"
#include "platform/desktop_window.h"
#include "platform/net/cookie_store.h"
#include "platform/net/url_reader.h"
#include "platform/picture/page_text_tool.h"
#include "platform/picture/picture_tool.h"
#include "platform/settings_store.h"
#include "platform/system_clock.h"
#include "ui/commands.h"
#include "ui/dialogs.h"

// Folders, hosts and waiting times of a run: the user's in the program, others in a test.
struct RunSettings {
  QString appDataDir;
  QString programDir;  // folder of the executable
  QString decoder;     // path of omni-perch-decoder
  QString player{};    // path of omni-perch-player
  QString socketDir;   // folder of the companion program's socket
  Hosts hosts;
  UrlLimits limits;
  SystemClock* systemClock = nullptr;  // set by the answer of the time service; nullptr: never
  std::chrono::milliseconds closingPause = std::chrono::seconds(1);  // one second of the closing sequence

  // The settings of the user who runs the program.
  static RunSettings OfUser();
};

// The services, made in the order of the members; each may use those above it.
struct Services {
  Services(RunSettings runSettings, Dialogs& theDialogs, const Clock& theClock);

  // What a window with a choice of callbook service needs to open the services' login pages.
  SignInBrowser SignIn();

  const RunSettings run;
  Dialogs& dialogs;
  const Clock& clock;
  Program program;
  Translations translations;
  SettingsStore store;
  Background background;
  CookieStore cookies;
  UrlNetwork network;
  PictureTool tool;
  PageTextTool pageText;
  CallDatabase database;
  WebLibrary web;
  MapStore maps;
  DesktopWindow easyPal;
  Commands commands;
};
