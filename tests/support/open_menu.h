// SPDX-License-Identifier: GPL-3.0-or-later
// Finds the open menu and its rows, for tests that choose as a user does.
#pragma once

#include <QApplication>
#include <QMenu>

// nullptr where none is open.
inline QMenu* OpenMenu() {
  return qobject_cast<QMenu*>(QApplication::activePopupWidget());
}

// The first row whose text contains this one; nullptr without any.
inline QAction* EntryThat(const QMenu* menu, const QString& text) {
  for (QAction* action : menu->actions()) {
    if (action->text().contains(text)) return action;
  }
  return nullptr;
}
