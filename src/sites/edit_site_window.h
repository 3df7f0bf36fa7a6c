// SPDX-License-Identifier: GPL-3.0-or-later
// Form7, the setup window that edits the sites of both lists. An edit stays with its site, which is marked, until it is
// saved or discarded.
#pragma once

#include <QPointer>
#include <QPushButton>

#include "sites/site_drafts.h"
#include "sites/site_form.h"
#include "sites/site_picker.h"
#include "ui/dialogs.h"
#include "ui/setup_window.h"

// The window. SiteDrafts holds the edits, SiteDesk stores them.
class Form7 : public SetupWindow {
  Q_OBJECT

 public:
  // What the window uses; all of it outlives the window.
  struct Dependencies {
    SiteForm::Dependencies form;
    SiteDesk& desk;
    SiteChanges& changes;
    Dialogs& dialogs;
  };

  Form7(const Dependencies& dependencies, QWidget* mainWindow);

  void ShowTexts() override;
  void ProgramEnds() override { mayClose_ = true; }

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void MakeLayout();
  void ConnectSignals();
  void ShowSite();
  void SetSaving(bool saving);
  void ShowState();
  void Edited();
  void SaveOne();
  void SaveAll();
  void Discard();
  void Begin(const QList<SiteDesk::Edit>& dsstv, const QList<SiteDesk::Edit>& wx, bool closes);
  void Take(const SiteOutcome& outcome, bool closes);
  QList<SiteDesk::Edit> EditsOf(SiteTableKind list) const;

  Dependencies deps_;
  SiteDrafts drafts_;
  QLabel* lblCall;
  SitePicker* picker_;
  SiteForm* form_;
  QLabel* state_;
  QPushButton* save_;
  QPushButton* discard_;
  QLabel* fault_;
  QPushButton* cmdSave;
  QPushButton* cmdClose;
  SiteTableKind savedList_ = SiteTableKind::Dsstv;  // table and index of the site that was shown when saving began
  int savedIndex_ = -1;
  QPointer<QWidget> focused_;  // then
  bool saving_ = false;
  bool closeWanted_ = false;  // by the user, while saving
  bool mayClose_ = false;     // without a question
  QStringList notWritten_;
};
