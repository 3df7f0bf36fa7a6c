// SPDX-License-Identifier: GPL-3.0-or-later
#include "browser/engine/profile_cookies.h"

#include <QDateTime>
#include <QWebEngineCookieStore>
#include <QWebEngineProfile>
#include <algorithm>
#include <chrono>
#include <utility>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

// A page sets a handful of cookies at once: one write of the file is enough for them.
constexpr auto kGather = 50ms;
// How long the profile is waited for: a cookie that it refuses is never confirmed.
constexpr auto kPatience = 500ms;

// True if a page sees no difference. Ends are compared in whole seconds, as the program's file has them.
bool IsSame(const QNetworkCookie& a, const QNetworkCookie& b) {
  if (!a.hasSameIdentifier(b) || a.value() != b.value() || a.isSecure() != b.isSecure()) return false;
  if (a.isSessionCookie() || b.isSessionCookie()) return a.isSessionCookie() == b.isSessionCookie();
  return a.expirationDate().toSecsSinceEpoch() == b.expirationDate().toSecsSinceEpoch();
}

void RemoveFrom(QList<QNetworkCookie>& list, const QNetworkCookie& cookie) {
  list.removeIf([&cookie](const QNetworkCookie& known) { return known.hasSameIdentifier(cookie); });
}

// An address that the cookie may have come from. Always https: from an http address a cookie could neither be secure
// nor take the place of a secure one.
QUrl OriginOf(const QNetworkCookie& cookie) {
  QUrl url;
  url.setScheme(u"https"_s);
  const QString domain = cookie.domain();
  url.setHost(domain.startsWith(u'.') ? domain.sliced(1) : domain);
  url.setPath(cookie.path());
  return url;
}

}  // namespace

ProfileCookies::ProfileCookies(QWebEngineProfile& profile, WebPort& port, QObject* parent)
    : QObject(parent), profile_(profile), port_(port), flush_(this), patience_(this) {
  flush_.setSingleShot(true);
  patience_.setSingleShot(true);
  connect(&flush_, &QTimer::timeout, this, &ProfileCookies::Flush);
  connect(&patience_, &QTimer::timeout, this, &ProfileCookies::SetReady);
  QWebEngineCookieStore* store = profile_.cookieStore();
  // Only the site in the address line may set cookies, none of the sites that it embeds.
  store->setCookieFilter([](const QWebEngineCookieStore::FilterRequest& request) { return !request.thirdParty; });
  connect(store, &QWebEngineCookieStore::cookieAdded, this, &ProfileCookies::OnAdded);
  connect(store, &QWebEngineCookieStore::cookieRemoved, this, &ProfileCookies::OnRemoved);
}

ProfileCookies::~ProfileCookies() {
  profile_.cookieStore()->disconnect(this);
  Flush();
}

void ProfileCookies::Sync() {
  Flush();
  const QList<QNetworkCookie> wanted = port_.Cookies();
  const QList<QNetworkCookie> held = held_;
  for (const QNetworkCookie& cookie : held) {
    const auto isIt = [&cookie](const QNetworkCookie& other) { return other.hasSameIdentifier(cookie); };
    if (std::any_of(wanted.begin(), wanted.end(), isIt)) continue;
    RemoveFrom(held_, cookie);
    profile_.cookieStore()->deleteCookie(cookie, OriginOf(cookie));
  }
  for (const QNetworkCookie& cookie : wanted) {
    const auto isIt = [&cookie](const QNetworkCookie& other) { return IsSame(other, cookie); };
    if (std::none_of(held_.cbegin(), held_.cend(), isIt)) Put(cookie);
  }
}

void ProfileCookies::Put(const QNetworkCookie& cookie) {
  RemoveFrom(held_, cookie);
  held_ += cookie;
  RemoveFrom(awaited_, cookie);
  awaited_ += cookie;
  patience_.start(kPatience);
  QNetworkCookie put = cookie;
  // With a domain the engine would send it to all hosts below that.
  if (!cookie.domain().startsWith(u'.')) put.setDomain({});
  profile_.cookieStore()->setCookie(put, OriginOf(cookie));
}

void ProfileCookies::OnAdded(const QNetworkCookie& cookie) {
  // The profile confirms a cookie that came from the store. It must not go back there, because the store may have
  // removed it meanwhile.
  const auto isIt = [&cookie](const QNetworkCookie& put) { return IsSame(put, cookie); };
  if (std::any_of(awaited_.cbegin(), awaited_.cend(), isIt)) {
    RemoveFrom(awaited_, cookie);
    if (awaited_.isEmpty()) SetReady();
    return;
  }
  RemoveFrom(held_, cookie);
  held_ += cookie;
  pending_ += {cookie, false};
  if (!flush_.isActive()) flush_.start(kGather);
}

// The engine raises this before each replacement too, and cookieAdded follows then.
void ProfileCookies::OnRemoved(const QNetworkCookie& cookie) {
  RemoveFrom(held_, cookie);
  pending_ += {cookie, true};
  if (!flush_.isActive()) flush_.start(kGather);
}

void ProfileCookies::Flush() {
  flush_.stop();
  if (!pending_.isEmpty()) port_.TakeCookies(std::exchange(pending_, {}));
}

void ProfileCookies::SetReady() {
  patience_.stop();
  awaited_.clear();
  Q_EMIT Ready();
}
