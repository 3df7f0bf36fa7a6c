// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/station_windows.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>

#include "callbook/call_entry.h"
#include "callbook/station_place.h"
#include "station/callsign.h"
#include "station/distance.h"

using namespace Qt::StringLiterals;

StationWindows::StationWindows(const Parts& parts, QWidget* window)
    : QObject(window),
      services_(parts.services),
      program_(parts.services.program),
      logic_(parts.logic),
      pic_(parts.pic),
      picAll_(parts.picAll),
      menus_(parts.menus),
      window_(window) {
  pic_.txtCall->installEventFilter(this);
  connect(pic_.cmdGo, &QPushButton::clicked, this, &StationWindows::GoClick);
  connect(&picAll_, &PageView::SenderPressed, this, &StationWindows::SenderClick);
  Commands& commands = services_.commands;
  commands.Register(Command::LookUp, this, [this](const MenuChoice& choice) { MnuQrzFromClick(choice.text); });
  commands.Register(Command::ShowOnMap, this, [this](const MenuChoice& choice) { MnuMapLocCallClick(choice.index); });
}

StationWindows::~StationWindows() = default;

Form12& StationWindows::Lookup() {
  if (!lookup_) {
    Services& s = services_;
    const auto browser = [&s]() { return s.web.Windows(); };
    const auto forget = [&s](const QUrl& url) { s.web.Forget(url); };
    const LookupSession::Parts session{s.program,    s.network,   s.tool,    s.pageText,
                                       s.background, s.run.hosts, s.cookies, s.database};
    lookup_ = new Form12(Form12::Parts{session, browser, forget, s.dialogs}, window_);
    connect(lookup_, &Form12::MapWanted, this, &StationWindows::ShowLookedUp);
    connect(lookup_, &BaseWindow::Closed, this, &StationWindows::LookupClosed);
  }
  return *lookup_;
}

frmMapLoc& StationWindows::Map() {
  if (!map_) {
    map_ = new frmMapLoc(program_, services_.maps, window_);
    connect(map_, &frmMapLoc::LookupWanted, this, &StationWindows::LookUp);
    connect(map_, &frmMapLoc::Closed, this, [this]() { map_.clear(); });
  }
  return *map_;
}

QRect StationWindows::CallFieldPlace() const {
  return {pic_.txtCall->mapToGlobal(QPoint(0, 0)), pic_.txtCall->size()};
}

bool StationWindows::eventFilter(QObject* watched, QEvent* event) {
  // It watches txtCall alone, also while the bar is being taken down.
  if (event->type() != QEvent::KeyPress) return QObject::eventFilter(watched, event);
  const int key = static_cast<QKeyEvent*>(event)->key();
  if (key == Qt::Key_F8) {
    PasteCall();
    return true;
  }
  if (key == Qt::Key_Return || key == Qt::Key_Enter) {
    GoClick();
    return true;
  }
  return false;
}

void StationWindows::PasteCall() {
  pic_.txtCall->clear();
  const QString call = CallOfClipboard(QGuiApplication::clipboard()->text());
  if (call.isEmpty()) return;
  pic_.txtCall->setText(call);
  LookUp(call, CallFieldPlace());
  Lookup().CentrePointer();
  window_->raise();
  window_->activateWindow();
  pic_.txtCall->setFocus();
}

void StationWindows::GoClick() {
  const QString call = CallOfField(pic_.txtCall->text());
  if (!call.isEmpty()) LookUp(call, CallFieldPlace());
}

void StationWindows::SenderClick(int slot) {
  if (!logic_.grid.HasSlot(slot)) return;
  program_.page.SelectedSlot = slot;
  const QString call = CallOfCaption(program_.page.Field(slot, Caller), program_.lstBadCalls);
  if (!call.isEmpty()) LookUp(call, picAll_.SenderPlace(slot));
}

void StationWindows::MnuQrzFromClick(const QString& text) {
  menus_.CloseMenus();
  pic_.txtCall->clear();
  const QString call = CallOfCaption(text, program_.lstBadCalls);
  if (call.isEmpty()) return;
  LookUp(call, picAll_.SenderPlace(program_.page.SelectedSlot));
  Lookup().CentrePointer();
}

void StationWindows::LookUp(const QString& call, const QRect& beside) {
  Lookup().Open(call, beside);
}

void StationWindows::LookupClosed() {
  // It deletes itself, and is not to be opened again until then.
  lookup_.clear();
  if (map_ && map_->isVisible()) map_->raise();
}

void StationWindows::MnuMapLocCallClick(int index) {
  const int slot = program_.page.SelectedSlot;
  if (!logic_.grid.HasSlot(slot)) return;
  ShowOnMap(CutAtFirstOther(program_.page.Field(slot, index == 0 ? SlotCall : Caller)));
}

void StationWindows::ShowOnMap(const QString& shown) {
  const QString call = QString(shown).replace(u'Ø', u'0');
  const TargetLocation target = PlaceOf(program_, services_.database, call);
  program_.TargetLat = target.TargetLat;
  program_.TargetLon = target.TargetLon;
  if (!IsKnownPosition(target.TargetLat, target.TargetLon)) return;
  Map().PickMapForTarget(ShownCall(call, program_.ZeroGlyph));
}

// Where the lookup has one coordinate only, the map is drawn with the other at 0: a station on the meridian has none.
void StationWindows::ShowLookedUp(const QString& call) {
  Map().PickMapForTarget(ShownCall(call, program_.ZeroGlyph));
}

void StationWindows::CloseAll() {
  if (lookup_) lookup_->close();
  if (map_) map_->close();
  if (services_.web.IsLoaded()) services_.web.Windows()->CloseAll();
}
