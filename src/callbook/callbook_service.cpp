// SPDX-License-Identifier: GPL-3.0-or-later
#include "callbook/callbook_service.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr int kQrzcq = 3;
constexpr int kCallook = 4;

constexpr std::array<CallbookService, kCallbookServices> kServices = {{
    {.index = 1,
     .comboName = "eHam"_L1,
     .setupName = "eHam"_L1,
     .host = &Hosts::eHam,
     .pagePath = "/callbook/"_L1,
     .rootPath = "/"_L1,
     .loginText = "Logout"_L1,
     .loginPath = "/login"_L1,
     .needsLogin = true},
    {.index = 2,
     .comboName = "QRZ"_L1,
     .setupName = "QRZ"_L1,
     .host = &Hosts::QRZ,
     .pagePath = "/db/"_L1,
     .rootPath = "/"_L1,
     .loginText = "Logout"_L1,
     .loginPath = "/login"_L1,
     .needsLogin = true},
    // Both choosers spell this name with its domain, only the lookup's chooser does so with the next; the spelling that
    // CallbookName gets at start has no domain.
    {.index = 3,
     .comboName = "QRZCQ.com"_L1,
     .setupName = "QRZCQ.com"_L1,
     .host = &Hosts::QRZCQ,
     .pagePath = "/call/"_L1,
     .rootPath = "/"_L1,
     .loginText = "Logged in"_L1,
     .loginPath = "/login"_L1,
     .needsLogin = false},
    {.index = 4,
     .comboName = "Callook.info"_L1,
     .setupName = "Callook"_L1,
     .host = &Hosts::Callook,
     .pagePath = "/"_L1,
     .rootPath = "/"_L1,
     .loginText = {},
     .loginPath = {},
     .needsLogin = false},
    {.index = 5,
     .comboName = "HamCall"_L1,
     .setupName = "HamCall"_L1,
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

QString SpelledName(const CallbookService& service, ServiceSpelling spelling) {
  return spelling == ServiceSpelling::Setup ? service.setupName : service.comboName;
}

bool ChooseCallbook(Config& config, int index, ServiceSpelling spelling) {
  const CallbookService* service = FindCallbookService(index);
  if (service == nullptr) return false;
  config.CallbookIndex = service->index;
  config.CallbookName = SpelledName(*service, spelling);
  return true;
}

TextLine LoginLine(int index, bool loggedIn) {
  if (loggedIn) return TextLine::kLoggedIn;
  if (index == kQrzcq) return TextLine::kQrzcqStatus;
  return index == kCallook ? TextLine::kCallookStatus : TextLine::kNotLoggedIn;
}

QString FetchCaption(const QString& text, const QString& call, const QString& service, const QString& status) {
  QString caption = text;
  caption.replace("???"_L1, call).replace("***"_L1, service);
  return status.isEmpty() ? caption : caption + "\r\n("_L1 + status + u')';
}

QUrl LoginUrl(const CallbookService& service, const Hosts& hosts) {
  const QString& host = hosts.*service.host;
  if (host.isEmpty() || service.loginPath.isEmpty()) return {};
  return QUrl(host + service.loginPath);
}
