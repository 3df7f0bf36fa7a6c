// SPDX-License-Identifier: GPL-3.0-or-later
// The five callbook services as one table: their pages, how a page tells of a login, how the chooser spells them. The
// lookup control, the windows with a choice of service and the sign-in take a service from here.
#pragma once

#include <QString>
#include <QUrl>

#include "core/hosts.h"

inline constexpr int kCallbookServices = 5;

struct CallbookService {
  int index = 0;            // a Database and a CallbookIndex, from 1
  QLatin1String comboName;  // as the chooser of the lookup window spells it
  QString Hosts::*host = nullptr;
  QLatin1String pagePath;   // the call follows
  QLatin1String rootPath;   // of the page that tells of the login
  QLatin1String loginText;  // stands in a page for a user who is logged in; empty: no page tells
  QLatin1String loginPath;  // the service's own login page; empty: it has none
  bool needsLogin = false;  // its data come to a user who is logged in only
};

// nullptr for an index outside 1 to 5.
const CallbookService* FindCallbookService(int index);
// Address of the service's login page; invalid where it has none or no host.
QUrl LoginUrl(const CallbookService& service, const Hosts& hosts);
