// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/net/cookie_store.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

using namespace Qt::StringLiterals;

namespace {

constexpr QFile::Permissions kUserAlone = QFile::ReadOwner | QFile::WriteOwner;

}  // namespace

CookieStore::CookieStore(const QString& appDataDir, QObject* parent)
    : QObject(parent), path_(appDataDir + u"/cookies"_s) {
  Read();
}

void CookieStore::Read() {
  QFile file(path_);
  if (!file.open(QIODevice::ReadOnly)) {
    unreadable_ = QFileInfo::exists(path_);
    return;
  }
  // A file that was restored from a backup may have wider permissions.
  if (file.permissions() & (QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther))
    file.setPermissions(kUserAlone);
  // Whatever the file is, read no more of it than a full file of ours can have.
  constexpr qint64 kMostSteps = SignInTrail::kMostSites * SignInTrail::kMostOfSite;
  constexpr qint64 kMostRead = CookieList::kMostCookies * (CookieList::kMostBytes + 1) + kMostSteps * 1024;
  const QByteArray bytes = file.read(kMostRead);
  if (file.error() != QFileDevice::NoError) {
    unreadable_ = true;
    return;
  }
  const QByteArrayList lines = bytes.split('\n');
  for (const QByteArray& line : lines) {
    if (line.startsWith(SignInTrail::kMark)) {
      trail_.AddLine(line.trimmed());
      continue;
    }
    const QList<QNetworkCookie> cookies = QNetworkCookie::parseCookies(line.trimmed());
    if (cookies.size() == 1) list_.Add(cookies.first(), QString());
  }
}

// One cookie a line, in the form of a Set-Cookie header; before them the steps of the sign-ins.
bool CookieStore::Write() const {
  QDir().mkpath(QFileInfo(path_).path());
  QByteArray bytes;
  const QByteArrayList steps = trail_.Lines();
  for (const QByteArray& step : steps) bytes += step + '\n';
  const QList<QNetworkCookie> cookies = All();
  for (const QNetworkCookie& cookie : cookies) bytes += cookie.toRawForm() + '\n';
  QSaveFile file(path_);
  // The permissions are set before the first byte is written: QSaveFile takes those of an older file, which may be
  // wider.
  return file.open(QIODevice::WriteOnly) && file.setPermissions(kUserAlone) && file.write(bytes) == bytes.size() &&
         file.flush() && file.commit();
}

QList<QNetworkCookie> CookieStore::All() const {
  return list_.All();
}

QList<QNetworkCookie> CookieStore::CookiesFor(const QUrl& url) const {
  return list_.For(url);
}

void CookieStore::Add(const QNetworkCookie& cookie, const QString& host) {
  Finish(list_.Add(cookie, host));
}

void CookieStore::Remove(const QNetworkCookie& cookie) {
  Finish(list_.Remove(cookie));
}

void CookieStore::RemoveOf(const QUrl& url) {
  bool changed = list_.RemoveOf(url.host());
  const QList<QUrl> visited = trail_.VisitedFrom(url);
  for (const QUrl& origin : visited) changed = list_.RemoveOf(origin.host()) || changed;
  trail_.Remove(url);
  Finish(changed);
}

void CookieStore::Apply(const QList<CookieChange>& changes) {
  bool changed = false;
  for (const CookieChange& change : changes) {
    const bool did = change.removed ? list_.Remove(change.cookie) : list_.Add(change.cookie, QString());
    changed = changed || did;
  }
  Finish(changed);
}

void CookieStore::Renew(const QUrl& url, const QList<QNetworkCookie>& received) {
  Finish(list_.Renew(url, received));
}

// A full disk loses a sign-in for the next run only: in this run the list goes on, and the next change writes all of
// it.
void CookieStore::Finish(bool changed) {
  if (!changed) return;
  if (!unreadable_) Write();
  Q_EMIT Changed();
}
