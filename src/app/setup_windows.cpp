// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/setup_windows.h"

#include "callbook/own_location_window.h"

using namespace Qt::StringLiterals;

namespace {

// Entries of the setup menu that open no setup window.
constexpr int kReceivedOkMap = 0;
constexpr int kAbout = 16;

}  // namespace

// Which entry opens which window. The entries that are not here stay grey.
const QList<SetupWindows::Row>& SetupWindows::Rows() {
  static const QList<Row> rows = {
      {1, WindowKind::OwnLocation, &SetupWindows::MakeOwnLocation},
  };
  return rows;
}

SetupWindows::SetupWindows(const Dependencies& dependencies) : QObject(dependencies.mainWindow), deps_(dependencies) {
  const auto does = [this](int index) {
    deps_.services.commands.Register(MenuTables::SetupCommand(index), this,
                                     [this](const MenuChoice& choice) { MnuSetupClick(choice.index); });
  };
  for (const Row& row : Rows()) {
    deps_.windows.Register(
        row.kind, [this, make = row.make]() { return (this->*make)(); }, true);
    does(row.index);
  }
  does(kReceivedOkMap);
  does(kAbout);
}

void SetupWindows::MnuSetupClick(int index) {
  deps_.menus.CloseMenus();
  deps_.windows.CloseSetupWindows();
  for (const Row& row : Rows()) {
    if (row.index == index) return deps_.windows.Show(row.kind);
  }
  if (index == kReceivedOkMap) deps_.showReceivedOkMap();
  if (index == kAbout) ShowAbout();
}

void SetupWindows::Open(WindowKind kind) {
  deps_.menus.CloseMenus();
  deps_.windows.CloseSetupWindows();
  deps_.windows.Show(kind);
}

// What a window that looks calls up uses.
LookupSession::Dependencies SetupWindows::LookUps() const {
  Services& s = deps_.services;
  return {s.program, s.network, s.tool, s.pageText, s.background, s.run.hosts, s.cookies, s.database};
}

BaseWindow* SetupWindows::MakeOwnLocation() {
  auto* window = new Form11({LookUps(), deps_.services.SignIn()}, deps_.mainWindow);
  connect(window, &Form11::LocationSaved, this, [this]() {
    deps_.windows.PlacesChanged();
    deps_.showOwnLocation();
  });
  return window;
}

void SetupWindows::ShowAbout() {
  deps_.services.dialogs.Inform(deps_.mainWindow, Program::ProgReleased() + u'\n' + Program::ProgVersion(), false);
}
