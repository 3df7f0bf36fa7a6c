// SPDX-License-Identifier: GPL-3.0-or-later
// Signing in to the chosen callbook service and out again: whether it can be offered, when a page has to be read again
// because the sign-in has changed cookies, and the removal of those cookies. The lookup session and the fetch of
// coordinates own one each; SignInPage opens the service's page.
#pragma once

#include <QList>
#include <QNetworkCookie>
#include <QObject>
#include <QString>
#include <QTimer>
#include <QUrl>
#include <functional>
#include <optional>

#include "callbook/callbook_service.h"
#include "core/config.h"
#include "core/hosts.h"
#include "platform/net/cookie_store.h"

// Whether the user can sign in to or out of the chosen service.
struct SignInOffer {
  enum class Kind { None, SignIn, SignOut };
  Kind kind = Kind::None;
  QString text;  // never empty
};

// The sign-in of one window.
class SignInSession : public QObject {
  Q_OBJECT

 public:
  // All outlive the session. config: the service chosen. isReading: whether a page is being read; what a sign-in wants
  // to be read waits for its end.
  SignInSession(const Config& config, const Hosts& hosts, CookieStore& cookies, std::function<bool()> isReading);

  SignInOffer Offer() const;
  // The service's own login page; invalid without one.
  QUrl Url() const;
  QString ServiceName() const { return config_.CallbookName; }

  // A page of the service with this index has shown whether the user is logged in.
  void TakeLogin(int service, bool loggedIn);
  // Another service was chosen: the login page that is open is no longer waited for.
  void ServiceChanged() { awaiting_ = false; }

  // The login page has been opened: a read is wanted whenever that page has changed the service's cookies, and once
  // when the page is closed.
  void Await();
  void Close();
  // Removes the service's cookies. The browser window's own cookies have to be removed before.
  void SignOut();

 Q_SIGNALS:
  // The page of the call is to be read again.
  void ReadWanted();
  void SignedOut();

 private:
  void CookiesChanged();
  void CookiesSettled();
  const CallbookService* Service() const { return FindCallbookService(config_.CallbookIndex); }
  QList<QNetworkCookie> ServiceCookies() const { return cookies_.CookiesFor(Url()); }

  const Config& config_;
  const Hosts& hosts_;
  CookieStore& cookies_;
  const std::function<bool()> isReading_;
  std::optional<bool> loggedIn_;  // as the last page showed
  int loginService_ = 0;          // service of that page
  bool awaiting_ = false;
  int readsForCookies_ = 0;  // reads since the browser window last changed a cookie
  QList<QNetworkCookie> cookiesSeen_;
  QTimer cookieTimer_;
};
