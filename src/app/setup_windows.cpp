// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/setup_windows.h"

using namespace Qt::StringLiterals;

namespace {

// Entries of the setup menu that open no setup window.
constexpr int kReceivedOkMap = 0;
constexpr int kAbout = 16;

}  // namespace

// Which entry opens which window. The entries that are not here stay grey.
const QList<SetupWindows::Row>& SetupWindows::Rows() {
  static const QList<Row> rows = {};
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

void SetupWindows::ShowAbout() {
  deps_.services.dialogs.Inform(deps_.mainWindow, Program::ProgReleased() + u'\n' + Program::ProgVersion(), false);
}
