// SPDX-License-Identifier: GPL-3.0-or-later
// Form3, the setup window that adds a site to one of the two lists.
#pragma once

#include <QGroupBox>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>

#include "sites/site_desk.h"
#include "sites/site_form.h"
#include "ui/dialogs.h"
#include "ui/setup_window.h"

// The window. SiteDesk decides and stores.
class Form3 : public SetupWindow {
  Q_OBJECT

 public:
  // What the window uses; all of it outlives the window.
  struct Dependencies {
    SiteForm::Dependencies form;
    SiteDesk& desk;
    Dialogs& dialogs;
  };

  Form3(const Dependencies& dependencies, QWidget* mainWindow);

  void ShowTexts() override;
  void ProgramEnds() override { mayClose_ = true; }

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void MakeLayout();
  SiteTableKind List() const { return Option2->isChecked() ? SiteTableKind::Wx : SiteTableKind::Dsstv; }
  void ChooseList();
  void ShowButtons();
  void SetAdding(bool adding);
  void Add();
  void Take(const SiteOutcome& outcome);

  Dependencies deps_;
  QRadioButton* Option1;
  QRadioButton* Option2;
  SiteForm* form_;
  QLabel* hint_;
  QLabel* fault_;
  QPushButton* cmdAdd;
  QPushButton* cmdClose;
  QPointer<QWidget> focused_;  // when adding began
  bool adding_ = false;
  bool mayClose_ = false;  // even while adding
  QStringList notWritten_;
};
