// SPDX-License-Identifier: GPL-3.0-or-later
#include "callbook/sign_in_page.h"

SignInPage::SignInPage(const SignInBrowser& browser, SignInSession& session, QWidget* window)
    : browser_(browser), session_(session), window_(window) {}

void SignInPage::SignInOrOut() {
  switch (session_.Offer().kind) {
    case SignInOffer::Kind::SignIn:
      SignIn();
      break;
    case SignInOffer::Kind::SignOut:
      SignOut();
      break;
    case SignInOffer::Kind::None:
      break;
  }
}

void SignInPage::SignIn() {
  BrowserWindows* browser = browser_.browser();
  if (browser == nullptr) {
    browser_.dialogs.Inform(window_, tr("The window for web pages could not be opened."), true);
    return;
  }
  connect(browser, &BrowserWindows::Closed, this, &SignInPage::BrowserClosed, Qt::UniqueConnection);
  title_ = session_.ServiceName();
  session_.Await();
  browser->OpenPage(title_, session_.Url());
}

void SignInPage::BrowserClosed(const QString& title) {
  if (title == title_) session_.Close();
}

void SignInPage::SignOut() {
  // The browser windows keep cookies of their own, which must be removed first, or they would come back from there.
  browser_.forget(session_.Url());
  session_.SignOut();
}
