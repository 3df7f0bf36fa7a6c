// SPDX-License-Identifier: GPL-3.0-or-later
// Opens a callbook service's own login page in a browser window and tells the SignInSession when that window has been
// closed. Each window with a choice of service owns one.
#pragma once

#include <QUrl>
#include <QWidget>
#include <functional>

#include "browser/browser_windows.h"
#include "callbook/sign_in.h"
#include "ui/dialogs.h"

// The way to the login pages.
struct SignInBrowser {
  // The web library's browser windows (loads the library; nullptr if it cannot be loaded), and its removal of a
  // service's cookies at the end of a sign-in.
  std::function<BrowserWindows*()> browser;
  std::function<void(const QUrl&)> forget;
  Dialogs& dialogs;
};

// The sign-in of one window.
class SignInPage : public QObject {
  Q_OBJECT

 public:
  // session outlives the page.
  SignInPage(const SignInBrowser& browser, SignInSession& session, QWidget* window);

  // Does what the session offers.
  void SignInOrOut();

 private:
  void SignIn();
  void SignOut();
  void BrowserClosed(const QString& title);

  SignInBrowser browser_;
  SignInSession& session_;
  QWidget* window_;
  QString title_;  // of the browser window with the login page
};
