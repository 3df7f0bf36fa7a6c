// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/menu_accessible.h"

#include "ui/menu_window.h"

namespace {

frmMenu* MenuOf(const QObject* window) {
  return window->findChild<frmMenu*>(QString(), Qt::FindDirectChildrenOnly);
}

}  // namespace

AccessibleMenuOwner::AccessibleMenuOwner(QWidget* window) : QAccessibleWidget(window, QAccessible::Window) {}

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
    Q_UNUSED(className)
    auto* widget = qobject_cast<QWidget*>(object);
    if (widget == nullptr || !widget->isWindow() || MenuOf(widget) == nullptr) return nullptr;
    return new AccessibleMenuOwner(widget);
  });
}
