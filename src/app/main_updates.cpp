// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/main_updates.h"

#include <QApplication>
#include <QDesktopServices>
#include <QTimer>
#include <QWindow>

#include "app/new_version_window.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto kUntilNextTry = 100ms;  // to open Form6 while another window keeps it away

}  // namespace

MainUpdates::MainUpdates(const Dependencies& dependencies)
    : QObject(dependencies.mainWindow),
      deps_(dependencies),
      program_(dependencies.services.program),
      check_(CheckDependencies(), this) {
  deps_.windows.Register(
      WindowKind::SiteChanges, [this]() { return MakeListChanges(); }, false);
  deps_.windows.Register(
      WindowKind::NewVersion, [this]() { return MakeNewVersion(); }, false);
  connect(&deps_.logic.poll, &PollCycle::UpdateCheckWanted, &check_, &UpdateCheck::CheckForUpdates);
  connect(&check_, &UpdateCheck::ListCame, &deps_.pic, &MenuStrip::ShowListSign);
  connect(&check_, &UpdateCheck::ListFailed, &deps_.logic.cams, &CamRound::ListFailed);
  connect(&check_, &UpdateCheck::NewVersionFound, this, &MainUpdates::AskVersion);
  connect(&check_, &UpdateCheck::ChangesFound, this, &MainUpdates::OpenListChanges);
}

UpdateCheck::Dependencies MainUpdates::CheckDependencies() {
  Services& s = deps_.services;
  const auto keepCopy = [this](QObject* context, const std::function<void(bool)>& then) {
    deps_.backup.MakeBeforeUpdate(context, [then](const BackupResult& result) { then(result.failed.isEmpty()); });
  };
  return {s.program,         s.network, s.run.hosts,
          s.background,      s.clock,   s.database,
          s.run.systemClock, keepCopy,  [this]() { return MayOpen(); }};
}

void MainUpdates::Stop() {
  isStopped_ = true;
  check_.Stop();
}

// Setup windows and message boxes are modal. The question about a new version is not, and may stay unanswered for
// hours.
bool MainUpdates::MayOpen() const {
  return QApplication::activeModalWidget() == nullptr && QApplication::activePopupWidget() == nullptr &&
         deps_.windows.Find(WindowKind::SiteChanges) == nullptr;
}

BaseWindow* MainUpdates::MakeNewVersion() {
  auto* window = new Form22(program_, deps_.mainWindow);
  connect(window, &Form22::PageWanted, this, [this]() {
    const QUrl page(deps_.services.run.hosts.Author);
    if (!page.isEmpty()) QDesktopServices::openUrl(page);
  });
  return window;
}

void MainUpdates::AskVersion(const QString& version) {
  static_cast<Form22&>(deps_.windows.Get(WindowKind::NewVersion)).Take(version);
  deps_.windows.Show(WindowKind::NewVersion);
}

BaseWindow* MainUpdates::MakeListChanges() {
  auto* window = new Form6(program_);
  connect(window, &Form6::Decided, this, &MainUpdates::Apply);
  return window;
}

void MainUpdates::OpenListChanges(const SiteListPlan& plan) {
  deps_.logic.poll.StopRefreshTimers();
  static_cast<Form6&>(deps_.windows.Get(WindowKind::SiteChanges)).Take(plan);
  deps_.windows.Show(WindowKind::SiteChanges);
  // Only now: a moment without any window would take the focus away from the program.
  corner_ = deps_.mainWindow->pos();
  isHidden_ = deps_.mainWindow->isVisible();
  deps_.mainWindow->hide();
}

void MainUpdates::Apply(const SiteListPlan& plan, const QSet<int>& kept) {
  // Windows are closed with the program, too: then nothing is applied, and the next run finds the same changes.
  if (isStopped_) return;
  ShowMainWindow();
  if (program_.config.AutoRefreshOn == 1) deps_.logic.poll.StartRefreshTimer();
  if (plan.IsEmpty()) return;
  ChangeOptions options;
  options.news = SiteNews{RemovedCalls(plan, kept), AddedSites(plan)};
  deps_.logic.changes.ChangeManySites([plan, kept](SiteEdit& edit) { ApplyPlan(plan, kept, edit.dsstv); }, options,
                                      this,
                                      [this, plan, kept](const QStringList& notWritten) {
                                        if (notWritten.isEmpty()) return SavePositions(plan.positions);
                                        OpenAgain(plan, kept, notWritten);
                                      });
}

void MainUpdates::ShowMainWindow() {
  if (!std::exchange(isHidden_, false)) return;
  // Before it shows: the window manager gives a new place to a window that comes without one. QWidget::move() does
  // nothing where the widget believes that it is there already.
  deps_.mainWindow->move(corner_);
  if (QWindow* window = deps_.mainWindow->windowHandle()) window->setFramePosition(corner_);
  deps_.mainWindow->show();
}

void MainUpdates::OpenAgain(const SiteListPlan& plan, const QSet<int>& kept, const QStringList& notWritten) {
  if (isStopped_) return;
  if (!MayOpen()) {
    QTimer::singleShot(kUntilNextTry, this, [this, plan, kept, notWritten]() { OpenAgain(plan, kept, notWritten); });
    return;
  }
  OpenListChanges(plan);
  static_cast<Form6&>(deps_.windows.Get(WindowKind::SiteChanges)).TakeFailure(kept, notWritten);
}

// Of a record that is found only the position changes. The records are looked up beside the event loop.
void MainUpdates::SavePositions(const QList<ListedStation>& positions) {
  if (positions.isEmpty()) return;
  const auto stations = [positions, reader = deps_.services.database.Reader()]() mutable {
    QList<StationRecord> records;
    for (const ListedStation& station : positions) {
      StationRecord saved{station.call, {}};
      if (const std::optional<FoundRecord> found = reader.Find(station.call)) {
        if (!station.place.MayReplaceRecord()) continue;
        saved.record = found->record;
      } else {
        saved.record.Call = station.call;
      }
      saved.record.Lat = CoordinateText(station.place.lat);
      saved.record.Lon = CoordinateText(station.place.lon);
      records.append(saved);
    }
    return records;
  };
  deps_.services.background.Run<QList<StationRecord>>(this, stations, [this](const QList<StationRecord>& records) {
    if (records.isEmpty()) return;
    deps_.services.database.SaveStations(records, this, [this](bool durable) {
      if (durable || isStopped_) return;
      deps_.services.dialogs.Inform(
          deps_.mainWindow,
          tr("The sites have been changed, but their positions could not be written to the call database."), true);
    });
  });
}
