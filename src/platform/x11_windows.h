// SPDX-License-Identifier: GPL-3.0-or-later
// Other programs' windows on an X display, over a connection of our own, so that it does not matter which platform Qt
// runs on. Every call waits for the X server, which may hang: desktop_window alone uses it, on a thread of its own.
#pragma once

#include <QByteArray>
#include <cstdint>
#include <functional>
#include <memory>

// One connection to an X server and what is asked of its window manager.
class X11Windows {
 public:
  // Number of a window on the server; 0: none.
  using Window = uint32_t;

  // What became of a try to press a key.
  enum class Press {
    Pressed,
    NotYet,       // the window is not active, has not the focus, or the user holds a key like Control down
    Gone,         // there is no such window any more
    Impossible,   // the server sends no keys for others, or its keyboard has no such key
    NoConnection  // the server is gone
  };

  // display: as in DISPLAY; empty: the one that DISPLAY names. Null where there is no server, or no window manager that
  // tells of its windows.
  static std::unique_ptr<X11Windows> Connect(const QByteArray& display);
  X11Windows(const X11Windows&) = delete;
  X11Windows& operator=(const X11Windows&) = delete;
  ~X11Windows();

  // The window with exactly this title (UTF-8), the upper one of several; minimised ones and those of other desktops
  // count.
  Window Find(const QByteArray& title);
  // Shows the window's desktop, restores the window if it is minimised, raises and activates it. It answers before the
  // window manager has done so.
  void BringToFront(Window window);
  // Presses and releases F7, if the window is active and has the focus and mayPress agrees. Between look and key no
  // other program gets a turn at the server, so the key cannot reach another window.
  Press PressF7(Window window, const std::function<bool()>& mayPress);

 private:
  struct Connection;
  explicit X11Windows(std::unique_ptr<Connection> connection);
  QByteArray TitleOf(const void* reply) const;
  bool IsReady(Window window) const;
  bool Holds(Window window, Window inner) const;
  uint8_t CodeOfF7() const;

  std::unique_ptr<Connection> x_;
};
