// SPDX-License-Identifier: GPL-3.0-or-later
// The base of every window but Form1: Escape closes it, Return presses a button, F1 asks for help, its texts follow the
// language, and it opens whole on the screen of its opener.
#pragma once

#include <QWidget>

// A top-level window that deletes itself when it is closed; whoever keeps a pointer to it keeps a QPointer.
class BaseWindow : public QWidget {
  Q_OBJECT

 public:
  // opener: the window above which this one stays; nullptr for a window on its own.
  explicit BaseWindow(QWidget* opener,
                      Qt::WindowFlags kind = Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);

  // Shows every text of the window in the present language. Called when the window is about to show for the first time,
  // and whenever the language changes.
  virtual void ShowTexts() = 0;
  // Before it shows the window for the first time it calls ShowTexts and PlaceWindow, so that the user does not see
  // them work.
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
  // Places the window before it first shows: centred over its opener, whole on that screen. Windows with another given
  // place override it.
  virtual void PlaceWindow();

 private:
  class QAbstractButton* defaultButton_ = nullptr;
  bool shown_ = false;
};
