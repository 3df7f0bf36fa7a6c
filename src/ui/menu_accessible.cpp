// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/menu_accessible.h"

#include "ui/menu_window.h"

using namespace Qt::StringLiterals;

namespace {

frmMenu* MenuOf(const QObject* window) {
  return window->findChild<frmMenu*>(QString(), Qt::FindDirectChildrenOnly);
}

}  // namespace

AccessibleMenuOwner::AccessibleMenuOwner(QWidget* window) : QAccessibleWidget(window) {}

QAccessible::Role AccessibleMenuOwner::role() const {
  const auto* window = qobject_cast<const QWidget*>(object());
  return window != nullptr && window->isWindow() ? QAccessible::Window : QAccessibleWidget::role();
}

QAccessibleInterface* AccessibleMenuOwner::OpenMenu() const {
  frmMenu* menu = object() == nullptr ? nullptr : MenuOf(object());
  return menu != nullptr && menu->isVisible() ? QAccessible::queryAccessibleInterface(menu) : nullptr;
}

int AccessibleMenuOwner::childCount() const {
  return QAccessibleWidget::childCount() + (OpenMenu() == nullptr ? 0 : 1);
}

QAccessibleInterface* AccessibleMenuOwner::child(int index) const {
  return index == QAccessibleWidget::childCount() ? OpenMenu() : QAccessibleWidget::child(index);
}

int AccessibleMenuOwner::indexOfChild(const QAccessibleInterface* child) const {
  if (child != nullptr && child == OpenMenu()) return QAccessibleWidget::childCount();
  return QAccessibleWidget::indexOfChild(child);
}

void AccessibleMenuOwner::Install() {
  QAccessible::installFactory([](const QString& className, QObject* object) -> QAccessibleInterface* {
    // Qt asks for each class of an object up to QWidget, so at "QWidget" no other interface has claimed the window.
    // Take windows without a menu too: an interface may be asked for before the window has made its menu, and is kept.
    if (className != "QWidget"_L1) return nullptr;
    auto* widget = qobject_cast<QWidget*>(object);
    return widget != nullptr && widget->isWindow() ? new AccessibleMenuOwner(widget) : nullptr;
  });
}
