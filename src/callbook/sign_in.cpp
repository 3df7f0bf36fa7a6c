// SPDX-License-Identifier: GPL-3.0-or-later
#include "callbook/sign_in.h"

#include <chrono>
#include <utility>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

// Wait this long after a change of cookies: a sign-in page sets several, and a page read between two of them would not
// be that of a signed-in user yet.
constexpr std::chrono::milliseconds kCookiePause = 400ms;
// Reads after cookies that came during a read. Such a cookie may belong to the sign-in, but some services set one with
// every page, so reading after each of them would never end.
constexpr int kReadsForCookies = 2;

}  // namespace

SignInSession::SignInSession(const Config& config, const Hosts& hosts, CookieStore& cookies,
                             std::function<bool()> isReading)
    : config_(config), hosts_(hosts), cookies_(cookies), isReading_(std::move(isReading)) {
  cookieTimer_.setSingleShot(true);
  cookieTimer_.setInterval(kCookiePause);
  connect(&cookieTimer_, &QTimer::timeout, this, &SignInSession::CookiesSettled);
  connect(&cookies_, &CookieStore::Changed, this, &SignInSession::CookiesChanged);
}

SignInOffer SignInSession::Offer() const {
  const QString signIn = tr("Sign in to %1").arg(config_.CallbookName);
  if (!Url().isValid()) return {SignInOffer::Kind::None, signIn};
  // Until a page of this service has been read, having cookies of the service counts as signed in.
  const bool known = loggedIn_.has_value() && loginService_ == config_.CallbookIndex;
  const bool in = known ? *loggedIn_ : !ServiceCookies().isEmpty();
  if (!in) return {SignInOffer::Kind::SignIn, signIn};
  return {SignInOffer::Kind::SignOut, tr("Sign out of %1").arg(config_.CallbookName)};
}

QUrl SignInSession::Url() const {
  const CallbookService* service = Service();
  return service == nullptr ? QUrl() : LoginUrl(*service, hosts_);
}

void SignInSession::TakeLogin(int service, bool loggedIn) {
  loggedIn_ = loggedIn;
  loginService_ = service;
  if (loggedIn) awaiting_ = false;
}

void SignInSession::Await() {
  awaiting_ = true;
  readsForCookies_ = 0;
  cookiesSeen_ = ServiceCookies();
}

void SignInSession::CookiesChanged() {
  if (!awaiting_) return;
  if (!isReading_()) readsForCookies_ = 0;
  cookieTimer_.start();
}

void SignInSession::CookiesSettled() {
  if (!awaiting_ || ServiceCookies() == cookiesSeen_) return;
  if (isReading_()) {
    cookieTimer_.start();
    return;
  }
  cookiesSeen_ = ServiceCookies();
  if (readsForCookies_ == kReadsForCookies) return;
  ++readsForCookies_;
  Q_EMIT ReadWanted();
}

void SignInSession::Close() {
  if (!awaiting_) return;
  awaiting_ = false;
  cookieTimer_.stop();
  Q_EMIT ReadWanted();
}

void SignInSession::SignOut() {
  const QUrl url = Url();
  if (!url.isValid()) return;
  awaiting_ = false;
  cookies_.RemoveOf(url);
  loggedIn_.reset();
  Q_EMIT SignedOut();
}
