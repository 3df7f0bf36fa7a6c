// SPDX-License-Identifier: GPL-3.0-or-later
#include "maps/call_map_window.h"

#include <algorithm>
#include <utility>

qsizetype CallMapWindow::LabelOf(const QString& call) {
  const QList<MapOverlay::Label>& labels = View().Labels();
  const auto found = std::find_if(labels.begin(), labels.end(), [&](const auto& label) { return label.id == call; });
  return found == labels.end() ? -1 : found - labels.begin();
}

void CallMapWindow::LabelPressed(const QString& name, const QPoint& at, bool byKeyboard) {
  const QList<MapOverlay::Label>& labels = View().Labels();
  const auto pressed =
      std::find_if(labels.begin(), labels.end(), [&](const auto& label) { return label.name == name; });
  if (pressed == labels.end()) return;
  menuCall_ = pressed->id;
  MenuRequest request;
  request.menu = MenuId::MapCall;
  request.subject.caller = menuCall_;
  request.subject.placed = true;
  request.owner = this;
  request.name = pressed->text.trimmed();
  request.at = at;
  request.byKeyboard = byKeyboard;
  menus_.OpenMenu(request);
}

void CallMapWindow::MnuPopupClick(int index) {
  if (index != 0) return;  // app/media_views opens the views of the place
  // The label may have gone while the menu was open.
  const qsizetype label = LabelOf(menuCall_);
  const QRect place = label < 0 ? QRect(View().rect().center(), QSize(1, 1)) : View().LabelRect(label);
  Q_EMIT LookupWanted(menuCall_, QRect(View().mapToGlobal(place.topLeft()), place.size()));
}

bool CallMapWindow::BringToFront() {
  if (!std::exchange(opened_, true)) return false;
  // Its picture is still being read and will show it: shown now it would be empty, and in a place of its own.
  if (!isVisible()) return true;
  // A minimized window would stay where nobody sees it.
  setWindowState(windowState() & ~Qt::WindowMinimized);
  show();
  raise();
  activateWindow();
  return true;
}
