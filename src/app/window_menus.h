// SPDX-License-Identifier: GPL-3.0-or-later
// The menus of the main window: opens them at their labels and cells, and sends each choice to its handler. Form1 owns
// the only one.
#pragma once

#include <QObject>

#include "app/menu_strip.h"
#include "app/menu_tables.h"
#include "app/page_logic.h"
#include "core/program.h"
#include "page/page_view.h"
#include "ui/menu_window.h"

class WindowMenus : public QObject {
  Q_OBJECT

 public:
  WindowMenus(Program& program, PageLogic& logic, MenuStrip& pic, PageView& picAll, QWidget* window);

  // The tables again after a language has been read.
  void BuildMenuTables() { tables_.BuildMenuTables(program_.language); }
  void CloseMenus() { menu_.close(); }
  bool IsOpen() const { return menu_.isVisible(); }

  // The thumbnail menu of a cell, at a point of the screen.
  void OpenCellMenu(int slot, QPoint globalPoint, frmMenu::Opener opener);

  void MnuPopupClick(int index);
  void MnuAlphaClick(int index);

 Q_SIGNALS:
  // Choices that change the window itself.
  void PageChosen(int index);
  void ThumbsChosen(int index);
  void GuiChosen(int index);
  void LanguageChosen(int index);
  void CamModeChosen(int index);
  // Choices about a station: its text in the menu, as shown, or which of site and sender.
  void QrzFromChosen(const QString& text);
  void MapLocCallChosen(int index);
  void AboutToOpen();

 private:
  void OpenAtLabel(BarLabel* label, int number);
  void Open(int number, const QPoint& at, frmMenu::Opener opener, const Cell* cell = nullptr);
  void Chosen(int number, int index);
  void SubChosen(int number, int index, const QString& text);
  void Closing();

  Program& program_;
  PageLogic& logic_;
  MenuStrip& pic_;
  PageView& picAll_;
  MenuTables tables_;
  frmMenu menu_;
  BarLabel* openLabel_ = nullptr;
};
