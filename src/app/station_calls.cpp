// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/station_calls.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>

#include "callbook/call_entry.h"
#include "callbook/station_place.h"
#include "station/distance.h"

using namespace Qt::StringLiterals;

StationCalls::StationCalls(const MainWindow& mainWindow, QWidget* window)
    : QObject(window),
      services_(mainWindow.services),
      program_(mainWindow.services.program),
      logic_(mainWindow.logic),
      pic_(mainWindow.pic),
      picAll_(mainWindow.picAll),
      menus_(mainWindow.menus),
      windows_(mainWindow.windows),
      window_(window) {
  pic_.txtCall->installEventFilter(this);
  connect(pic_.cmdGo, &QPushButton::clicked, this, &StationCalls::GoClick);
  connect(&picAll_, &PageView::SenderPressed, this, &StationCalls::SenderClick);
  Commands& commands = services_.commands;
  commands.Register(Command::LookUp, this,
                    [this](const MenuChoice& choice) { MnuQrzFromClick(choice.text, choice.subject); });
  commands.Register(Command::ShowOnMap, this,
                    [this](const MenuChoice& choice) { MnuMapLocCallClick(choice.index, choice.subject); });
}

QRect StationCalls::CallFieldPlace() const {
  return {pic_.txtCall->mapToGlobal(QPoint(0, 0)), pic_.txtCall->size()};
}

bool StationCalls::eventFilter(QObject* watched, QEvent* event) {
  // Only txtCall is watched. Do not compare watched with it: events still come while the bar is being destroyed.
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

void StationCalls::PasteCall() {
  pic_.txtCall->clear();
  const QString call = CallOfClipboard(QGuiApplication::clipboard()->text());
  if (call.isEmpty()) return;
  pic_.txtCall->setText(call);
  windows_.LookUp(call, CallFieldPlace()).CentrePointer();
  window_->raise();
  window_->activateWindow();
  pic_.txtCall->setFocus();
}

void StationCalls::GoClick() {
  const QString call = CallOfField(pic_.txtCall->text());
  if (!call.isEmpty()) windows_.LookUp(call, CallFieldPlace());
}

void StationCalls::SenderClick(int slot) {
  if (!logic_.grid.HasSlot(slot)) return;
  program_.page.SelectedSlot = slot;
  const QString call = CallOfCaption(program_.page.Field(slot, Caller), program_.lstBadCalls);
  if (!call.isEmpty()) windows_.LookUp(call, picAll_.SenderPlace(slot));
}

void StationCalls::MnuQrzFromClick(const QString& text, const MenuSubject& subject) {
  menus_.CloseMenus();
  pic_.txtCall->clear();
  const QString call = CallOfCaption(text, program_.lstBadCalls);
  if (call.isEmpty()) return;
  windows_.LookUp(call, subject.senderPlace).CentrePointer();
}

void StationCalls::MnuMapLocCallClick(int index, const MenuSubject& subject) {
  QString call = CutAtFirstOther(index == 0 ? subject.site : subject.caller);
  if (call.isEmpty()) return;
  call.replace(u'Ø', u'0');
  const TargetLocation target = PlaceOf(program_, services_.database, call);
  if (!IsKnownPosition(target.TargetLat, target.TargetLon)) return;
  windows_.ShowOnMap(call, target.TargetLat, target.TargetLon);
}
