// SPDX-License-Identifier: GPL-3.0-or-later
// The line below the page that names the last change of places, or of the list of sites, and undoes it. The main window
// owns the only one, and makes room for it while there is such a change.
#pragma once

#include <QFrame>
#include <QLabel>
#include <QPushButton>

#include "sites/page_sites.h"
#include "sites/site_changes.h"
#include "ui/dialogs.h"

// The text of the change and the button "Undo".
class UndoLine : public QFrame {
  Q_OBJECT

 public:
  // All of them outlive the line.
  UndoLine(PageSites& places, SiteChanges& sites, Dialogs& dialogs, QWidget* parent);

  // True while there is a change to undo.
  bool IsWanted() const { return places_.Undoable() || sites_.Undoable(); }
  void Undo();
  void Tell(const QStringList& notWritten);

 Q_SIGNALS:
  // There is another change, or none.
  void Changed();

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void ShowChange();
  void ShowTexts();
  QString Text() const;

  PageSites& places_;
  SiteChanges& sites_;
  Dialogs& dialogs_;
  QLabel* text_;
  QPushButton* undo_;
};
