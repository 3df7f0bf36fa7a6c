// SPDX-License-Identifier: GPL-3.0-or-later
// One browser window: a page under a slim bar that shows whose page it is. web_pages makes them.
#pragma once

#include <QUrl>
#include <QWidget>

class QAction;
class QBoxLayout;
class QLabel;
class QLineEdit;
class QToolButton;
class QWebEngineProfile;
class QWebEngineView;
class WebPage;

// A window of its own for one page.
class WebWindow : public QWidget {
  Q_OBJECT

 public:
  WebWindow(const QString& title, QWebEngineProfile* profile);

  const QString& Title() const { return title_; }
  bool Shows(const QString& host) const;  // the page is of that host or of one below it
  void Load(const QUrl& url);

 Q_SIGNALS:
  void Closed(WebWindow* window);
  // site: the page that the window was opened on.
  void Visits(const QUrl& site, const QUrl& url);

 protected:
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void MakeBar(QBoxLayout* bar);
  // Shows every text of the window in the present language.
  void ShowTexts();
  void ShowAddress(const QUrl& url);
  void ShowMenu(const QPoint& at);
  void OnDistrusted(const QString& host);
  void OnLoadStarted();
  void OnProcessEnded();
  void ShowNotice(const QString& text);

  QString title_;
  QUrl asked_;          // the page that the window was opened on
  QUrl shown_;          // the address in the bar
  QString distrusted_;  // the last host whose certificate was refused
  QWebEngineView* view_;
  WebPage* page_;
  QToolButton* back_;
  QToolButton* reload_;
  QLabel* lock_;
  QLineEdit* address_;
  QLabel* message_;
};
