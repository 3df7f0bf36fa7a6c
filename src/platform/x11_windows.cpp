// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/x11_windows.h"

#include <cstdlib>
#include <vector>

// The header of this library for C has a field of that name.
#define explicit explicit_
#include <xcb/xcb_ewmh.h>
#undef explicit
#include <xcb/xtest.h>

namespace {

constexpr uint32_t kF7 = 0xffc4;         // the key's number in the X protocol
constexpr uint32_t kIconic = 3;          // value of WM_STATE
constexpr uint32_t kEveryDesktop = ~0U;  // a window that is shown on all desktops
constexpr uint32_t kTitleWords = 64;     // of four bytes; a longer title is none that we look for
constexpr int kDeepest = 32;             // windows within windows

// What the library has allocated.
struct Free {
  void operator()(void* memory) const { std::free(memory); }
};
template <typename Reply>
using Owned = std::unique_ptr<Reply, Free>;

Owned<xcb_get_property_reply_t> PropertyOf(xcb_connection_t* server, xcb_get_property_cookie_t cookie) {
  return Owned<xcb_get_property_reply_t>(xcb_get_property_reply(server, cookie, nullptr));
}

xcb_atom_t AtomOf(xcb_connection_t* server, const QByteArray& name) {
  const auto cookie = xcb_intern_atom(server, 0, static_cast<uint16_t>(name.size()), name.constData());
  const Owned<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(server, cookie, nullptr));
  return reply == nullptr ? xcb_atom_t{XCB_ATOM_NONE} : reply->atom;
}

}  // namespace

// The connection, the window manager's atoms, and the number of the screen.
struct X11Windows::Connection {
  Connection() = default;
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;
  ~Connection() {
    xcb_ewmh_connection_wipe(&manager);
    xcb_disconnect(server);
  }

  xcb_connection_t* server = nullptr;
  xcb_ewmh_connection_t manager{};
  int screen = 0;
  xcb_atom_t wmState = XCB_ATOM_NONE;

  xcb_window_t Root() const { return manager.screens[screen]->root; }
};

std::unique_ptr<X11Windows> X11Windows::Connect(const QByteArray& display) {
  auto made = std::make_unique<Connection>();
  made->server = xcb_connect(display.isEmpty() ? nullptr : display.constData(), &made->screen);
  if (xcb_connection_has_error(made->server) != 0) return nullptr;
  const auto cookies = xcb_ewmh_init_atoms(made->server, &made->manager);
  if (xcb_ewmh_init_atoms_replies(&made->manager, cookies, nullptr) == 0) return nullptr;
  made->wmState = AtomOf(made->server, "WM_STATE");
  return std::unique_ptr<X11Windows>(new X11Windows(std::move(made)));
}

X11Windows::X11Windows(std::unique_ptr<Connection> connection) : x_(std::move(connection)) {}

X11Windows::~X11Windows() = default;

QByteArray X11Windows::TitleOf(const void* reply) const {
  const auto* property = static_cast<const xcb_get_property_reply_t*>(reply);
  if (property == nullptr || property->format != 8 || property->bytes_after > 0) return {};
  return {static_cast<const char*>(xcb_get_property_value(property)), xcb_get_property_value_length(property)};
}

X11Windows::Window X11Windows::Find(const QByteArray& title) {
  xcb_ewmh_get_windows_reply_t list{};
  const auto stacking = xcb_ewmh_get_client_list_stacking(&x_->manager, x_->screen);
  if (xcb_ewmh_get_client_list_stacking_reply(&x_->manager, stacking, &list, nullptr) == 0) {
    const auto unordered = xcb_ewmh_get_client_list(&x_->manager, x_->screen);
    if (xcb_ewmh_get_client_list_reply(&x_->manager, unordered, &list, nullptr) == 0) return 0;
  }
  const std::vector<Window> windows(list.windows, list.windows + list.windows_len);
  xcb_ewmh_get_windows_reply_wipe(&list);
  // All questions go out before the first answer is read: one journey to the server instead of one a window.
  struct Asked {
    xcb_get_property_cookie_t modern;  // _NET_WM_NAME, which counts where a window has both
    xcb_get_property_cookie_t plain;   // WM_NAME
  };
  std::vector<Asked> asked;
  for (const Window window : windows) {
    const auto ask = [this, window](xcb_atom_t atom) {
      return xcb_get_property(x_->server, 0, window, atom, XCB_GET_PROPERTY_TYPE_ANY, 0, kTitleWords);
    };
    asked.push_back({ask(x_->manager._NET_WM_NAME), ask(XCB_ATOM_WM_NAME)});
  }
  Window found = 0;
  for (size_t i = 0; i < windows.size(); ++i) {
    const auto modern = PropertyOf(x_->server, asked[i].modern);
    const auto plain = PropertyOf(x_->server, asked[i].plain);
    const bool hasModern = modern != nullptr && modern->type != XCB_ATOM_NONE;
    // The list goes from the bottom to the top.
    if (TitleOf(hasModern ? modern.get() : plain.get()) == title) found = windows[i];
  }
  return found;
}

void X11Windows::BringToFront(Window window) {
  uint32_t desktop = kEveryDesktop;
  uint32_t current = 0;
  const auto ofWindow = xcb_ewmh_get_wm_desktop(&x_->manager, window);
  const auto ofScreen = xcb_ewmh_get_current_desktop(&x_->manager, x_->screen);
  const auto state =
      PropertyOf(x_->server, xcb_get_property(x_->server, 0, window, x_->wmState, XCB_GET_PROPERTY_TYPE_ANY, 0, 1));
  xcb_ewmh_get_wm_desktop_reply(&x_->manager, ofWindow, &desktop, nullptr);
  xcb_ewmh_get_current_desktop_reply(&x_->manager, ofScreen, &current, nullptr);
  if (desktop != kEveryDesktop && desktop != current) {
    xcb_ewmh_request_change_current_desktop(&x_->manager, x_->screen, desktop, XCB_CURRENT_TIME);
  }
  const bool hasState = state != nullptr && state->format == 32 && xcb_get_property_value_length(state.get()) >= 4;
  if (hasState && *static_cast<const uint32_t*>(xcb_get_property_value(state.get())) == kIconic) {
    xcb_map_window(x_->server, window);
  }
  // A pager may raise what it likes; an application's wish would only make the window blink in the task bar.
  xcb_ewmh_request_change_active_window(&x_->manager, x_->screen, window, XCB_EWMH_CLIENT_SOURCE_TYPE_OTHER,
                                        XCB_CURRENT_TIME, XCB_WINDOW_NONE);
  xcb_flush(x_->server);
}

// The focus may be on a child, as toolkits do that keep a window for their keys.
bool X11Windows::Holds(Window window, Window inner) const {
  for (int depth = 0; depth < kDeepest && inner > XCB_INPUT_FOCUS_POINTER_ROOT; ++depth) {
    if (inner == window) return true;
    const Owned<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(x_->server, xcb_query_tree(x_->server, inner), nullptr));
    inner = tree == nullptr ? 0 : tree->parent;
  }
  return false;
}

bool X11Windows::IsReady(Window window) const {
  const auto activeAsked = xcb_ewmh_get_active_window(&x_->manager, x_->screen);
  const auto focusAsked = xcb_get_input_focus(x_->server);
  const auto pointerAsked = xcb_query_pointer(x_->server, x_->Root());
  xcb_window_t active = 0;
  const bool told = xcb_ewmh_get_active_window_reply(&x_->manager, activeAsked, &active, nullptr) != 0;
  const Owned<xcb_get_input_focus_reply_t> focus(xcb_get_input_focus_reply(x_->server, focusAsked, nullptr));
  const Owned<xcb_query_pointer_reply_t> pointer(xcb_query_pointer_reply(x_->server, pointerAsked, nullptr));
  if (!told || active != window || focus == nullptr || pointer == nullptr) return false;
  // Together with a key that the user still holds from a shortcut it would be another key, as Alt+F7.
  constexpr uint16_t kHeld =
      XCB_KEY_BUT_MASK_SHIFT | XCB_KEY_BUT_MASK_CONTROL | XCB_KEY_BUT_MASK_MOD_1 | XCB_KEY_BUT_MASK_MOD_4;
  return (pointer->mask & kHeld) == 0 && Holds(window, focus->focus);
}

uint8_t X11Windows::CodeOfF7() const {
  const xcb_setup_t* setup = xcb_get_setup(x_->server);
  const auto count = static_cast<uint8_t>(setup->max_keycode - setup->min_keycode + 1);
  const auto cookie = xcb_get_keyboard_mapping(x_->server, setup->min_keycode, count);
  const Owned<xcb_get_keyboard_mapping_reply_t> map(xcb_get_keyboard_mapping_reply(x_->server, cookie, nullptr));
  if (map == nullptr || map->keysyms_per_keycode == 0) return 0;
  const xcb_keysym_t* symbols = xcb_get_keyboard_mapping_keysyms(map.get());
  const int keys = xcb_get_keyboard_mapping_keysyms_length(map.get()) / map->keysyms_per_keycode;
  for (int key = 0; key < keys; ++key) {
    if (symbols[key * map->keysyms_per_keycode] == kF7) return static_cast<uint8_t>(setup->min_keycode + key);
  }
  return 0;
}

X11Windows::Press X11Windows::PressF7(Window window, const std::function<bool()>& mayPress) {
  const auto attributesAsked = xcb_get_window_attributes(x_->server, window);
  const Owned<xcb_get_window_attributes_reply_t> attributes(
      xcb_get_window_attributes_reply(x_->server, attributesAsked, nullptr));
  if (xcb_connection_has_error(x_->server) != 0) return Press::NoConnection;
  if (attributes == nullptr) return Press::Gone;
  const xcb_query_extension_reply_t* keys = xcb_get_extension_data(x_->server, &xcb_test_id);
  const uint8_t code = CodeOfF7();
  if (keys == nullptr || keys->present == 0 || code == 0) return Press::Impossible;
  xcb_grab_server(x_->server);
  const bool press = IsReady(window) && mayPress();
  if (press) {
    xcb_test_fake_input(x_->server, XCB_KEY_PRESS, code, XCB_CURRENT_TIME, XCB_WINDOW_NONE, 0, 0, 0);
    xcb_test_fake_input(x_->server, XCB_KEY_RELEASE, code, XCB_CURRENT_TIME, XCB_WINDOW_NONE, 0, 0, 0);
  }
  xcb_ungrab_server(x_->server);
  // The answer to any question tells that the server has done all this.
  const auto done = xcb_get_input_focus(x_->server);
  const Owned<xcb_get_input_focus_reply_t> reply(xcb_get_input_focus_reply(x_->server, done, nullptr));
  if (reply == nullptr) return Press::NoConnection;
  return press ? Press::Pressed : Press::NotYet;
}
