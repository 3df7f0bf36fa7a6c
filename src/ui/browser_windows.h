// SPDX-License-Identifier: GPL-3.0-or-later
// What the program asks of its browser windows. They live in the shared library omni_web, which is loaded when the first
// of them opens, so that the program itself does not pay for a browser.
#pragma once

#include <QObject>
#include <QString>
#include <QUrl>

#include "platform/cookie_store.h"

class BrowserWindows : public QObject {
  Q_OBJECT

 public:
  using QObject::QObject;

  // Opens a window of its own on a page, or raises the one that shows a page of that title. The cookies that the pages
  // set go into the store, and the store's go to the pages.
  virtual void OpenPage(const QString& title, const QUrl& url) = 0;
  // Removes what the pages of an address have left in the browser: cookies, storage.
  virtual void Forget(const QUrl& url) = 0;
  virtual void CloseAll() = 0;

 Q_SIGNALS:
  // A window was closed by the user or by CloseAll.
  void Closed(const QString& title);
};

// Makes the browser windows at the first call and keeps them; nullptr where the library cannot be loaded. Destroy it
// before the application object.
class WebLibrary {
 public:
  // libraryFolder: where the program itself lies; profileFolder: made at need, for the user alone.
  WebLibrary(QString libraryFolder, QString profileFolder, CookieStore& cookies);
  ~WebLibrary();

  BrowserWindows* Windows();
  bool IsLoaded() const { return windows_ != nullptr; }

 private:
  QString libraryFolder_;
  QString profileFolder_;
  CookieStore& cookies_;
  BrowserWindows* windows_ = nullptr;
};
