// SPDX-License-Identifier: GPL-3.0-or-later
// The main window's menus as tables of entries: texts of the language, marks translated, checks and greying by the
// program's state. Form1 builds them after each load of a language and asks for one whenever a menu opens.
#pragma once

#include <QHash>

#include "core/language_file.h"
#include "core/program.h"
#include "page/cell.h"
#include "ui/menu_entry.h"

// Entries whose window is not built yet, by their index: there, and greyed.
struct NotYet {
  QList<int> setup;
  QList<int> popup;

  // The entries that wait at present. An entry leaves this list when its window comes.
  static NotYet Present();
};

class MenuTables {
 public:
  explicit MenuTables(const Program& program, NotYet notYet = NotYet::Present())
      : program_(program), notYet_(std::move(notYet)) {}

  // Copies the texts of a language into the tables. Until the first call all menus are empty.
  void BuildMenuTables(const LanguageTexts& texts);

  // Entries of a first-level menu (menu_number) for the state of this moment; empty for a number without a table. The
  // pop-up menu is that of the page's SelectedSlot, whose cell is handed in; no cell counts as an empty one.
  QList<MenuEntry> Menu(int number, const Cell* cell = nullptr) const;
  // The same for a sub-menu (sub_menu_number); those of site and sender are about SelectedSlot.
  QList<MenuEntry> SubMenu(int number) const;

 private:
  QList<MenuEntry> PagesMenu() const;
  QList<MenuEntry> FindMenu() const;
  QList<MenuEntry> PopupMenu(const Cell* cell) const;
  QList<MenuEntry> LanguageMenu() const;
  QList<MenuEntry> SiteOrSender() const;
  QList<MenuEntry> LookupMenu() const;
  QList<MenuEntry> PageViews() const;
  bool WxPageIsEmpty() const;
  QString Field(ThumbField field) const;
  QString ShownField(ThumbField field) const;
  bool HasSender() const;

  const Program& program_;
  NotYet notYet_;
  QHash<int, QList<MenuEntry>> menus_;
  QHash<int, QList<MenuEntry>> subMenus_;
  QString emptyWord_;
  QString unblockText_;
  QString camWord_;
};
