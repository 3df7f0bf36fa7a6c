// SPDX-License-Identifier: GPL-3.0-or-later
// A page that can do what reading and signing in need, and nothing else: no other scheme than http and https, no file,
// no download, no window, no device, no certificate that does not hold. web_window shows one.
#pragma once

#include <QUrl>
#include <QWebEnginePage>

class QWebEngineCertificateError;
class QWebEngineNewWindowRequest;

// True for an http or https address with a host.
bool IsWebUrl(const QUrl& url);

// One page, which refuses all else.
class WebPage : public QWebEnginePage {
  Q_OBJECT

 public:
  WebPage(QWebEngineProfile* profile, QObject* parent);

 Q_SIGNALS:
  // The page goes to another address, or a server redirects it there.
  void Visits(const QUrl& url);
  // Something that the page wanted was refused, or it would have opened a message box; text: one line for the user.
  void Notice(const QString& text);
  // A server of that host has no valid certificate.
  void Distrusted(const QString& host);

 protected:
  bool acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) override;
  QStringList chooseFiles(FileSelectionMode mode, const QStringList& oldFiles,
                          const QStringList& acceptedMimeTypes) override;
  void javaScriptAlert(const QUrl& origin, const QString& text) override;
  bool javaScriptConfirm(const QUrl& origin, const QString& text) override;
  bool javaScriptPrompt(const QUrl& origin, const QString& text, const QString& preset, QString* result) override;
  void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel level, const QString& text, int line,
                                const QString& source) override;

 private:
  void RefuseFeature(const QUrl& origin, QWebEnginePage::Feature feature);
  void RefuseCertificate(const QWebEngineCertificateError& error);
  void OpenHere(const QWebEngineNewWindowRequest& request);
};
