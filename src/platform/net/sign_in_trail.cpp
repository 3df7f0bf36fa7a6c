// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/net/sign_in_trail.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QUrl OriginOf(const QUrl& url) {
  return url.adjusted(QUrl::RemoveUserInfo | QUrl::RemovePath | QUrl::RemoveQuery | QUrl::RemoveFragment);
}

bool IsWeb(const QUrl& url) {
  return url.isValid() && !url.host().isEmpty() && (url.scheme() == "http"_L1 || url.scheme() == "https"_L1);
}

}  // namespace

void SignInTrail::Add(const QUrl& site, const QUrl& visited) {
  if (IsWeb(site) && IsWeb(visited)) AddStep(site.host(), OriginOf(visited));
}

void SignInTrail::AddStep(const QString& host, const QUrl& visited) {
  QList<QUrl>& steps = SiteOf(host).visited;
  steps.removeOne(visited);
  steps += visited;
  if (steps.size() > kMostOfSite) steps.removeFirst();
}

// Returns the entry of a site, and moves it to the end of the list as the one that was used last.
SignInTrail::Site& SignInTrail::SiteOf(const QString& host) {
  const auto found =
      std::find_if(sites_.begin(), sites_.end(), [&host](const Site& site) { return site.host == host; });
  if (found != sites_.end()) {
    std::rotate(found, found + 1, sites_.end());
  } else {
    sites_ += {host, {}};
    if (sites_.size() > kMostSites) sites_.removeFirst();
  }
  return sites_.last();
}

QList<QUrl> SignInTrail::VisitedFrom(const QUrl& site) const {
  QList<QUrl> visited;
  for (const Site& one : sites_)
    if (one.host == site.host()) visited = one.visited;
  visited.removeIf([this](const QUrl& origin) {
    return std::any_of(sites_.begin(), sites_.end(), [&origin](const Site& one) { return one.host == origin.host(); });
  });
  return visited;
}

void SignInTrail::Remove(const QUrl& site) {
  sites_.removeIf([&site](const Site& one) { return one.host == site.host(); });
}

QByteArrayList SignInTrail::Lines() const {
  QByteArrayList lines;
  for (const Site& site : sites_)
    for (const QUrl& origin : site.visited) lines += kMark + QUrl::toAce(site.host) + ' ' + origin.toEncoded();
  return lines;
}

void SignInTrail::AddLine(const QByteArray& line) {
  const QByteArrayList words = line.split(' ');
  if (words.size() != 2 || !words.first().startsWith(kMark)) return;
  const QString host = QUrl::fromAce(words.first().sliced(1));
  const QUrl visited = QUrl::fromEncoded(words.last());
  if (!host.isEmpty() && IsWeb(visited)) AddStep(host, OriginOf(visited));
}
