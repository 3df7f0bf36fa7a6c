// SPDX-License-Identifier: GPL-3.0-or-later
#include "browser/engine/site_storage.h"

using namespace Qt::StringLiterals;

namespace {

constexpr auto kDone = "emptied"_L1;
// How long it may take: the deletion of a database waits as long as a page holds it open.
constexpr std::chrono::seconds kPatience(5);

}  // namespace

SiteStorage::SiteStorage(const QUrl& url, QWebEngineProfile* profile, QObject* parent)
    : QWebEnginePage(profile, parent), patience_(this) {
  patience_.setSingleShot(true);
  connect(&patience_, &QTimer::timeout, this, &SiteStorage::Finish);
  patience_.start(kPatience);
  connect(this, &QWebEnginePage::loadFinished, this, &SiteStorage::OnLoaded);
  connect(this, &QWebEnginePage::titleChanged, this, &SiteStorage::OnTitle);
  setHtml(u"<title>emptying</title>"_s, url.resolved(QUrl(u"/"_s)));
}

void SiteStorage::OnLoaded() {
  runJavaScript(
      uR"(
    (async () => {
      const tries = [
        async () => localStorage.clear(),
        async () => sessionStorage.clear(),
        async () => Promise.all((await indexedDB.databases()).map(base => new Promise(done => {
          const request = indexedDB.deleteDatabase(base.name);
          request.onsuccess = request.onerror = request.onblocked = done;
        }))),
        async () => Promise.all((await caches.keys()).map(name => caches.delete(name))),
        async () => Promise.all((await navigator.serviceWorker.getRegistrations()).map(one => one.unregister())),
      ];
      // Some of these do not exist on an unencrypted origin.
      for (const attempt of tries) { try { await attempt(); } catch (e) {} }
      document.title = "emptied";
    })();
  )"_s);
}

void SiteStorage::OnTitle(const QString& title) {
  if (title == kDone) Finish();
}

void SiteStorage::Finish() {
  patience_.stop();
  Q_EMIT Finished(this);
}
