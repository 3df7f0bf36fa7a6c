// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/windows.h"

#include <algorithm>
#include <array>

#include "onair/rx_ok_window.h"
#include "platform/heap.h"
#include "station/callsign.h"
#include "ui/msg_box_timed.h"
#include "ui/setup_window.h"

using namespace std::chrono_literals;

namespace {
constexpr auto kPrintNotice = 10s;
}  // namespace

Windows::Windows(Services& services, MenuOpener& menus, const RxOkList& lstRxOk, CamRound& cams, QWidget* mainWindow)
    : QObject(mainWindow),
      services_(services),
      menus_(menus),
      lstRxOk_(lstRxOk),
      cams_(cams),
      mainWindow_(mainWindow),
      paste_({services.program, services.dialogs, services.easyPal}, mainWindow),
      printJobs_(services.tool),
      onAirCaption_(services.program, [this]() { return Find(WindowKind::OnAirNow) != nullptr; }) {
  connect(&printJobs_, &PrintJobs::Ended, this, &Windows::TellPrintEnd);
  RegisterOwn();
  RegisterOnAirCommands();
  RegisterHistoryCommands();
  services_.commands.Register(Command::LookUpMapCall, this, [](const MenuChoice& choice) {
    if (auto* map = qobject_cast<MapWindow*>(choice.owner.data())) map->MnuPopupClick(choice.index);
  });
}

Windows::~Windows() {
  for (const QPointer<BaseWindow>& window : std::as_const(open_)) delete window;
}

void Windows::RegisterOwn() {
  struct Row {
    WindowKind kind;
    BaseWindow* (Windows::*make)();
  };
  constexpr std::array kRows = {
      Row{WindowKind::Lookup, &Windows::MakeLookup},
      Row{WindowKind::History, &Windows::MakeHistory},
      Row{WindowKind::LocationMap, &Windows::MakeLocationMap},
      Row{WindowKind::OnAirNow, &Windows::MakeOnAirNow},
      Row{WindowKind::PropagationMap, &Windows::MakePropagationMap},
      Row{WindowKind::OnAirMap, &Windows::MakeOnAirMap},
      Row{WindowKind::ReceivedOkMap, &Windows::MakeReceivedOkMap},
      Row{WindowKind::Viewer, &Windows::MakeViewer},
      Row{WindowKind::SiteIndex, &Windows::MakeSiteIndex},
      Row{WindowKind::CamStatus, &Windows::MakeCamStatus},
      Row{WindowKind::Comparison, &Windows::MakeComparison},
      Row{WindowKind::Print, &Windows::MakePrint},
      Row{WindowKind::Information, &Windows::MakeInformation},
  };
  for (const Row& row : kRows) {
    Register(
        row.kind, [this, make = row.make]() { return (this->*make)(); }, false);
  }
}

void Windows::Register(WindowKind kind, std::function<BaseWindow*()> make, bool isSetup) {
  registrations_.append({kind, std::move(make), isSetup});
}

QList<WindowKind> Windows::Kinds() const {
  QList<WindowKind> kinds;
  for (const Registration& registration : registrations_) kinds.append(registration.kind);
  return kinds;
}

BaseWindow& Windows::Get(WindowKind kind) {
  if (BaseWindow* window = Find(kind)) return *window;
  const auto registered = [kind](const Registration& registration) { return registration.kind == kind; };
  BaseWindow* window = std::find_if(registrations_.cbegin(), registrations_.cend(), registered)->make();
  // A closed window is deleted when the event loop turns, and must not be opened again until then.
  connect(window, &BaseWindow::Closed, this, [this, kind]() { open_.remove(kind); });
  connect(window, &BaseWindow::HelpWanted, this, &Windows::HelpWanted);
  connect(window, &QObject::destroyed, this, [this]() {
    services_.background.Run<bool>(nullptr,
                                   []() {
                                     GiveBackFreeMemory();
                                     return true;
                                   },
                                   {});
  });
  open_.insert(kind, window);
  return *window;
}

BaseWindow* Windows::MakeLookup() {
  Services& s = services_;
  const LookupSession::Dependencies session{s.program,    s.network,   s.tool,    s.pageText,
                                            s.background, s.run.hosts, s.cookies, s.database};
  auto* window = new Form12(Form12::Dependencies{session, s.SignIn(), s.dialogs, s.commands, menus_}, mainWindow_);
  connect(window, &Form12::LookupStatusChanged, this, &Windows::LookupStatusChanged);
  connect(window, &Form12::MapWanted, this, &Windows::ShowOnMap);
  connect(window, &Form12::PageViewWanted, this, &Windows::PageViewWanted);
  connect(window, &Form12::Stored, this, &Windows::PlacesChanged);
  connect(window, &BaseWindow::Closed, this, &Windows::RaiseMaps);
  return window;
}

void Windows::PlacesChanged() {
  if (auto* list = qobject_cast<frmOnAirNow*>(Find(WindowKind::OnAirNow))) list->Rebuild();
  for (const QPointer<BaseWindow>& open : std::as_const(open_)) {
    if (auto* map = qobject_cast<CallMapWindow*>(open.data())) map->Rebuild();
  }
}

void Windows::BlocksChanged() {
  if (auto* history = qobject_cast<Form15*>(Find(WindowKind::History))) history->TakeBlocks();
}

BaseWindow* Windows::MakeHistory() {
  Services& s = services_;
  const History::Dependencies history{s.program, s.network, s.tool, s.background};
  auto* window = new Form15({history, s.database, menus_}, mainWindow_);
  connect(window, &Form15::Fetching, this, &Windows::HistoryFetching);
  connect(window, &Form15::ComparisonWanted, this, [this](const PictureList& pair) {
    Q_EMIT HistoryPictureWanted();
    ShowComparison(pair);
  });
  connect(window, &Form15::ViewWanted, this, [this](const PictureList& pictures) {
    Q_EMIT HistoryPictureWanted();
    ShowViewer(pictures);
  });
  connect(window, &Form15::DragWanted, this,
          [this, window](const SourcePicture& picture) { Q_EMIT HistoryDragWanted(picture, window); });
  connect(window, &Form15::SaveAllWanted, this,
          [this, window](const PictureList& list) { Q_EMIT HistorySaveWanted(list, window); });
  connect(window, &Form15::LookupWanted, this,
          [this](const QString& call, const QRect& beside) { LookUp(call, beside); });
  return window;
}

template <typename Map>
BaseWindow* Windows::Connected(Map* window) {
  connect(window, &Map::LookupWanted, this, [this](const QString& call, const QRect& beside) { LookUp(call, beside); });
  connect(window, &Map::CopyWanted, this, [this, window](const QImage& seen) { Q_EMIT MapCopyWanted(seen, window); });
  connect(window, &Map::SaveWanted, this, [this, window](const QImage& seen) { Q_EMIT MapSaveWanted(seen, window); });
  return window;
}

BaseWindow* Windows::MakeLocationMap() {
  return Connected(new frmMapLoc(services_.program, services_.maps, menus_, mainWindow_));
}

BaseWindow* Windows::MakeOnAirNow() {
  Services& s = services_;
  const OnAirFeed::Dependencies feed{s.program, s.network, s.run.hosts, s.pageText, s.background};
  auto* window = new frmOnAirNow({{feed, s.store, s.database}, s.tool, menus_, lblOnAirNow_}, mainWindow_);
  connect(window, &frmOnAirNow::CaptionChanged, this, [this](const QString& caption) {
    lblOnAirNow_ = caption;
    Q_EMIT OnAirCaptionChanged(caption);
  });
  return window;
}

BaseWindow* Windows::MakePropagationMap() {
  Services& s = services_;
  const PropagationSession::Dependencies session{s.program, s.network, s.background, s.run.hosts,
                                                 s.store,   s.clock,   s.database,   PeriodMinutes_};
  auto* window = new frmMapPropagation({session, s.maps, menus_}, mainWindow_);
  return Connected(window);
}

BaseWindow* Windows::MakeOnAirMap() {
  Services& s = services_;
  const OnAirFeed::Dependencies feed{s.program, s.network, s.run.hosts, s.pageText, s.background};
  auto* window = new frmMapOnAir(
      {{feed, s.store, s.database}, s.program, s.maps, s.tool, menus_, s.dialogs, onAirCaption_}, mainWindow_);
  connect(window, &frmMapOnAir::PasteWanted, this,
          [this, window](const QImage& seen) { Q_EMIT PasteWanted(seen, window); });
  return Connected(window);
}

BaseWindow* Windows::MakeReceivedOkMap() {
  Services& s = services_;
  const RxOkLookups::Dependencies lookUps{s.program, s.network,    s.run.hosts, s.pageText,
                                          s.tool,    s.background, s.database};
  auto* window = new frmMapRxOk({lookUps, lstRxOk_, s.maps, menus_}, mainWindow_);
  connect(window, &frmMapRxOk::LocationMissing, this, [this, window]() {
    services_.dialogs.Inform(window, services_.program.language[TextLine::kMapNeedsLocation].trimmed(), false);
  });
  return Connected(window);
}

BaseWindow* Windows::MakeViewer() {
  Services& s = services_;
  auto* window = new Form2({{s.tool, s.background}, drawing_, s.program, menus_}, mainWindow_);
  connect(window, &Form2::FilmFound, this, &Windows::FilmFound);
  connect(window, &Form2::FilmWanted, this, &Windows::FilmWanted);
  connect(window, &BaseWindow::Closed, this, [this]() {
    if (BaseWindow* history = Find(WindowKind::History)) history->raise();
  });
  return window;
}

void Windows::LanguageLoaded() {
  onAirCaption_.TakeLanguage();
  lblOnAirNow_.clear();
}

BaseWindow* Windows::MakeSiteIndex() {
  auto* window = new Form19(services_.program, cams_, siteIndexPlace_, mainWindow_);
  connect(window, &BaseWindow::Closed, this, [this, window]() { siteIndexPlace_ = window->Place(); });
  return window;
}

BaseWindow* Windows::MakeCamStatus() {
  auto* window = new Form20(services_.program, cams_, mainWindow_);
  connect(window, &Form20::CamWanted, this, &Windows::CamWanted);
  return window;
}

BaseWindow* Windows::MakeComparison() {
  Services& s = services_;
  return new CompareWindow({{s.tool, s.background}, drawing_, s.program}, mainWindow_);
}

BaseWindow* Windows::MakePrint() {
  Services& s = services_;
  return new Form21({s.program, s.tool, s.background, s.store, s.dialogs, printJobs_}, mainWindow_);
}

void Windows::TellPrintEnd(int job, PrintEnd end, const QString& file) {
  const auto* window = qobject_cast<const Form21*>(Find(WindowKind::Print));
  const bool isGood = end == PrintEnd::Printed || end == PrintEnd::Cancelled;
  if (isGood || (window != nullptr && window->Tells(job))) return;
  frmMsgBoxTimed::ShowMsg(mainWindow_, Form21::TextOf(end, file), kPrintNotice);
}

BaseWindow* Windows::MakeInformation() {
  return new frmInfo({services_.program, services_.tool}, mainWindow_);
}

void Windows::RegisterOnAirCommands() {
  Commands& commands = services_.commands;
  commands.Register(Command::ShowOnAirList, this, [this](const MenuChoice&) { Show(WindowKind::OnAirNow); });
  commands.Register(Command::ShowOnAirMap, this,
                    [this](const MenuChoice&) { static_cast<frmMapOnAir&>(Get(WindowKind::OnAirMap)).Open(); });
  commands.Register(Command::LookUpListCall, this, [this](const MenuChoice& choice) {
    if (const auto* map = qobject_cast<frmMapOnAir*>(choice.owner.data())) {
      LookUp(choice.subject.caller, map->ListPlace());
    } else if (const auto* list = qobject_cast<QWidget*>(choice.owner.data())) {
      LookUp(choice.subject.caller, list->frameGeometry());
    }
  });
  commands.Register(Command::ShowListCallOnMap, this, [this](const MenuChoice& choice) {
    // The list of the on-air map lies on a map already; a call that is off its picture still has its own.
    auto* map = qobject_cast<frmMapOnAir*>(choice.owner.data());
    if (map != nullptr && map->ShowCall(choice.subject.caller)) return;
    const TargetLocation place = services_.database.LookupTargetLocation(choice.subject.caller);
    ShowOnMap(choice.subject.caller, place.TargetLat, place.TargetLon);
  });
}

void Windows::RegisterHistoryCommands() {
  Commands& commands = services_.commands;
  const auto opens = [this, &commands](Command command, bool txMode) {
    commands.Register(command, this, [this, txMode](const MenuChoice& choice) {
      ShowHistory({.Last15Slot = choice.subject.source.slot + 1, .TxMode = txMode});
    });
  };
  opens(Command::ShowHistory, false);
  opens(Command::ShowTxHistory, true);
  commands.Register(Command::ReloadHistoryPicture, this, [](const MenuChoice& choice) {
    if (auto* history = qobject_cast<Form15*>(choice.owner.data())) history->MnuPopupClick(choice.index);
  });
}

void Windows::ShowHistory(const HistoryOrigin& origin) {
  static_cast<Form15&>(Get(WindowKind::History)).Open(origin);
}

void Windows::Close(WindowKind kind) {
  if (BaseWindow* window = Find(kind)) window->close();
}

void Windows::Show(WindowKind kind) {
  BaseWindow& window = Get(kind);
  window.show();
  window.raise();
  window.activateWindow();
}

Form19& Windows::ShowSiteIndex() {
  Close(WindowKind::SiteIndex);
  Show(WindowKind::SiteIndex);
  return static_cast<Form19&>(Get(WindowKind::SiteIndex));
}

void Windows::ShowPrint(const Form21::Picture& picture) {
  LowerViewer();
  static_cast<Form21&>(Get(WindowKind::Print)).Open(picture);
}

void Windows::ShowPropagationMap() {
  static_cast<frmMapPropagation&>(Get(WindowKind::PropagationMap)).Open();
}

Form12& Windows::LookUp(const QString& call, const QRect& beside) {
  auto& window = static_cast<Form12&>(Get(WindowKind::Lookup));
  LowerViewer();
  window.Open(call, beside);
  return window;
}

// Also called with one coordinate 0: a station on the equator or on the prime meridian is drawn there.
void Windows::ShowOnMap(const QString& call, double lat, double lon) {
  const QString shown = ShownCall(call, services_.program.ZeroGlyph);
  LowerViewer();
  static_cast<frmMapLoc&>(Get(WindowKind::LocationMap)).PickMapForTarget(shown, lat, lon);
}

void Windows::ShowReceivedOkMap() {
  static_cast<frmMapRxOk&>(Get(WindowKind::ReceivedOkMap)).Open();
}

void Windows::ShowViewer(const PictureList& pictures) {
  static_cast<Form2&>(Get(WindowKind::Viewer)).Open(pictures);
}

void Windows::ShowComparison(const PictureList& pair) {
  LowerViewer();
  static_cast<CompareWindow&>(Get(WindowKind::Comparison)).Open(pair);
}

void Windows::ShowPictureInfo(const SourceFile& file, const QWidget* owner) {
  LowerViewer();
  static_cast<frmInfo&>(Get(WindowKind::Information)).ShowPictureInfo(file, owner);
}

void Windows::LowerViewer() {
  if (auto* viewer = qobject_cast<Form2*>(Find(WindowKind::Viewer))) viewer->LeaveTop();
}

// The lookup window has covered the maps and the history.
void Windows::RaiseMaps() {
  for (const WindowKind kind : Kinds()) {
    BaseWindow* window = Find(kind);
    const bool covered = qobject_cast<MapWindow*>(window) != nullptr || kind == WindowKind::History;
    if (covered && window != nullptr && window->isVisible()) window->raise();
  }
}

BaseWindow* Windows::OpenSetupWindow() const {
  for (const Registration& registration : registrations_) {
    if (BaseWindow* window = Find(registration.kind); window != nullptr && registration.isSetup) return window;
  }
  return nullptr;
}

void Windows::CloseSetupWindows() {
  for (const Registration& registration : std::as_const(registrations_)) {
    BaseWindow* window = Find(registration.kind);
    if (registration.isSetup && window != nullptr) window->close();
  }
}

void Windows::ProgramEnds() {
  for (const WindowKind kind : Kinds()) {
    if (auto* window = qobject_cast<SetupWindow*>(Find(kind))) window->ProgramEnds();
  }
}

void Windows::CloseAll() {
  for (const WindowKind kind : Kinds()) {
    if (BaseWindow* window = Find(kind)) window->close();
  }
  if (services_.web.IsLoaded()) services_.web.Windows()->CloseAll();
}
