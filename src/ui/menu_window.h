// SPDX-License-Identifier: GPL-3.0-or-later
// frmMenu and frmSubMenu, the pop-up menus of all windows: built from plain entries, native in look and keys, closed
// when the pointer leaves them. A window makes one frmMenu in its constructor and opens it again and again.
#pragma once

#include <QMenu>
#include <QTimer>
#include <functional>

#include "ui/menu_entry.h"

// What both levels share.
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
  // Rows in the order of entries; those of the last time go.
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

class frmSubMenu : public MenuWindow {
  Q_OBJECT

 public:
  using MenuWindow::MenuWindow;
  void MakeMenu(const QList<MenuEntry>& entries) { MakeRows(entries); }
};

class frmMenu : public MenuWindow {
  Q_OBJECT

 public:
  // Entries of a sub-menu.
  using SubMenuTable = std::function<QList<MenuEntry>(MenuId)>;
  enum class Opener { Pointer, Keyboard };

  explicit frmMenu(QWidget* parent);

  // Closes an open menu and builds the rows of a new one, sub-menus included. Its accessible name is up to the caller.
  void MakeMenu(const QList<MenuEntry>& entries, const SubMenuTable& subMenus = {});
  // Shows the menu with its corner at a point of the screen, moved as far as its monitor asks for; closes any other
  // one. A menu without entries stays shut. One opened by keyboard has its checked or first entry selected.
  void OpenAt(const QPoint& globalPoint, Opener opener = Opener::Pointer);

  // What tmrMenus does every 500 ms: closes the menus when the pointer is in neither and no button is held.
  void MenusTick();

  QTimer tmrMenus;

 Q_SIGNALS:
  // An entry of this menu or of a sub-menu; both menus are closed by then.
  void Chosen(const MenuEntry& entry);
  void AboutToClose();

 private:
  void Dispatch(QAction* action);
  void KeepPointer();
  bool IsInside(const QPoint& pointer) const;

  QList<frmSubMenu*> subMenus_;
  QPoint restingPointer_;
};
