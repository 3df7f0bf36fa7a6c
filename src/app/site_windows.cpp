// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/site_windows.h"

#include "sites/add_site_window.h"
#include "sites/block_window.h"
#include "sites/edit_site_window.h"
#include "sites/remove_site_window.h"

namespace {

SiteForm::Dependencies FormOf(Services& s) {
  return {{s.program, s.network, s.tool, s.pageText, s.background, s.run.hosts, s.cookies, s.database}, s.SignIn()};
}

}  // namespace

SiteWindows::SiteWindows(const Dependencies& dependencies, QObject* parent)
    : QObject(parent),
      deps_(dependencies),
      desk_(dependencies.services.program, dependencies.logic.changes, dependencies.services.database) {
  deps_.services.commands.Register(Command::BlockSender, this,
                                   [this](const MenuChoice& choice) { BlockSender(choice.subject.caller); });
}

BaseWindow* SiteWindows::MakeAddSite() {
  Services& s = deps_.services;
  return new Form3({FormOf(s), desk_, s.dialogs}, deps_.mainWindow);
}

BaseWindow* SiteWindows::MakeEditSite() {
  Services& s = deps_.services;
  return new Form7({FormOf(s), desk_, deps_.logic.changes, s.dialogs}, deps_.mainWindow);
}

BaseWindow* SiteWindows::MakeDeleteSite() {
  return new Form4(deps_.services.program, desk_, deps_.mainWindow);
}

BaseWindow* SiteWindows::MakeBlockCalls() {
  auto* window = new Form18(deps_.services.program, deps_.mainWindow);
  connect(window, &Form18::ListChanged, this, &SiteWindows::Blank);
  connect(window, &BaseWindow::Closed, this, &SiteWindows::ReloadPage);
  return window;
}

void SiteWindows::Blank() {
  BlankBlocked(deps_.services.program, deps_.logic.grid);
  deps_.blocksChanged();
}

void SiteWindows::ReloadPage() {
  deps_.logic.poll.ReloadPage();
  // Without a connection nothing is asked, and the pictures of senders that are no longer blocked come from the disk.
  if (!deps_.services.program.page.Online) deps_.logic.poll.ShowStoredPage();
}

void SiteWindows::BlockSender(const QString& caller) {
  Program& program = deps_.services.program;
  switch (ToggleSender(program, caller)) {
    case BlockStep::Blocked:
      return Blank();
    case BlockStep::Unblocked:
      deps_.blocksChanged();
      // The files are still there.
      return deps_.logic.poll.ShowStoredPage();
    case BlockStep::WindowWanted:
      return deps_.openBlockWindow();
  }
}
