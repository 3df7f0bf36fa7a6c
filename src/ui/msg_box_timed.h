// SPDX-License-Identifier: GPL-3.0-or-later
// frmMsgBoxTimed: a message over a window that goes by itself. The on-air windows tell with it that a list could not be
// had; it takes neither the focus nor a click from what lies beside it.
#pragma once

#include <QFrame>
#include <QLabel>
#include <QTimer>
#include <chrono>

class frmMsgBoxTimed : public QFrame {
  Q_OBJECT

 public:
  // Shows the text upon the window, in the place of a message that stands there. Where it stands goes by the window's
  // name. A click ends it early.
  static void ShowMsg(QWidget* owner, const QString& text, std::chrono::seconds duration);

 protected:
  void mouseReleaseEvent(QMouseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  explicit frmMsgBoxTimed(QWidget* owner);
  void Tell(const QString& text, std::chrono::seconds duration);
  void Place();

  QLabel label_;
  QTimer Timer1;  // seconds
  int ticks_ = 0;
  int last_ = 0;
};
