// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/language_change.h"

#include <QApplication>
#include <QPointer>
#include <QWidget>

void SendLanguageChange() {
  // A window passes the event to its children, windows among them. An event to the application would go to every
  // window besides, so that one with an owner would write its texts twice.
  QList<QPointer<QWidget>> withoutOwner;
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->parentWidget() == nullptr) withoutOwner += window;
  }
  for (const QPointer<QWidget>& window : withoutOwner) {
    // A window may have been closed by the texts of one before it.
    if (!window) continue;
    QEvent change(QEvent::LanguageChange);
    QApplication::sendEvent(window, &change);
  }
}
