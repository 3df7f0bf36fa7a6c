// SPDX-License-Identifier: GPL-3.0-or-later
// What the program asks of its browser windows; web_library makes them. A window or a sign-in that shows a web page
// takes this, so that its test needs no browser.
#pragma once

#include <QImage>
#include <QObject>
#include <QString>
#include <QUrl>

#include "browser/page_view.h"

class QWidget;

// All browser windows, found by their titles.
class BrowserWindows : public QObject {
  Q_OBJECT

 public:
  using QObject::QObject;

  // Opens a window of its own on a page, or raises the window of that title as it is. The cookies that the pages set go
  // into the store, and the store's go to the pages. http and https only.
  virtual void OpenPage(const QString& title, const QUrl& url) = 0;
  // Ends a sign-in: closes the windows of the site, and removes what its pages and those that its windows have led
  // through have left, that is cookies (in the store too) and storage.
  virtual void Forget(const QUrl& url) = 0;
  virtual void CloseAll() = 0;
  // Opens frmStView on the monitor of the pointer, or shows the address in the open one. http and https only. Nothing
  // of it stays: neither cookies nor storage.
  virtual void OpenView(const QUrl& address, const PageViewTexts& texts) = 0;
  // The texts of the open frmStView in another language.
  virtual void SetViewTexts(const PageViewTexts& texts) = 0;

 Q_SIGNALS:
  // A window was closed by the user, by Forget or by CloseAll. All that its pages had set is in the store by then.
  void Closed(const QString& title);
  // A button of frmStView was pressed; picture: of the page within the frame; window: frmStView.
  void PictureTaken(PageViewAction action, const QImage& picture, QWidget* window);
};
