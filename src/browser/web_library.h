// SPDX-License-Identifier: GPL-3.0-or-later
// Browser windows out of the shared library omni_web, which is loaded when the first of them opens, so that the program
// itself does not pay for a browser. main makes one of these.
#pragma once

#include <memory>

#include "browser/browser_windows.h"
#include "platform/net/cookie_store.h"

// Makes the browser windows at the first call and keeps them; nullptr where the library cannot be loaded. Destroy it
// before the application object and before the store.
class WebLibrary {
 public:
  // libraryFolder: the program's own folder; profileFolder: made at need, for the user alone.
  WebLibrary(QString libraryFolder, QString profileFolder, CookieStore& cookies);
  ~WebLibrary();

  BrowserWindows* Windows();
  bool IsLoaded() const { return windows_ != nullptr; }
  // The end of a sign-in: what BrowserWindows::Forget does, without loading a browser that never ran.
  void Forget(const QUrl& url);

 private:
  QString libraryFolder_;
  QString profileFolder_;
  CookieStore& cookies_;
  std::unique_ptr<BrowserWindows> windows_;
};
