// SPDX-License-Identifier: GPL-3.0-or-later
// Puts a window's open menu into the accessible tree, below the window that it belongs to; Qt leaves pop-ups out by
// itself. main installs it once.
#pragma once

#include <QAccessibleWidget>

class AccessibleMenuOwner : public QAccessibleWidget {
 public:
  explicit AccessibleMenuOwner(QWidget* window);

  QAccessible::Role role() const override;
  int childCount() const override;
  QAccessibleInterface* child(int index) const override;
  int indexOfChild(const QAccessibleInterface* child) const override;

  // Serves every window that is a plain QWidget; to be called before the first window.
  static void Install();

 private:
  // The window's menu while it is open.
  QAccessibleInterface* OpenMenu() const;
};
