// SPDX-License-Identifier: GPL-3.0-or-later
// The paste of a picture into the transmit side of EasyPal: the picture goes onto the clipboard, EasyPal's window comes
// to the front, and gets the key by which it takes what is on the clipboard. The menus of all pictures, the page view
// and the map of the air lead here; the main window makes the only one.
#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <functional>

#include "core/program.h"
#include "platform/desktop_window.h"
#include "ui/dialogs.h"

// One paste at a time: a wish that comes while one is under way is passed over. Copies wait for its end, so that the
// clipboard does not change before EasyPal has taken the picture.
class EasyPalPaste : public QObject {
  Q_OBJECT

 public:
  // What it works with; all outlive it.
  struct Dependencies {
    const Program& program;
    Dialogs& dialogs;
    DesktopWindow& easyPal;
  };
  // What of a picture decides whether the user is asked first.
  struct Picture {
    bool animated = false;
    qint64 bytes = 0;  // size of its file
  };
  // Puts the picture onto the clipboard and then says whether it is there.
  using Copy = std::function<void(std::function<void(bool)>)>;

  EasyPalPaste(const Dependencies& dependencies, QWidget* mainWindow);

  // over: the window that the wish came from; a question and a message are shown over it.
  void PasteToEasyPal(const Picture& picture, const Copy& copy, QWidget* over);
  // Of what is on the clipboard already.
  void PasteClipboard(QWidget* over);
  bool Busy() const { return busy_; }
  // Does something to the clipboard as soon as no paste needs it, unless context is gone by then.
  void WhenFree(QObject* context, const std::function<void()>& then);

 Q_SIGNALS:
  void Freed();
  // The paste has ended, and with it the rest that the choice from the menu was for automatic polls.
  void RefreshTimerWanted();

 private:
  void Free();
  bool AllowsSize(const Picture& picture);
  void SendKey();
  void KeyEnded(KeyEnd end);
  void Tell(const QString& text);

  Dependencies deps_;
  QWidget* mainWindow_;
  QPointer<QWidget> over_;
  QTimer afterKey_;
  bool busy_ = false;
};
