// SPDX-License-Identifier: GPL-3.0-or-later
// Shows a cam: starts Omni-Lens, the cam viewer that may be installed beside the program, or else opens the cam's
// address in the desktop's browser. A press on any cam light leads here.
#pragma once

#include <QString>
#include <QUrl>

// The viewers of this run.
class CamViewer {
 public:
  // programDir: where Omni-Lens is looked for.
  explicit CamViewer(const QString& programDir);
  ~CamViewer();
  Q_DISABLE_COPY_MOVE(CamViewer)

  // shared: one window for all cams, so the viewer that was started last is ended first.
  void Show(const QString& camUrl, const QString& call, bool shared);

 private:
  void EndLast();
  void KeepLast(qint64 process);

  const QString program_;
  int last_ = -1;  // handle of the process of the last viewer; -1: none. A number could be another process's by now.
};

// The address for a browser: without user name and password. Empty where it is not http or https.
QUrl BrowserAddress(const QString& camUrl);
