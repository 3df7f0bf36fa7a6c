// SPDX-License-Identifier: GPL-3.0-or-later
// All menus as tables of entries: texts of the language, separators and sub-menus, checks and greying by the program's
// state. WindowMenus builds them after each load of a language and asks for one whenever a menu opens.
#pragma once

#include <QHash>

#include "core/language_file.h"
#include "core/program.h"
#include "ui/commands.h"
#include "ui/menu_entry.h"

// The tables.
class MenuTables {
 public:
  MenuTables(const Program& program, const Commands& commands) : program_(program), commands_(commands) {}

  // The command of an entry of the setup menu, 0 to 16.
  static Command SetupCommand(int index);

  QString LookupStatus;  // login state that the lookup window showed last; empty: none yet

  // Copies the texts of a language into the tables. Before the first call all menus are empty.
  void BuildMenuTables(const LanguageTexts& texts);

  // Entries of a menu or sub-menu for the present state, greyed if nobody handles their command; empty for a menu
  // without a table.
  QList<MenuEntry> Menu(MenuId menu, const MenuSubject& subject = {}) const;

 private:
  QList<MenuEntry> PagesMenu() const;
  QList<MenuEntry> FindMenu() const;
  QList<MenuEntry> Entries(MenuId menu, const MenuSubject& subject) const;
  QList<MenuEntry> SetupChoices(MenuId menu) const;
  QList<MenuEntry> PictureMenu(const MenuSubject& subject) const;
  QList<MenuEntry> HistoryMenu(const MenuSubject& subject) const;
  QList<MenuEntry> ViewerMenu(const MenuSubject& subject) const;
  QList<MenuEntry> LanguageMenu() const;
  QList<MenuEntry> SiteOrSender(MenuId menu, const MenuSubject& subject) const;
  QList<MenuEntry> LookupMenu(const MenuSubject& subject) const;
  QList<MenuEntry> CallMenu(MenuId menu, const MenuSubject& subject) const;
  QList<MenuEntry> PageViews(const MenuSubject& subject) const;
  bool WxPageIsEmpty() const;
  QString Shown(const QString& call) const;

  const Program& program_;
  const Commands& commands_;
  QHash<MenuId, QList<MenuEntry>> menus_;
  QString emptyWord_;
  QString unblockText_;
  QString camWord_;
};
