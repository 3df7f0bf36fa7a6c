// SPDX-License-Identifier: GPL-3.0-or-later
#include "foreign_desktop.h"

#include <xcb/xtest.h>

#include <array>
#define explicit explicit_
#include <xcb/xcb_ewmh.h>
#undef explicit

#include "test_suite.h"

struct ManagerAtoms {
  xcb_ewmh_connection_t ewmh{};
};

namespace {

constexpr uint32_t kShift = 0xffe1;
constexpr uint32_t kIconic = 3;
constexpr int kStartTime = 20'000;
constexpr int kTries = 20;
constexpr int kTryTime = 500;

xcb_atom_t AtomOf(xcb_connection_t* x, const QByteArray& name) {
  auto* reply =
      xcb_intern_atom_reply(x, xcb_intern_atom(x, 0, static_cast<uint16_t>(name.size()), name.constData()), nullptr);
  const xcb_atom_t atom = reply->atom;
  free(reply);
  return atom;
}

}  // namespace

ForeignDesktop::ForeignDesktop() {
  server_.start(u"Xvfb"_s, {u"-displayfd"_s, u"1"_s, u"-screen"_s, u"0"_s, u"800x600x24"_s, u"-nolisten"_s, u"tcp"_s});
  if (!QTest::qWaitFor([this]() { return server_.canReadLine(); }, kStartTime)) return;
  display_ = ':' + server_.readLine().trimmed();
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert(u"DISPLAY"_s, QString::fromLatin1(display_));
  manager_.setProcessEnvironment(environment);
  manager_.start(u"openbox"_s, {u"--sm-disable"_s});
  x_ = xcb_connect(display_.constData(), nullptr);
  ewmh_ = std::make_unique<ManagerAtoms>();
  xcb_ewmh_init_atoms_replies(&ewmh_->ewmh, xcb_ewmh_init_atoms(x_, &ewmh_->ewmh), nullptr);
  up_ = QTest::qWaitFor(
      [this]() {
        xcb_window_t check = 0;
        const auto asked = xcb_ewmh_get_supporting_wm_check(&ewmh_->ewmh, ewmh_->ewmh.screens[0]->root);
        return xcb_ewmh_get_supporting_wm_check_reply(&ewmh_->ewmh, asked, &check, nullptr) != 0;
      },
      kStartTime);
}

ForeignDesktop::~ForeignDesktop() {
  if (ewmh_ != nullptr) xcb_ewmh_connection_wipe(&ewmh_->ewmh);
  if (x_ != nullptr) xcb_disconnect(x_);
  for (QProcess* process : {&manager_, &server_}) {
    process->terminate();
    process->waitForFinished();
  }
}

xcb_window_t ForeignDesktop::Open(const QString& title, const Kind& kind) {
  const xcb_window_t window = xcb_generate_id(x_);
  const uint32_t events = XCB_EVENT_MASK_KEY_PRESS;
  xcb_create_window(x_, XCB_COPY_FROM_PARENT, window, ewmh_->ewmh.screens[0]->root, 10, 10, 200, 100, 0,
                    XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &events);
  const QByteArray name = title.toUtf8();
  xcb_change_property(x_, XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_NAME, XCB_ATOM_STRING, 8,
                      static_cast<uint32_t>(name.size()), name.constData());
  if (kind.modernTitle) {
    xcb_ewmh_set_wm_name(&ewmh_->ewmh, window, static_cast<uint32_t>(name.size()), name.constData());
  }
  // WM_HINTS: the flag of the input field, and the field.
  const std::array<uint32_t, 9> hints{1, kind.refusesFocus ? 0U : 1U};
  xcb_change_property(x_, XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_HINTS, XCB_ATOM_WM_HINTS, 32,
                      static_cast<uint32_t>(hints.size()), hints.data());
  // A window that is mapped while the window manager starts is not managed; it is once it is mapped again.
  bool managed = false;
  for (int i = 0; i < kTries && !managed; ++i) {
    xcb_unmap_window(x_, window);
    xcb_map_window(x_, window);
    xcb_flush(x_);
    managed = QTest::qWaitFor([this, window]() { return IsManaged(window); }, kTryTime);
  }
  const bool shown = QTest::qWaitFor([&]() { return kind.refusesFocus || IsActive(window); });
  return managed && shown ? window : 0;
}

bool ForeignDesktop::IsManaged(xcb_window_t window) {
  xcb_ewmh_get_windows_reply_t list{};
  const auto asked = xcb_ewmh_get_client_list(&ewmh_->ewmh, 0);
  if (xcb_ewmh_get_client_list_reply(&ewmh_->ewmh, asked, &list, nullptr) == 0) return false;
  const bool managed =
      std::find(list.windows, list.windows + list.windows_len, window) != list.windows + list.windows_len;
  xcb_ewmh_get_windows_reply_wipe(&list);
  return managed;
}

void ForeignDesktop::Close(xcb_window_t window) {
  xcb_destroy_window(x_, window);
  xcb_flush(x_);
  QTRY_VERIFY(!IsManaged(window));
}

void ForeignDesktop::Minimise(xcb_window_t window) {
  xcb_client_message_event_t event{};
  event.response_type = XCB_CLIENT_MESSAGE;
  event.format = 32;
  event.window = window;
  event.type = AtomOf(x_, "WM_CHANGE_STATE");
  event.data.data32[0] = kIconic;
  xcb_send_event(x_, 0, ewmh_->ewmh.screens[0]->root,
                 XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                 reinterpret_cast<const char*>(&event));
  xcb_flush(x_);
  QTRY_VERIFY(IsMinimised(window));
}

bool ForeignDesktop::IsMinimised(xcb_window_t window) {
  auto* reply = xcb_get_property_reply(
      x_, xcb_get_property(x_, 0, window, AtomOf(x_, "WM_STATE"), XCB_GET_PROPERTY_TYPE_ANY, 0, 1), nullptr);
  const bool minimised = reply != nullptr && reply->format == 32 && xcb_get_property_value_length(reply) == 4 &&
                         *static_cast<uint32_t*>(xcb_get_property_value(reply)) == kIconic;
  free(reply);
  return minimised;
}

void ForeignDesktop::MoveToDesktop(xcb_window_t window, uint32_t desktop) {
  xcb_ewmh_request_change_wm_desktop(&ewmh_->ewmh, 0, window, desktop, XCB_EWMH_CLIENT_SOURCE_TYPE_OTHER);
  xcb_flush(x_);
  QTRY_VERIFY(!IsActive(window));
}

bool ForeignDesktop::IsActive(xcb_window_t window) {
  xcb_window_t active = 0;
  xcb_ewmh_get_active_window_reply(&ewmh_->ewmh, xcb_ewmh_get_active_window(&ewmh_->ewmh, 0), &active, nullptr);
  return active == window;
}

uint32_t ForeignDesktop::CurrentDesktop() {
  uint32_t desktop = 0;
  xcb_ewmh_get_current_desktop_reply(&ewmh_->ewmh, xcb_ewmh_get_current_desktop(&ewmh_->ewmh, 0), &desktop, nullptr);
  return desktop;
}

void ForeignDesktop::TakeEvents() {
  while (xcb_generic_event_t* event = xcb_poll_for_event(x_)) {
    if ((event->response_type & 0x7f) == XCB_KEY_PRESS) {
      const auto* key = reinterpret_cast<xcb_key_press_event_t*>(event);
      keys_[key->event].append(key->detail);
    }
    free(event);
  }
}

QList<int> ForeignDesktop::KeysOf(xcb_window_t window) {
  // What has been pressed until now has arrived when the server has answered.
  free(xcb_get_input_focus_reply(x_, xcb_get_input_focus(x_), nullptr));
  TakeEvents();
  return keys_.value(window);
}

uint8_t ForeignDesktop::CodeOf(uint32_t symbol) {
  const xcb_setup_t* setup = xcb_get_setup(x_);
  const auto count = static_cast<uint8_t>(setup->max_keycode - setup->min_keycode + 1);
  auto* map = xcb_get_keyboard_mapping_reply(x_, xcb_get_keyboard_mapping(x_, setup->min_keycode, count), nullptr);
  const xcb_keysym_t* symbols = xcb_get_keyboard_mapping_keysyms(map);
  int key = 0;
  while (key < count && symbols[key * map->keysyms_per_keycode] != symbol) ++key;
  free(map);
  return static_cast<uint8_t>(setup->min_keycode + key);
}

void ForeignDesktop::HoldShift(bool down) {
  xcb_test_fake_input(x_, down ? XCB_KEY_PRESS : XCB_KEY_RELEASE, CodeOf(kShift), XCB_CURRENT_TIME, XCB_WINDOW_NONE, 0,
                      0, 0);
  free(xcb_get_input_focus_reply(x_, xcb_get_input_focus(x_), nullptr));
}
