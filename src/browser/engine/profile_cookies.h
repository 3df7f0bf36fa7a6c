// SPDX-License-Identifier: GPL-3.0-or-later
// Keeps the cookies of the browser profile and the program's own cookies equal, in both directions. web_pages owns it.
#pragma once

#include <QList>
#include <QNetworkCookie>
#include <QObject>
#include <QTimer>

#include "browser/web_port.h"

class QWebEngineProfile;

// The cookies of one browser profile.
class ProfileCookies : public QObject {
  Q_OBJECT

 public:
  // The profile must outlive this object.
  ProfileCookies(QWebEngineProfile& profile, WebPort& port, QObject* parent = nullptr);
  ~ProfileCookies() override;

  // Hands the changes that the pages have made so far to the program, then gives the profile the program's cookies.
  void Sync();
  // Hands the pages' changes to the program now.
  void Flush();
  // True if the profile has confirmed all cookies that Sync gave it. A page that is loaded earlier may be read without
  // them.
  bool IsReady() const { return awaited_.isEmpty(); }

 Q_SIGNALS:
  // Raised soon after a Sync behind which IsReady was false.
  void Ready();

 private:
  void OnAdded(const QNetworkCookie& cookie);
  void OnRemoved(const QNetworkCookie& cookie);
  void Put(const QNetworkCookie& cookie);
  void SetReady();

  QWebEngineProfile& profile_;
  WebPort& port_;
  QList<QNetworkCookie> held_;     // the cookies that the profile has, or is about to have
  QList<QNetworkCookie> awaited_;  // given to the profile and not confirmed
  QList<CookieChange> pending_;    // made by pages and not handed to the program
  QTimer flush_;
  QTimer patience_;
};
