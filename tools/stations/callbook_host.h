// SPDX-License-Identifier: GPL-3.0-or-later
// One of the simulated callbook services: pages of calls, and a sign-in that ends in a session cookie. StationBand
// makes the five of them.
#pragma once

#include <QSet>

#include "callbook_pages.h"
#include "http_host.h"

// The password of every user of every service.
inline constexpr auto kCallbookPassword = "perch";

// The host of one service.
class CallbookHost : public Host {
 public:
  CallbookHost(Callbook service, const QHostAddress& address, quint16 port, QObject* parent);

  Callbook Service() const { return service_; }
  // Name of the cookie; empty for the service without a login.
  QByteArray CookieName() const;

 protected:
  void Handle(const Request& request, const Deliver& deliver) override;
  bool TakesForms() const override { return service_ != Callbook::Callook; }

 private:
  // The call that a request asks about; empty for any other request.
  QString CallIn(const Request& request) const;
  QByteArray RootPath() const;
  Answer SignIn(const Request& request) const;
  Answer SignOut(const Request& request);
  QByteArray NewSession() const;
  bool IsSignedIn(const Request& request) const;

  Callbook service_;
  QSet<QByteArray> ended_;  // sessions that were signed out
};
