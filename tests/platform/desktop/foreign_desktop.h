// SPDX-License-Identifier: GPL-3.0-or-later
// A screen of its own with a window manager, and on it windows of another program that note which keys they get. For
// tests of what the program does to windows that are not its own.
#pragma once

#include <xcb/xcb.h>

#include <QProcess>
#include <QString>
#include <memory>

struct ManagerAtoms;

// An X server and a window manager, both ended with it.
class ForeignDesktop {
 public:
  // How a window differs from a plain one.
  struct Kind {
    bool modernTitle = true;    // has _NET_WM_NAME beside WM_NAME
    bool refusesFocus = false;  // wants no keys
  };

  // Starts both; IsUp() where it has worked.
  ForeignDesktop();
  ~ForeignDesktop();
  Q_DISABLE_COPY_MOVE(ForeignDesktop)

  bool IsUp() const { return up_; }
  const QByteArray& Display() const { return display_; }

  // A window that the window manager knows and shows; the one that was made last is the upper one.
  xcb_window_t Open(const QString& title, const Kind& kind);
  xcb_window_t Open(const QString& title) { return Open(title, Kind()); }
  void Close(xcb_window_t window);
  void Minimise(xcb_window_t window);
  void MoveToDesktop(xcb_window_t window, uint32_t desktop);
  bool IsMinimised(xcb_window_t window);
  bool IsActive(xcb_window_t window);
  uint32_t CurrentDesktop();
  // Keys that a window has got so far, presses alone, by their number on the server.
  QList<int> KeysOf(xcb_window_t window);
  // Presses a key that stays down, or lets it go.
  void HoldShift(bool down);

 private:
  bool IsManaged(xcb_window_t window);
  void TakeEvents();
  uint8_t CodeOf(uint32_t symbol);

  QProcess server_;
  QProcess manager_;
  QByteArray display_;
  xcb_connection_t* x_ = nullptr;
  std::unique_ptr<ManagerAtoms> ewmh_;
  QHash<xcb_window_t, QList<int>> keys_;
  bool up_ = false;
};
