// SPDX-License-Identifier: GPL-3.0-or-later
// frmMenu and frmSubMenu, the pop-up menus of all windows: built from plain entries, with the desktop's appearance and
// keys, closed when the pointer leaves them. WindowMenus makes one frmMenu for each window and opens it again and
// again.
#pragma once

#include <QMenu>
#include <QTimer>
#include <functional>

#include "ui/menu_entry.h"

// The base of menus of both levels.
class MenuWindow : public QMenu {
  Q_OBJECT

 public:
  explicit MenuWindow(QWidget* parent);

  // The entry of a row of this menu; nullptr for any other action.
  const MenuEntry* EntryOf(const QAction* action) const;

 Q_SIGNALS:
  void KeyPressed();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  // Makes the rows in the order of entries; former rows are removed.
  void MakeRows(const QList<MenuEntry>& entries);
  const QList<QAction*>& Rows() const { return rows_; }

 private:
  QAction* MakeRow(const MenuEntry& entry);
  void FindTyped(const QString& text);
  void SelectByKeys(const QAction* row);

  QList<MenuEntry> entries_;
  QList<QAction*> rows_;  // parallel to entries_
  QString typed_;
  QTimer typedTimer_;
};

// A menu of the second level.
class frmSubMenu : public MenuWindow {
  Q_OBJECT

 public:
  using MenuWindow::MenuWindow;
  void MakeMenu(const QList<MenuEntry>& entries) { MakeRows(entries); }
};

// A menu of the first level.
class frmMenu : public MenuWindow {
  Q_OBJECT

 public:
  // Gives the entries of a sub-menu.
  using SubMenuTable = std::function<QList<MenuEntry>(MenuId)>;
  enum class Opener { Pointer, Keyboard };

  explicit frmMenu(QWidget* parent);

  // Closes an open menu and builds the rows of a new one, sub-menus included. The caller sets its accessible name.
  void MakeMenu(const QList<MenuEntry>& entries, const SubMenuTable& subMenus = {});
  // Shows the menu with its corner at a point of the screen, moved so that it fits on the monitor; closes any other
  // menu. A menu without entries stays closed. Opener::Keyboard selects the checked entry, or else the first.
  void OpenAt(const QPoint& globalPoint, Opener opener = Opener::Pointer);

  // The tick of tmrMenus, every 500 ms: closes the menus if the pointer is in none of them and no button is held.
  void MenusTick();

  QTimer tmrMenus;

 Q_SIGNALS:
  // An entry of this menu or of a sub-menu was chosen; the menus are closed by then.
  void Chosen(const MenuEntry& entry);
  void AboutToClose();

 private:
  void Dispatch(QAction* action);
  void KeepPointer();
  bool IsInside(const QPoint& pointer) const;

  QList<frmSubMenu*> subMenus_;
  QPoint restingPointer_;
};
