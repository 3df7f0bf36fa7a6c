// SPDX-License-Identifier: GPL-3.0-or-later
// Fills and shows the menus of all windows, and hands each choice to the handler of its command. The main window makes
// the only one and opens its own menus through it; the other windows know it as a MenuOpener.
#pragma once

#include <QObject>

#include "app/menu_strip.h"
#include "app/menu_tables.h"
#include "app/page_logic.h"
#include "page/page_view.h"
#include "ui/menu_opener.h"
#include "ui/menu_window.h"

// Owner of the menu tables; opens one menu at a time.
class WindowMenus : public QObject, public MenuOpener {
  Q_OBJECT

 public:
  WindowMenus(Program& program, const Commands& commands, PageLogic& logic, MenuStrip& pic, PageView& picAll,
              QWidget* window);

  // Fills the tables after a language has been read.
  void BuildMenuTables() { tables_.BuildMenuTables(program_.language); }
  // Text of the login state for the lookup menu.
  void SetLookupStatus(const QString& status) { tables_.LookupStatus = status; }
  bool IsOpen() const;

  void OpenMenu(const MenuRequest& request) override;
  void CloseMenus() override;

  // Opens the menu of a cell at a point of the screen.
  void OpenCellMenu(int slot, QPoint globalPoint, bool byKeyboard);
  // The site and the sender that the menu of a cell is about.
  MenuSubject SubjectOf(int slot) const;

 Q_SIGNALS:
  void AboutToOpen();

 private:
  void OpenAtLabel(BarLabel* label, MenuId menu);
  void Closing();

  Program& program_;
  const Commands& commands_;
  PageLogic& logic_;
  MenuStrip& pic_;
  PageView& picAll_;
  QWidget* window_;
  MenuTables tables_;
  QPointer<frmMenu> menu_;  // the menu opened last
  BarLabel* openLabel_ = nullptr;
};
