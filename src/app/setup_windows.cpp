// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/setup_windows.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>

#include "callbook/database_editor_window.h"
#include "callbook/own_location_window.h"
#include "platform/paths.h"
#include "sites/page_names_window.h"
#include "ui/msg_box_timed.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

// Entries of the setup menu that open no setup window.
constexpr int kReceivedOkMap = 0;
constexpr int kBackup = 14;
constexpr int kHelp = 15;
constexpr int kAbout = 16;

constexpr qsizetype kFilesNamed = 5;  // in a message; the rest is counted
constexpr auto kNoticeTime = 8s;

}  // namespace

// Which entry opens which window. The entries that are not here stay grey.
const QList<SetupWindows::Row>& SetupWindows::Rows() {
  static const QList<Row> rows = {
      {1, WindowKind::OwnLocation, &SetupWindows::MakeOwnLocation},
      {2, WindowKind::DatabaseEditor, &SetupWindows::MakeDatabaseEditor},
      {3, WindowKind::PageNames, &SetupWindows::MakePageNames},
      {4, WindowKind::AddSite, &SetupWindows::MakeAddSite},
      {5, WindowKind::EditSite, &SetupWindows::MakeEditSite},
      {6, WindowKind::DeleteSite, &SetupWindows::MakeDeleteSite},
      {7, WindowKind::BlockCalls, &SetupWindows::MakeBlockCalls},
  };
  return rows;
}

SetupWindows::SetupWindows(const Dependencies& dependencies)
    : QObject(dependencies.mainWindow),
      deps_(dependencies),
      sites_({dependencies.services, dependencies.logic, dependencies.mainWindow,
              [this]() { Open(WindowKind::BlockCalls); }, [this]() { deps_.windows.BlocksChanged(); }},
             this),
      backup_(BackupNeeds()) {
  // A choice from elsewhere, as that of a button on the empty page, has no index in this menu.
  const auto does = [this](int index) {
    deps_.services.commands.Register(MenuTables::SetupCommand(index), this,
                                     [this, index](const MenuChoice&) { MnuSetupClick(index); });
  };
  for (const Row& row : Rows()) {
    deps_.windows.Register(
        row.kind, [this, make = row.make]() { return (this->*make)(); }, true);
    does(row.index);
  }
  for (const int index : {kReceivedOkMap, kBackup, kHelp, kAbout}) does(index);
  connect(&deps_.windows, &Windows::HelpWanted, this, &SetupWindows::ShowHelp);
}

void SetupWindows::MnuSetupClick(int index) {
  deps_.menus.CloseMenus();
  deps_.windows.CloseSetupWindows();
  for (const Row& row : Rows()) {
    if (row.index == index) return deps_.windows.Show(row.kind);
  }
  if (index == kReceivedOkMap) deps_.showReceivedOkMap();
  if (index == kBackup) MakeBackup();
  if (index == kHelp) ShowHelp();
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

BaseWindow* SetupWindows::MakePageNames() {
  deps_.logic.poll.StopRefreshTimers();
  return new Form5({deps_.services.program, deps_.logic.mover}, deps_.mainWindow);
}

Backup::Dependencies SetupWindows::BackupNeeds() {
  Services& s = deps_.services;
  const auto saveState = [this, &s](const SiteChanges::Done& then) {
    deps_.logic.changes.SaveAllState([this, &s, then](const QStringList& notWritten) {
      s.background.Run<bool>(
          this, [folder = s.run.appDataDir, names = s.program.nicknames]() { return WriteNicknames(folder, names); },
          [then, notWritten](bool written) {
            then(written ? notWritten : notWritten + QStringList{u"Nicknames.txt"_s});
          });
    });
  };
  const auto mergeDatabase = [this, &s](const std::function<void()>& then) {
    s.database.SortDatabase(this, [then](bool) { then(); });
  };
  return {s.run.appDataDir, s.clock, s.background, saveState, mergeDatabase};
}

void SetupWindows::MakeBackup() {
  const LanguageTexts& texts = deps_.services.program.language;
  const QString question = texts[TextLine::kBackupQuestion].trimmed() + u'\n' + backup_.Folder() + u'\n' +
                           texts[TextLine::kBackupReplaces].trimmed();
  if (!deps_.services.dialogs.AskSecond(deps_.mainWindow, question, texts[TextLine::kNoWord].trimmed(),
                                        texts[TextLine::kYesWord].trimmed())) {
    return;
  }
  backup_.Make(this, [this](const BackupResult& result) { TellBackup(result); });
}

void SetupWindows::TellBackup(const BackupResult& result) {
  if (result.failed.isEmpty()) {
    frmMsgBoxTimed::ShowDone(deps_.mainWindow, tr("The files have been copied to %1").arg(result.folder), kNoticeTime);
    return;
  }
  QStringList lines{tr("The backup is not complete. These files could not be written:")};
  lines += result.failed.first(std::min(kFilesNamed, result.failed.size()));
  const qsizetype more = result.failed.size() - kFilesNamed;
  if (more > 0) lines += tr("and %n more", nullptr, static_cast<int>(more));
  deps_.services.dialogs.Inform(deps_.mainWindow, lines.join(u'\n'), true);
}

void SetupWindows::ShowHelp() {
  const QString path = ResolvePath(deps_.services.program.AppDataDir, u"Help.txt"_s);
  if (QFileInfo::exists(path) && QDesktopServices::openUrl(QUrl::fromLocalFile(path))) return;
  deps_.services.dialogs.Inform(deps_.mainWindow, tr("The help could not be opened: %1").arg(path), false);
}

BaseWindow* SetupWindows::MakeDatabaseEditor() {
  Services& s = deps_.services;
  auto* window = new Form26({LookUps(), s.SignIn(), s.dialogs}, deps_.mainWindow);
  connect(window, &Form26::Stored, &deps_.windows, &Windows::PlacesChanged);
  connect(window, &BaseWindow::Closed, this, deps_.focusCallField);
  return window;
}

void SetupWindows::ShowAbout() {
  deps_.services.dialogs.Inform(deps_.mainWindow, Program::ProgReleased() + u'\n' + Program::ProgVersion(), false);
}
