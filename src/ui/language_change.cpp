// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/language_change.h"

#include <QApplication>
#include <QPointer>
#include <QWidget>

void SendLanguageChange() {
  // Send it only to windows without an owner, which pass it to their children, other windows among them. An event to
  // the application would go to every window as well, so that one with an owner would write its texts twice.
  QList<QPointer<QWidget>> withoutOwner;
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->parentWidget() == nullptr) withoutOwner += window;
  }
  for (const QPointer<QWidget>& window : withoutOwner) {
    // A window may have been closed while an earlier one wrote its texts.
    if (!window) continue;
    QEvent change(QEvent::LanguageChange);
    QApplication::sendEvent(window, &change);
  }
}
