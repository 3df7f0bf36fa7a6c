// SPDX-License-Identifier: GPL-3.0-or-later
// What every window of the program but Form1 has in common: Escape closes it, Return presses a button, F1 asks for
// help, its texts follow the language, and it stands whole on the screen of the window that opened it. All such windows
// derive from it.
#pragma once

#include <QWidget>

// A top-level window that deletes itself when it is closed; whoever keeps a pointer to one keeps a QPointer.
class BaseWindow : public QWidget {
  Q_OBJECT

 public:
  // opener: the window above which this one stays; nullptr for a window on its own.
  explicit BaseWindow(QWidget* opener,
                      Qt::WindowFlags kind = Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);

  // Shows every text of the window in the present language. Called when the window is about to show for the first time,
  // and whenever the language changes.
  virtual void ShowTexts() = 0;
  // Before the first showing come the texts and the place, so that nothing of it is seen to happen.
  void setVisible(bool visible) override;
  // The button that Return presses while no other button has the focus.
  void SetDefaultButton(class QAbstractButton* button);

 Q_SIGNALS:
  // F1 was pressed.
  void HelpWanted();
  // The window is being closed; it is deleted when the event loop turns next.
  void Closed();

 protected:
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  // Where the window goes when it first shows: centred over its opener, whole on that screen. A window whose place is
  // given puts itself there.
  virtual void PlaceWindow();

 private:
  class QAbstractButton* defaultButton_ = nullptr;
  bool shown_ = false;
};
