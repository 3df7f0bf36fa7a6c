// SPDX-License-Identifier: GPL-3.0-or-later
// The five callbook services as one table: their pages, how a page tells of a login, how the choosers spell them; and
// what all windows with a choice of service do with it. The lookup control, these windows and the sign-in take a
// service from here.
#pragma once

#include <QString>
#include <QUrl>

#include "core/config.h"
#include "core/hosts.h"
#include "core/language_lines.h"

inline constexpr int kCallbookServices = 5;

// Which window spells: the lookup window, or one of those that set something up.
enum class ServiceSpelling { Lookup, Setup };

// One service.
struct CallbookService {
  int index = 0;            // a Database and a CallbookIndex, from 1
  QLatin1String comboName;  // as the chooser of the lookup window spells it
  QLatin1String setupName;  // as those of the setup windows do
  QString Hosts::*host = nullptr;
  QLatin1String pagePath;   // the call follows
  QLatin1String rootPath;   // of the page that tells of the login
  QLatin1String loginText;  // stands in a page for a user who is logged in; empty: no page tells
  QLatin1String loginPath;  // the service's own login page; empty: it has none
  bool needsLogin = false;  // its data come to a user who is logged in only
};

// nullptr for an index outside 1 to 5.
const CallbookService* FindCallbookService(int index);
QString SpelledName(const CallbookService& service, ServiceSpelling spelling);
// The user has chosen a service: CallbookIndex, and CallbookName as the window spells it. Not the name that a start
// gives; it lasts until then. An index outside 1 to 5 changes nothing and gives false.
bool ChooseCallbook(Config& config, int index, ServiceSpelling spelling);
// The text of a login state, by the service that was read.
TextLine LoginLine(int index, bool loggedIn);
// Caption of the fetch button in a setup window: text with "???" for the call and "***" for the service; a status, once
// there is one, stands in brackets on a line of its own.
QString FetchCaption(const QString& text, const QString& call, const QString& service, const QString& status);
// Address of the service's login page; invalid where it has none or no host.
QUrl LoginUrl(const CallbookService& service, const Hosts& hosts);
