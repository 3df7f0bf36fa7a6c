// SPDX-License-Identifier: GPL-3.0-or-later
// The browser: one profile in the data folder, its cookies, and the windows on it. The program gets it from the
// exported function at the end of web_pages.cpp.
#pragma once

#include <QList>
#include <QObject>
#include <QPointer>
#include <memory>

#include "browser/web_port.h"

class ProfileCookies;
class SiteStorage;
class frmStView;
class QWebEngineDownloadRequest;
class QWebEngineProfile;
class WebWindow;

// The library's side of web_port. It has no password store, and neither has the engine: what a user types goes to the
// page and nowhere else.
class BrowserPages : public QObject, public WebPages {
  Q_OBJECT

 public:
  BrowserPages(const QString& profileFolder, WebPort& port);
  ~BrowserPages() override;

  void OpenPage(const QString& title, const QUrl& url) override;
  void CloseAll() override;
  void CloseSite(const QUrl& url) override;
  void ClearStorage(const QUrl& url) override;
  void SyncCookies() override;
  void OpenView(const QUrl& address, const PageViewTexts& texts) override;
  void SetViewTexts(const PageViewTexts& texts) override;

 private:
  // A window that has not begun to load, and its address.
  struct Waiting {
    WebWindow* window = nullptr;
    QUrl url;
  };

  // Loads the windows that wait, once the profile has its cookies and no storage is being emptied.
  void LoadWaiting();
  void OnEmptied(SiteStorage* storage);
  void OnClosed(WebWindow* window);
  void RefuseDownload(QWebEngineDownloadRequest* request);

  WebPort& port_;
  std::unique_ptr<QWebEngineProfile> profile_;
  std::unique_ptr<ProfileCookies> cookies_;
  QList<WebWindow*> windows_;  // not closed
  QList<WebWindow*> closing_;  // closed, and deleted soon
  QList<SiteStorage*> emptying_;
  QList<Waiting> waiting_;
  std::unique_ptr<QWebEngineProfile> viewProfile_;  // of frmStView; nothing of it is stored
  QPointer<frmStView> view_;
  QPointer<frmStView> closingView_;  // closed, and deleted soon; before its profile in any case
};
