// SPDX-License-Identifier: GPL-3.0-or-later
#include "onair/rx_ok_window.h"

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr int kPanelGap = 8;  // between a panel and the window's edge

}  // namespace

frmMapRxOk::frmMapRxOk(const Dependencies& dependencies, QWidget* opener)
    : CallMapWindow({u"frmMapRxOk"_s}, dependencies.program, dependencies.maps, dependencies.menus, opener),
      lstRxOk_(dependencies.lstRxOk),
      lookUps_(dependencies),
      legend_(this),
      picLookUp_(this) {
  Timer2.setSingleShot(true);
  Timer2.setInterval(100ms);
  connect(&Timer2, &QTimer::timeout, this, &frmMapRxOk::ShowMap);
  connect(&lstRxOk_, &RxOkList::Changed, this, &frmMapRxOk::RedrawMap2);
  connect(&lookUps_, &RxOkLookups::Found, this, &frmMapRxOk::Redraw);
  connect(&lookUps_, &RxOkLookups::StateChanged, &picLookUp_, [this]() { picLookUp_.Show(lookUps_.Shown()); });
  connect(&picLookUp_, &RxOkLookupPanel::Resized, this, &frmMapRxOk::PlacePanels);
  connect(&View(), &MapView::LabelPointed, this,
          [this](qsizetype label) { UncoverMap(View().LabelRect(label).translated(View().pos())); });
  connect(&View(), &MapView::PointerMoved, this, [this](const std::optional<QPointF>& point) {
    const QPoint at = point ? point->toPoint() + View().picInner().topLeft() + View().pos() : QPoint(-1, -1);
    UncoverMap(QRect(at, QSize(1, 1)));
  });
}

void frmMapRxOk::Open() {
  if (!Timer2.isActive() && !BringToFront()) Timer2.start();
}

void frmMapRxOk::ShowMap() {
  const int last = static_cast<int>(program_.lstMap.size()) - 1;
  SetMapIndex(last < 0 ? -1 : std::clamp(program_.config.MapIndex, 0, last));
  TakeList();
  Redraw_Map();
}

// The request for the own position comes over the map. Queued, because the message lets events run.
void frmMapRxOk::showEvent(QShowEvent* event) {
  CallMapWindow::showEvent(event);
  if (!IsOpened() || HasOwnPosition() || std::exchange(positionWanted_, true)) return;
  QMetaObject::invokeMethod(this, &frmMapRxOk::LocationMissing, Qt::QueuedConnection);
}

void frmMapRxOk::RedrawMap2() {
  lookUps_.ReadDatabaseAgain();
  Redraw();
}

void frmMapRxOk::Redraw() {
  if (!IsOpened() || Timer2.isActive()) return;
  TakeList();
  RedrawOverlay();
  PlaceInfo();
}

// Without an own position nothing is drawn, so that no place is needed.
void frmMapRxOk::TakeList() {
  stations_ = RxOkStations(lstRxOk_, program_.sites, lookUps_);
  QStringList unknown;
  QSet<QString> listed;
  for (const RxOkStation& station : std::as_const(stations_)) {
    listed.insert(station.row.call);
    if (!station.place.IsKnown()) unknown.append(station.row.call);
  }
  lookUps_.Keep(listed);
  lookUps_.Ask(HasOwnPosition() ? unknown : QStringList());
}

void frmMapRxOk::ShowTexts() {
  legend_.SetTexts(program_.language);
  picLookUp_.SetTexts(program_.language, program_.config.CallbookName);
  MapWindow::ShowTexts();
  PlacePanels();
}

MapDrawing frmMapRxOk::BuildDrawing(const MapSurface& surface) {
  return BuildRxOkMap(program_, stations_, surface);
}

void frmMapRxOk::resizeEvent(QResizeEvent* event) {
  MapWindow::resizeEvent(event);
  PlacePanels();
}

void frmMapRxOk::PlacePanels() {
  legend_.move(kPanelGap, height() - legend_.height() - kPanelGap);
  picLookUp_.move(width() - picLookUp_.width() - kPanelGap, height() - picLookUp_.height() - kPanelGap);
}

void frmMapRxOk::UncoverMap(const QRect& wanted) {
  legend_.setVisible(!legend_.geometry().intersects(wanted));
}

void frmMapRxOk::closeEvent(QCloseEvent* event) {
  // Either would show or change the closed window before it is deleted.
  Timer2.stop();
  lookUps_.Stop();
  menus_.CloseMenus();
  MapWindow::closeEvent(event);
}
