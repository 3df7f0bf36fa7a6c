// SPDX-License-Identifier: GPL-3.0-or-later
#include "browser/engine/web_pages.h"

#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QWebEngineDownloadRequest>
#include <QWebEngineProfile>
#include <QtWebEngineQuick>

#include "browser/engine/page_view_window.h"
#include "browser/engine/profile_cookies.h"
#include "browser/engine/site_storage.h"
#include "browser/engine/web_page.h"
#include "browser/engine/web_window.h"

using namespace Qt::StringLiterals;

namespace {

// Makes the folder readable by the user alone before the first file is written to it, and closes an older one that was
// open to others.
void MakePrivateFolder(const QString& folder) {
  QDir().mkpath(QFileInfo(folder).path());
  QDir().mkdir(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

// The engine asks for this before the application object is made; for a library that is loaded later it is early enough
// before the first profile.
void StartEngine() {
  static bool started = false;
  if (std::exchange(started, true)) return;
  // The engine's sandbox works for users other than root only. Without this line root could not sign in anywhere.
  if (geteuid() == 0) qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
  // The engine keeps its pages from screen readers on Linux unless this is set. With it, it still builds their tree
  // only while the desktop has accessibility on: it asks Qt, and hears of changes.
  qputenv("QTWEBENGINE_ENABLE_LINUX_ACCESSIBILITY", "1");
  QtWebEngineQuick::initialize();
}

}  // namespace

BrowserPages::BrowserPages(const QString& profileFolder, WebPort& port) : port_(port) {
  StartEngine();
  MakePrivateFolder(profileFolder);
  profile_ = std::make_unique<QWebEngineProfile>(u"omni-perch"_s);
  profile_->setPersistentStoragePath(profileFolder);
  profile_->setHttpCacheType(QWebEngineProfile::MemoryHttpCache);
  // Only the program's own cookie file lasts from run to run: a file of the engine would bring back cookies that a
  // sign-out has removed.
  profile_->setPersistentCookiesPolicy(QWebEngineProfile::NoPersistentCookies);
  connect(profile_.get(), &QWebEngineProfile::downloadRequested, this, &BrowserPages::RefuseDownload);
  cookies_ = std::make_unique<ProfileCookies>(*profile_, port_);
  connect(cookies_.get(), &ProfileCookies::Ready, this, &BrowserPages::LoadWaiting);
  cookies_->Sync();
}

// The pages are deleted before their profile, otherwise the engine complains and leaves files half written.
BrowserPages::~BrowserPages() {
  BrowserPages::CloseAll();
  const QList<WebWindow*> closing = closing_;
  qDeleteAll(closing);
  delete view_;
  delete closingView_;
  qDeleteAll(findChildren<SiteStorage*>(Qt::FindDirectChildrenOnly));
}

void BrowserPages::OpenPage(const QString& title, const QUrl& url) {
  for (WebWindow* window : std::as_const(windows_)) {
    if (window->Title() != title) continue;
    window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
    window->raise();
    window->activateWindow();
    return;
  }
  if (!IsWebUrl(url)) return;
  auto* window = new WebWindow(title, profile_.get());
  windows_ += window;
  connect(window, &WebWindow::Closed, this, &BrowserPages::OnClosed);
  connect(window, &WebWindow::Visits, this, [this](const QUrl& site, const QUrl& to) { port_.PageVisits(site, to); });
  connect(window, &QObject::destroyed, this, [this, window]() { closing_.removeOne(window); });
  window->show();
  waiting_ += {window, url};
  LoadWaiting();
}

void BrowserPages::LoadWaiting() {
  if (!cookies_->IsReady() || !emptying_.isEmpty()) return;
  const QList<Waiting> waiting = std::exchange(waiting_, {});
  for (const Waiting& one : waiting) one.window->Load(one.url);
}

void BrowserPages::OnClosed(WebWindow* window) {
  if (!windows_.removeOne(window)) return;
  closing_ += window;
  waiting_.removeIf([window](const Waiting& one) { return one.window == window; });
  cookies_->Flush();
  port_.PageClosed(window->Title());
}

void BrowserPages::CloseAll() {
  const QList<WebWindow*> windows = windows_;
  for (WebWindow* window : windows) window->close();
  if (view_) view_->close();
}

void BrowserPages::OpenView(const QUrl& address, const PageViewTexts& texts) {
  if (!IsWebUrl(address)) return;
  if (!viewProfile_) {
    // A profile without a name keeps everything in memory, apart from the sign-ins of the other windows.
    viewProfile_ = std::make_unique<QWebEngineProfile>();
    connect(viewProfile_.get(), &QWebEngineProfile::downloadRequested, this, &BrowserPages::RefuseDownload);
  }
  if (!view_) {
    view_ = new frmStView(viewProfile_.get());
    connect(view_, &frmStView::PictureTaken, this,
            [this](PageViewAction action, const QImage& picture) { port_.TakePicture(action, picture, view_); });
    // A closed window is deleted later, and must not be shown again meanwhile.
    connect(view_, &frmStView::Closed, this, [this]() {
      view_->deleteLater();
      closingView_ = view_;
      view_.clear();
    });
  }
  view_->Open(address, texts);
}

void BrowserPages::SetViewTexts(const PageViewTexts& texts) {
  if (view_) view_->SetTexts(texts);
}

void BrowserPages::CloseSite(const QUrl& url) {
  const QList<WebWindow*> windows = windows_;
  for (WebWindow* window : windows)
    if (window->Shows(url.host())) window->close();
  cookies_->Flush();
}

void BrowserPages::ClearStorage(const QUrl& url) {
  if (!IsWebUrl(url)) return;
  profile_->clearHttpCache();
  profile_->clearAllVisitedLinks();
  auto* storage = new SiteStorage(url, profile_.get(), this);
  emptying_ += storage;
  connect(storage, &SiteStorage::Finished, this, &BrowserPages::OnEmptied);
}

void BrowserPages::OnEmptied(SiteStorage* storage) {
  if (!emptying_.removeOne(storage)) return;
  storage->deleteLater();
  LoadWaiting();
}

void BrowserPages::SyncCookies() {
  cookies_->Sync();
}

void BrowserPages::RefuseDownload(QWebEngineDownloadRequest* request) {
  request->cancel();
  auto* page = qobject_cast<WebPage*>(request->page());
  if (page) Q_EMIT page->Notice(tr("Not saved: %1").arg(request->suggestedFileName()));
}

extern "C" Q_DECL_EXPORT WebPages* OmniWebMakePages(const QString& profileFolder, WebPort& port) {
  return new BrowserPages(profileFolder, port);
}
