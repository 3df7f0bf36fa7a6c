// SPDX-License-Identifier: GPL-3.0-or-later
// Removes what pages of one origin have stored in the browser beside cookies. web_pages makes one when a site is to be
// forgotten.
#pragma once

#include <QTimer>
#include <QUrl>
#include <QWebEnginePage>

// An empty page that belongs to the origin without asking its server for anything: only a page of the origin itself can
// remove what the origin has stored.
class SiteStorage : public QWebEnginePage {
  Q_OBJECT

 public:
  SiteStorage(const QUrl& url, QWebEngineProfile* profile, QObject* parent);

 Q_SIGNALS:
  // The storage is empty, or it was given up after a few seconds. The object may be deleted now.
  void Finished(SiteStorage* storage);

 private:
  void OnLoaded();
  void OnTitle(const QString& title);
  void Finish();

  QTimer patience_;
};
