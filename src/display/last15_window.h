// SPDX-License-Identifier: GPL-3.0-or-later
// Form15: the history of one site as a grid of cells, or the pictures that the site has sent itself. The cell's menu of
// the page opens it, and so may whoever knows a site's index. History decides, this shows.
#pragma once

#include <QLabel>
#include <QProgressBar>

#include "callbook/call_database.h"
#include "display/history_view.h"
#include "page/cell_tips.h"
#include "ui/base_window.h"
#include "ui/menu_opener.h"

// The window of a site's history.
class Form15 : public BaseWindow {
  Q_OBJECT

 public:
  // What the window uses beside its history.
  struct Dependencies : History::Dependencies {
    CallDatabase& database;
    MenuOpener& menus;
  };

  Form15(const Dependencies& dependencies, QWidget* opener);

  // Shows the window and begins to fetch; an open window begins anew for another site.
  void Open(const HistoryOrigin& origin);
  void ShowTexts() override;
  const History& Pictures() const { return history_; }
  // Another list of blocked senders holds.
  void TakeBlocks() { history_.TakeBlocks(); }

  // An entry of the window's menu that no other window handles was chosen, for the cell at which the menu was opened.
  void MnuPopupClick(int index);

 Q_SIGNALS:
  // The window has begun to fetch; the refresh timers go on.
  void Fetching();
  // A left click on a picture, among the others of this history.
  void ViewWanted(const PictureList& list);
  // Ctrl+D with two marked pictures.
  void ComparisonWanted(const PictureList& pair);
  // A picture is being dragged out of the window.
  void DragWanted(const SourcePicture& picture);
  // Ctrl+Shift+S: all pictures are to be saved.
  void SaveAllWanted(const PictureList& list);
  // A click on a sender's caption; beside: its place on the screen.
  void LookupWanted(const QString& call, const QRect& beside);

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void ConnectParts();
  void SetUsualSize();
  void PlaceParts();
  int StripHeight() const;
  void ShowProgress();
  void OpenMenu(int slot, QPoint at, bool byKeyboard);
  void SenderPressed(int slot);

  Program& program_;
  MenuOpener& menus_;
  History history_;
  HistoryView view_;
  HoverTip hover_;
  QLabel lblCap_;
  QLabel lblCap2_;
  QProgressBar picProgress_;
  int menuSlot_ = -1;  // cell at which the menu was opened last
};
