// SPDX-License-Identifier: GPL-3.0-or-later
// The boundary between the program and the shared library omni_web: two plain interfaces and one function, so that
// neither side needs a symbol of the other. web_library implements the program's side, browser/engine/web_pages the
// library's.
#pragma once

#include <QImage>
#include <QList>
#include <QNetworkCookie>
#include <QString>
#include <QUrl>

#include "browser/page_view.h"
#include "platform/net/cookie_store.h"

class QWidget;

// What the library calls in the program.
class WebPort {
 public:
  virtual ~WebPort() = default;
  // The program's cookies, the master copy of those of the pages.
  virtual QList<QNetworkCookie> Cookies() const = 0;
  // Changes that pages have made to their cookies, in order. The domains are as in CookieList.
  virtual void TakeCookies(const QList<CookieChange>& changes) = 0;
  virtual void PageClosed(const QString& title) = 0;
  // A window that was opened on a page of site goes to another address, perhaps by a redirect.
  virtual void PageVisits(const QUrl& site, const QUrl& url) = 0;
  virtual void TakePicture(PageViewAction action, const QImage& picture, QWidget* window) = 0;
};

// What the program calls in the library.
class WebPages {
 public:
  virtual ~WebPages() = default;
  virtual void OpenPage(const QString& title, const QUrl& url) = 0;
  virtual void CloseAll() = 0;
  // Closes the windows that show the address's host, and hands the last changes of their cookies to the port.
  virtual void CloseSite(const QUrl& url) = 0;
  // Empties the storage of the address's origin.
  virtual void ClearStorage(const QUrl& url) = 0;
  // Takes over the program's cookies, which have changed.
  virtual void SyncCookies() = 0;
  virtual void OpenView(const QUrl& address, const PageViewTexts& texts) = 0;
  virtual void SetViewTexts(const PageViewTexts& texts) = 0;
};

// The library's one exported function. Made after the application object, destroyed before it.
using OmniWebMake = WebPages* (*)(const QString& profileFolder, WebPort& port);
inline constexpr const char* kOmniWebMake = "OmniWebMakePages";
