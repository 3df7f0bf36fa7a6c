// SPDX-License-Identifier: GPL-3.0-or-later
// The five callbook services as one table: addresses of their pages, the word that shows a login, their spelling in the
// choosers; and what all windows with a choice of service do with it.
#pragma once

#include <QString>
#include <QUrl>

#include "core/config.h"
#include "core/hosts.h"
#include "core/language_lines.h"

inline constexpr int kCallbookServices = 5;

// Which spelling of a service's name: that of the lookup window or that of the setup windows.
enum class ServiceSpelling { Lookup, Setup };

// One service.
struct CallbookService {
  int index = 0;            // value of Database and CallbookIndex, from 1
  QLatin1String comboName;  // name in the chooser of the lookup window
  QLatin1String setupName;  // name in the choosers of the setup windows
  QString Hosts::*host = nullptr;
  QLatin1String pagePath;   // path of a call's page; the call is appended
  QLatin1String rootPath;   // path of the page that shows whether the user is logged in
  QLatin1String loginText;  // text in every page for a user who is logged in; empty: pages do not show it
  QLatin1String loginPath;  // the service's own login page; empty: it has none
  bool needsLogin = false;  // only a user who is logged in gets data
};

// nullptr for an index outside 1 to 5.
const CallbookService* FindCallbookService(int index);
// The service's name in a chooser.
QString SpelledName(const CallbookService& service, ServiceSpelling spelling);
// Takes the user's choice into CallbookIndex and CallbookName (as the window spells it; at the next start the name gets
// its start-up spelling back). Returns false, and changes nothing, for an index outside 1 to 5.
bool ChooseCallbook(Config& config, int index, ServiceSpelling spelling);
// The text for a login state at the service with this index.
TextLine LoginLine(int index, bool loggedIn);
// Caption of the fetch button in a setup window. text: with "???" for the call and "***" for the service; a status that
// is not empty follows in brackets on a line of its own.
QString FetchCaption(const QString& text, const QString& call, const QString& service, const QString& status);
// Address of the service's login page; invalid if the service has no such page or no host.
QUrl LoginUrl(const CallbookService& service, const Hosts& hosts);
