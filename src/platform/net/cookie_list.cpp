// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/net/cookie_list.h"

#include <QDateTime>
#include <QHash>
#include <QHostAddress>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool IsSafe(const QUrl& url) {
  return url.scheme() == "https"_L1;
}

bool HasExpired(const QNetworkCookie& cookie) {
  return !cookie.isSessionCookie() && cookie.expirationDate() <= QDateTime::currentDateTimeUtc();
}

QString WithoutDot(const QString& domain) {
  return domain.startsWith(u'.') ? domain.sliced(1) : domain;
}

// True if host is the name or a host below it. A numeric address is below no name.
bool IsWithin(const QString& host, const QString& name) {
  if (host == name) return true;
  return !name.isEmpty() && host.endsWith(u'.' + name) && QHostAddress(host).isNull();
}

bool GoesToHost(const QNetworkCookie& cookie, const QString& host) {
  const QString domain = cookie.domain();
  return domain.startsWith(u'.') ? IsWithin(host, domain.sliced(1)) : host == domain;
}

bool GoesToPath(const QNetworkCookie& cookie, const QString& path) {
  const QString own = cookie.path();
  if (!path.startsWith(own)) return false;
  return path.size() == own.size() || own.endsWith(u'/') || path[own.size()] == u'/';
}

QString PathOf(const QUrl& url) {
  const QString path = url.path(QUrl::FullyEncoded);
  return path.isEmpty() ? u"/"_s : path;
}

// Gives a cookie the form in which a line of the file gives it back: one spelling of the domain, whole seconds.
void Normalize(QNetworkCookie& cookie, const QString& host) {
  const QString domain = cookie.domain().isEmpty() ? host : cookie.domain();
  const QString name = QUrl::fromAce(QUrl::toAce(WithoutDot(domain)));
  cookie.setDomain(domain.startsWith(u'.') ? u'.' + name : name);
  if (!cookie.path().startsWith(u'/')) cookie.setPath(u"/"_s);
  if (!cookie.isSessionCookie()) {
    cookie.setExpirationDate(QDateTime::fromSecsSinceEpoch(cookie.expirationDate().toSecsSinceEpoch(), Qt::UTC));
  }
}

// True if a line of the file and the header of a request can hold the cookie, and the line gives it back as it is.
bool IsSound(const QNetworkCookie& cookie) {
  const QByteArray line = cookie.toRawForm();
  if (cookie.domain().size() < 2 || line.size() > CookieList::kMostBytes) return false;
  if (std::any_of(line.begin(), line.end(), [](char c) { return (c >= 0 && c < ' ') || c == '\x7F'; })) return false;
  const QList<QNetworkCookie> back = QNetworkCookie::parseCookies(line);
  return back.size() == 1 && back.first() == cookie;
}

}  // namespace

QList<QNetworkCookie> CookieList::All() const {
  QList<QNetworkCookie> all = cookies_;
  all.removeIf(HasExpired);
  return all;
}

QList<QNetworkCookie> CookieList::For(const QUrl& url) const {
  const QString host = url.host();
  const QString path = PathOf(url);
  QList<QNetworkCookie> fitting;
  for (const QNetworkCookie& cookie : cookies_) {
    if (cookie.isSecure() && !IsSafe(url)) continue;
    if (GoesToHost(cookie, host) && GoesToPath(cookie, path) && !HasExpired(cookie)) fitting += cookie;
  }
  std::stable_sort(fitting.begin(), fitting.end(),
                   [](const QNetworkCookie& a, const QNetworkCookie& b) { return a.path().size() > b.path().size(); });
  return fitting;
}

QByteArray CookieList::HeaderFor(const QUrl& url) const {
  QByteArrayList pairs;
  const QList<QNetworkCookie> fitting = For(url);
  for (const QNetworkCookie& cookie : fitting) pairs += cookie.toRawForm(QNetworkCookie::NameAndValueOnly);
  return pairs.join("; ");
}

bool CookieList::Add(QNetworkCookie cookie, const QString& host) {
  Normalize(cookie, host);
  if (HasExpired(cookie)) return Remove(cookie);
  if (cookies_.contains(cookie) || !IsSound(cookie)) return false;
  Remove(cookie);
  cookies_ += cookie;
  DropSurplus();
  return true;
}

bool CookieList::Remove(QNetworkCookie cookie) {
  Normalize(cookie, {});
  return cookies_.removeIf([&cookie](const QNetworkCookie& known) { return known.hasSameIdentifier(cookie); }) > 0;
}

bool CookieList::RemoveOf(const QString& host) {
  QStringList names = {host};
  for (const QNetworkCookie& cookie : std::as_const(cookies_)) {
    if (cookie.domain().startsWith(u'.') && GoesToHost(cookie, host)) names += WithoutDot(cookie.domain());
  }
  const auto isOfSite = [&names](const QNetworkCookie& cookie) {
    const QString own = WithoutDot(cookie.domain());
    return std::any_of(names.begin() + 1, names.end(), [&own](const QString& name) { return IsWithin(own, name); }) ||
           own == names.first();
  };
  return cookies_.removeIf(isOfSite) > 0;
}

bool CookieList::Renew(const QUrl& url, const QList<QNetworkCookie>& received) {
  bool changed = false;
  for (const QNetworkCookie& cookie : received) changed = RenewOne(url, cookie) || changed;
  return changed;
}

bool CookieList::RenewOne(const QUrl& url, QNetworkCookie cookie) {
  const QString host = url.host();
  if (!cookie.domain().isEmpty()) {
    const QString name = WithoutDot(cookie.domain()).toLower();
    if (!IsWithin(host, name)) return false;
    cookie.setDomain(QHostAddress(host).isNull() ? u'.' + name : host);
  }
  if (!cookie.path().startsWith(u'/')) {
    const QString path = PathOf(url);
    cookie.setPath(path.first(std::max<qsizetype>(path.lastIndexOf(u'/'), 1)));
  }
  Normalize(cookie, host);
  // Somebody who can change an unencrypted answer must not change a cookie that came in an encrypted one.
  if (!IsSafe(url)) {
    const bool guarded = std::any_of(cookies_.cbegin(), cookies_.cend(), [&cookie](const QNetworkCookie& known) {
      return known.isSecure() && known.hasSameIdentifier(cookie);
    });
    if (guarded || cookie.isSecure()) return false;
  }
  return Holds(cookie.domain(), IsSafe(url)) && Add(cookie, host);
}

bool CookieList::Holds(const QString& domain, bool secure) const {
  return std::any_of(cookies_.cbegin(), cookies_.cend(), [&domain, secure](const QNetworkCookie& known) {
    return known.domain() == domain && (secure || !known.isSecure()) && !HasExpired(known);
  });
}

// Drops the oldest cookie of the domain that has most of them, so that a site that sets too many loses its own.
void CookieList::DropSurplus() {
  while (cookies_.size() > kMostCookies) {
    QHash<QString, int> counts;
    QString most;
    for (const QNetworkCookie& cookie : std::as_const(cookies_)) {
      if (++counts[cookie.domain()] > counts.value(most)) most = cookie.domain();
    }
    const auto oldest = std::find_if(cookies_.cbegin(), cookies_.cend(),
                                     [&most](const QNetworkCookie& cookie) { return cookie.domain() == most; });
    cookies_.erase(oldest);
  }
}
