// SPDX-License-Identifier: GPL-3.0-or-later
// Puts a window's open menu into the accessible tree, below its window; Qt leaves pop-up menus out. main installs it
// once.
#pragma once

#include <QAccessibleWidget>

// The accessible interface of a window with a menu.
class AccessibleMenuOwner : public QAccessibleWidget {
 public:
  explicit AccessibleMenuOwner(QWidget* window);

  QAccessible::Role role() const override;
  int childCount() const override;
  QAccessibleInterface* child(int index) const override;
  int indexOfChild(const QAccessibleInterface* child) const override;

  // Has Qt use this interface for every window that is a plain QWidget; to be called before the first window.
  static void Install();

 private:
  // The window's menu while it is open.
  QAccessibleInterface* OpenMenu() const;
};
