// SPDX-License-Identifier: GPL-3.0-or-later
#include "browser/engine/web_page.h"

#include <QWebEngineCertificateError>
#include <QWebEngineNewWindowRequest>
#include <QWebEngineSettings>

using namespace Qt::StringLiterals;

bool IsWebUrl(const QUrl& url) {
  const QString scheme = url.scheme();
  return url.isValid() && !url.host().isEmpty() && (scheme == "http"_L1 || scheme == "https"_L1);
}

WebPage::WebPage(QWebEngineProfile* profile, QObject* parent) : QWebEnginePage(profile, parent) {
  QWebEngineSettings* own = settings();
  own->setAttribute(QWebEngineSettings::JavascriptCanOpenWindows, false);
  own->setAttribute(QWebEngineSettings::PluginsEnabled, false);
  own->setAttribute(QWebEngineSettings::LocalContentCanAccessFileUrls, false);
  own->setAttribute(QWebEngineSettings::HyperlinkAuditingEnabled, false);
  own->setAttribute(QWebEngineSettings::AutoLoadIconsForPage, false);  // nothing shows them
  own->setUnknownUrlSchemePolicy(QWebEngineSettings::DisallowUnknownUrlSchemes);
  connect(this, &QWebEnginePage::featurePermissionRequested, this, &WebPage::RefuseFeature);
  connect(this, &QWebEnginePage::certificateError, this, &WebPage::RefuseCertificate);
  connect(this, &QWebEnginePage::newWindowRequested, this, &WebPage::OpenHere);
}

bool WebPage::acceptNavigationRequest(const QUrl& url, NavigationType, bool isMainFrame) {
  if (IsWebUrl(url)) {
    if (isMainFrame) Q_EMIT Visits(url);
    return true;
  }
  // Documents that a page writes into its own frames.
  const QString scheme = url.scheme();
  if (!isMainFrame && (scheme == "about"_L1 || scheme == "data"_L1 || scheme == "blob"_L1)) return true;
  if (isMainFrame) Q_EMIT Notice(tr("Not opened: %1").arg(url.toDisplayString().left(200)));
  return false;
}

QStringList WebPage::chooseFiles(FileSelectionMode, const QStringList&, const QStringList&) {
  Q_EMIT Notice(tr("Pages get no files here."));
  return {};
}

// A message box would hold up the whole program for the sake of a page: its text is shown in the window instead.
void WebPage::javaScriptAlert(const QUrl&, const QString& text) {
  Q_EMIT Notice(text.simplified());
}

bool WebPage::javaScriptConfirm(const QUrl&, const QString& text) {
  Q_EMIT Notice(tr("Answered with no: %1").arg(text.simplified()));
  return false;
}

bool WebPage::javaScriptPrompt(const QUrl&, const QString& text, const QString&, QString*) {
  Q_EMIT Notice(tr("Not answered: %1").arg(text.simplified()));
  return false;
}

// The console messages of strangers' pages do not go to the user's terminal.
void WebPage::javaScriptConsoleMessage(JavaScriptConsoleMessageLevel, const QString&, int, const QString&) {}

void WebPage::RefuseFeature(const QUrl& origin, QWebEnginePage::Feature feature) {
  setFeaturePermission(origin, feature, PermissionDeniedByUser);
}

void WebPage::RefuseCertificate(const QWebEngineCertificateError& error) {
  QWebEngineCertificateError(error).rejectCertificate();
  Q_EMIT Distrusted(error.url().host());
  const QString what = error.url().host() + u": "_s + error.description();
  Q_EMIT Notice(tr("Refused, its certificate does not hold: %1").arg(what));
}

// A link that would open a window goes on in this one. A script that opens windows unasked opens none.
void WebPage::OpenHere(const QWebEngineNewWindowRequest& request) {
  if (request.isUserInitiated() && IsWebUrl(request.requestedUrl())) setUrl(request.requestedUrl());
}
