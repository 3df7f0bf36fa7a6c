// SPDX-License-Identifier: GPL-3.0-or-later
// The wall between the program and the shared library omni_web: two plain interfaces and one function, so that neither
// side needs a symbol of the other. web_library stands on the program's side, browser/engine/web_pages on the
// library's.
#pragma once

#include <QList>
#include <QNetworkCookie>
#include <QString>
#include <QUrl>

#include "platform/net/cookie_store.h"

// The program's side.
class WebPort {
 public:
  virtual ~WebPort() = default;
  // The master copy: what the pages are to have.
  virtual QList<QNetworkCookie> Cookies() const = 0;
  // What pages did to cookies of theirs, in order. Their domains are told as in CookieStore::Add.
  virtual void TakeCookies(const QList<CookieChange>& changes) = 0;
  virtual void PageClosed(const QString& title) = 0;
  // A window that was opened on a page of site goes to another address, by a redirect too.
  virtual void PageVisits(const QUrl& site, const QUrl& url) = 0;
};

// The library's side.
class WebPages {
 public:
  virtual ~WebPages() = default;
  virtual void OpenPage(const QString& title, const QUrl& url) = 0;
  virtual void CloseAll() = 0;
  // Closes the windows that show the address's host and hands out the last that its pages did to cookies.
  virtual void CloseSite(const QUrl& url) = 0;
  // Empties the storage of the address's origin.
  virtual void ClearStorage(const QUrl& url) = 0;
  // The master copy has changed.
  virtual void SyncCookies() = 0;
};

// The library's one exported function. Made after the application object, destroyed before it.
using OmniWebMake = WebPages* (*)(const QString& profileFolder, WebPort& port);
inline constexpr const char* kOmniWebMake = "OmniWebMakePages";
