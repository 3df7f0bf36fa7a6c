// SPDX-License-Identifier: GPL-3.0-or-later
// Keeps the browser profile's cookies and the program's own alike, in both directions. web_pages owns it.
#pragma once

#include <QList>
#include <QNetworkCookie>
#include <QObject>
#include <QTimer>

#include "browser/web_port.h"

class QWebEngineProfile;

class ProfileCookies : public QObject {
  Q_OBJECT

 public:
  // The profile is to outlive it.
  ProfileCookies(QWebEngineProfile& profile, WebPort& port, QObject* parent = nullptr);
  ~ProfileCookies() override;

  // Makes the profile's cookies the program's, which first gets what the pages have changed meanwhile.
  void Sync();
  // Hands the pages' changes to the program now.
  void Flush();
  // The profile has told that it holds what Sync gave it; a page that is loaded earlier may go without.
  bool IsReady() const { return awaited_.isEmpty(); }

 Q_SIGNALS:
  // Soon after a Sync that left it not ready.
  void Ready();

 private:
  void OnAdded(const QNetworkCookie& cookie);
  void OnRemoved(const QNetworkCookie& cookie);
  void Put(const QNetworkCookie& cookie);
  void SetReady();

  QWebEngineProfile& profile_;
  WebPort& port_;
  QList<QNetworkCookie> held_;  // what the profile has, or is about to have
  QList<QNetworkCookie> awaited_;
  QList<CookieChange> pending_;
  QTimer flush_;
  QTimer patience_;
};
