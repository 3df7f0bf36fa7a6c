// SPDX-License-Identifier: GPL-3.0-or-later
// A screen of its own with a window manager, and on it windows of another program that note which keys they get.
#pragma once

#include <xcb/xcb.h>

#include <QProcess>
#include <array>

#include "test_suite.h"

// An X server and a window manager, both ended with it. Windows are moved about as a user does, with xdotool.
class ForeignDesktop {
 public:
  ForeignDesktop() {
    server_.start(u"Xvfb"_s, {u"-displayfd"_s, u"1"_s, u"-screen"_s, u"0"_s, u"800x600x24"_s});
    if (!QTest::qWaitFor([this]() { return server_.canReadLine(); }, 20'000)) qFatal("Xvfb does not start.");
    display = ':' + server_.readLine().trimmed();
    // As any program finds it.
    qputenv("DISPLAY", display);
    manager_.start(u"openbox"_s, {u"--sm-disable"_s});
    x_ = xcb_connect(display.constData(), nullptr);
  }
  ~ForeignDesktop() {
    xcb_disconnect(x_);
    for (QProcess* process : {&manager_, &server_}) {
      process->terminate();
      process->waitForFinished();
    }
  }
  Q_DISABLE_COPY_MOVE(ForeignDesktop)

  // A window with the older kind of title that the window manager shows above all others.
  xcb_window_t Open(const QByteArray& title, bool takesFocus = true) {
    const xcb_window_t window = xcb_generate_id(x_);
    const uint32_t events = XCB_EVENT_MASK_KEY_PRESS;
    const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(x_)).data;
    xcb_create_window(x_, XCB_COPY_FROM_PARENT, window, screen->root, 10, 10, 200, 100, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &events);
    Set(window, XCB_ATOM_WM_NAME, XCB_ATOM_STRING, 8, title.constData(), title.size());
    const std::array<uint32_t, 9> hints{1, takesFocus ? 1U : 0U};  // the flag of the input field, and the field
    Set(window, XCB_ATOM_WM_HINTS, XCB_ATOM_WM_HINTS, 32, hints.data(), hints.size());
    const auto shown = [&]() {
      return takesFocus ? IsActive(window) : !Do({u"getwindowname"_s, Id(window)}).isEmpty();
    };
    // A window that is mapped while the window manager starts is managed only when it is mapped again.
    do {
      xcb_unmap_window(x_, window);
      xcb_map_window(x_, window);
      xcb_flush(x_);
    } while (!QTest::qWaitFor(shown, 1000));
    return window;
  }
  void Close(xcb_window_t window) {
    xcb_destroy_window(x_, window);
    xcb_flush(x_);
    QTRY_VERIFY(!IsActive(window));
  }
  bool IsActive(xcb_window_t window) { return Do({u"getactivewindow"_s}) == QByteArray::number(window); }
  // Runs xdotool and returns what it says.
  QByteArray Do(const QStringList& arguments) {
    QProcess tool;
    tool.start(u"xdotool"_s, arguments);
    tool.waitForFinished();
    return tool.readAllStandardOutput().trimmed();
  }
  static QString Id(xcb_window_t window) { return QString::number(window); }
  // Keys that all windows have got so far: window and number of the key.
  const QList<QPair<xcb_window_t, int>>& Keys() {
    while (xcb_generic_event_t* event = xcb_poll_for_event(x_)) {
      const auto* key = reinterpret_cast<xcb_key_press_event_t*>(event);
      if ((event->response_type & 0x7f) == XCB_KEY_PRESS) keys_.append({key->event, key->detail});
      free(event);
    }
    return keys_;
  }

  static constexpr int kF7 = 73;  // its number on every keyboard of a PC
  QByteArray display;

 private:
  void Set(xcb_window_t window, xcb_atom_t name, xcb_atom_t type, uint8_t bits, const void* value, size_t count) {
    xcb_change_property(x_, XCB_PROP_MODE_REPLACE, window, name, type, bits, static_cast<uint32_t>(count), value);
  }

  QProcess server_;
  QProcess manager_;
  xcb_connection_t* x_ = nullptr;
  QList<QPair<xcb_window_t, int>> keys_;
};
