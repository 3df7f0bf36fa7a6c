// SPDX-License-Identifier: GPL-3.0-or-later
// frmMsgBoxTimed: a message over a window that goes away by itself. The on-air windows show in it that a list could not
// be fetched; it takes neither the focus nor a click from the controls beside it.
#pragma once

#include <QColor>
#include <QFrame>
#include <QLabel>
#include <QTimer>
#include <chrono>

// The message; a child of the window that it is about, which it does not outlive.
class frmMsgBoxTimed : public QFrame {
  Q_OBJECT

 public:
  // Shows the text over the window for that long, in place of a message that is still shown there. The window's object
  // name decides where. A click ends it early.
  static void ShowMsg(QWidget* owner, const QString& text, std::chrono::seconds duration);
  // The same in green and without a sound: something has been done as the user wished.
  static void ShowDone(QWidget* owner, const QString& text, std::chrono::seconds duration);

 protected:
  void mouseReleaseEvent(QMouseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  explicit frmMsgBoxTimed(QWidget* owner);
  static frmMsgBoxTimed& BoxOf(QWidget* owner);
  void ShowText(const QString& text, std::chrono::seconds duration, const QColor& back);
  void Place();
  // The next message makes a box of its own: this one is gone when the event loop turns.
  void End();

  QLabel label_;
  QTimer Timer1;  // seconds
  int ticks_ = 0;
  int last_ = 0;
  bool ended_ = false;
};
