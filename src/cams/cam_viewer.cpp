// SPDX-License-Identifier: GPL-3.0-or-later
#include "cams/cam_viewer.h"

#include <sys/syscall.h>
#include <unistd.h>

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <csignal>
#include <utility>

using namespace Qt::StringLiterals;

CamViewer::CamViewer(const QString& programDir) : program_(QDir(programDir).filePath(u"Omni-Lens"_s)) {}

// The viewers stay open when the program closes.
CamViewer::~CamViewer() {
  if (last_ >= 0) close(last_);
}

void CamViewer::Show(const QString& camUrl, const QString& call, bool shared) {
  if (camUrl.isEmpty()) return;
  if (QFileInfo(program_).isExecutable()) {
    if (shared) EndLast();
    qint64 process = 0;
    // One argument, and no shell that could take a part of the address for a command. The viewer gets the address as it
    // is, user name and password included: it could not show the cam without them.
    if (QProcess::startDetached(program_, {camUrl + u'*' + call}, QFileInfo(program_).path(), &process)) {
      KeepLast(process);
      return;
    }
  }
  if (const QUrl address = BrowserAddress(camUrl); !address.isEmpty()) QDesktopServices::openUrl(address);
}

void CamViewer::EndLast() {
  if (last_ < 0) return;
  syscall(SYS_pidfd_send_signal, last_, SIGTERM, nullptr, 0);
  close(std::exchange(last_, -1));
}

void CamViewer::KeepLast(qint64 process) {
  if (last_ >= 0) close(last_);
  last_ = static_cast<int>(syscall(SYS_pidfd_open, static_cast<pid_t>(process), 0));
}

QUrl BrowserAddress(const QString& camUrl) {
  const QUrl url(camUrl.trimmed());
  const bool isWeb = url.scheme() == "http"_L1 || url.scheme() == "https"_L1;
  return isWeb && !url.host().isEmpty() ? url.adjusted(QUrl::RemoveUserInfo) : QUrl();
}
