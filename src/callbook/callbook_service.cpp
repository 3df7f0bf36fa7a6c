// SPDX-License-Identifier: GPL-3.0-or-later
#include "callbook/callbook_service.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr std::array<CallbookService, kCallbookServices> kServices = {{
    {.index = 1,
     .comboName = "eHam"_L1,
     .host = &Hosts::eHam,
     .pagePath = "/callbook/"_L1,
     .rootPath = "/"_L1,
     .loginText = "Logout"_L1,
     .loginPath = "/login"_L1,
     .needsLogin = true},
    {.index = 2,
     .comboName = "QRZ"_L1,
     .host = &Hosts::QRZ,
     .pagePath = "/db/"_L1,
     .rootPath = "/"_L1,
     .loginText = "Logout"_L1,
     .loginPath = "/login"_L1,
     .needsLogin = true},
    // The chooser spells this one and the next with their domains, the program's start without.
    {.index = 3,
     .comboName = "QRZCQ.com"_L1,
     .host = &Hosts::QRZCQ,
     .pagePath = "/call/"_L1,
     .rootPath = "/"_L1,
     .loginText = "Logged in"_L1,
     .loginPath = "/login"_L1,
     .needsLogin = false},
    {.index = 4,
     .comboName = "Callook.info"_L1,
     .host = &Hosts::Callook,
     .pagePath = "/"_L1,
     .rootPath = "/"_L1,
     .loginText = {},
     .loginPath = {},
     .needsLogin = false},
    {.index = 5,
     .comboName = "HamCall"_L1,
     .host = &Hosts::HamCall,
     .pagePath = "/call?callsign="_L1,
     .rootPath = "/call"_L1,
     .loginText = "Log Out"_L1,
     .loginPath = "/login"_L1,
     .needsLogin = true},
}};

}  // namespace

const CallbookService* FindCallbookService(int index) {
  if (index < 1 || index > kCallbookServices) return nullptr;
  return &kServices[static_cast<std::size_t>(index - 1)];
}

QUrl LoginUrl(const CallbookService& service, const Hosts& hosts) {
  const QString& host = hosts.*service.host;
  if (host.isEmpty() || service.loginPath.isEmpty()) return {};
  return QUrl(host + service.loginPath);
}
