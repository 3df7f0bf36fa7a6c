// SPDX-License-Identifier: GPL-3.0-or-later
// One browser window: a page under a slim bar that shows whose page it is. web_pages makes them.
#pragma once

#include <QUrl>
#include <QWidget>

class QAction;
class QBoxLayout;
class QLabel;
class QLineEdit;
class QWebEngineProfile;
class QWebEngineView;
class WebPage;
struct WebWords;

class WebWindow : public QWidget {
  Q_OBJECT

 public:
  // The words are to outlive it.
  WebWindow(const QString& title, QWebEngineProfile* profile, const WebWords& words);

  const QString& Title() const { return title_; }
  bool Shows(const QString& host) const;  // a page of that host or of one below it
  void Load(const QUrl& url);

 Q_SIGNALS:
  void Closed(WebWindow* window);

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void MakeBar(QBoxLayout* bar);
  void ShowAddress(const QUrl& url);
  void ShowMenu(const QPoint& at);
  void OnDistrusted(const QString& host);
  void OnLoadStarted();
  void OnProcessEnded();
  void Tell(const QString& text);

  QString title_;
  const WebWords& words_;
  QUrl asked_;
  QString distrusted_;  // the last host whose certificate was refused
  QWebEngineView* view_;
  WebPage* page_;
  QLabel* lock_;
  QLineEdit* address_;
  QLabel* message_;
};
