// SPDX-License-Identifier: GPL-3.0-or-later
// A window of another program on the desktop, known by its title: brings it to the front and sends it the key F7 once
// it has the focus. The paste into EasyPal uses it. Works on an X display, whatever platform Qt itself runs on.
#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>
#include <QTimer>
#include <chrono>
#include <functional>
#include <memory>

// How the sending of a key ended. In all cases but Sent no key went out.
enum class KeyEnd {
  Sent,
  NoDisplay,   // no X display can be reached
  NoWindow,    // no window has this title
  Gone,        // the window vanished meanwhile
  NoFocus,     // it did not become active within the patience
  Impossible,  // the display sends no keys for other programs
  NoAnswer     // the display hangs
};

// Sends one key at a time.
class DesktopWindow : public QObject {
  Q_OBJECT

 public:
  using Done = std::function<void(KeyEnd)>;

  // Waiting times; a test takes shorter ones.
  struct Times {
    std::chrono::milliseconds pause{700};      // between the raising of the window and the key
    std::chrono::milliseconds patience{3000};  // how long the window may take from then on to get the focus
    std::chrono::milliseconds silence{2000};   // how much longer the display may take for all of it
  };

  // display: as in the variable DISPLAY; empty: the one that it names.
  explicit DesktopWindow(const QByteArray& display = {}, QObject* parent = nullptr);
  DesktopWindow(const QByteArray& display, const Times& times, QObject* parent = nullptr);
  // From then on no key goes out. It does not wait for a display that hangs.
  ~DesktopWindow() override;

  // Finds the window with exactly this title, restores and raises it, and presses F7 in it. done is called later, once,
  // unless context is gone by then. Does nothing while Busy().
  void SendF7(const QString& title, QObject* context, Done done);
  bool Busy() const { return run_ != nullptr; }

 private:
  struct Run;
  void Finish(KeyEnd end);

  const QByteArray display_;
  const Times times_;
  QTimer deadline_;
  std::shared_ptr<Run> run_;  // the one under way
  Done done_;
};
