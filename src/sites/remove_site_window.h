// SPDX-License-Identifier: GPL-3.0-or-later
// Form4, the setup window that removes a site from one of the two lists.
#pragma once

#include <QPushButton>

#include "sites/site_desk.h"
#include "sites/site_picker.h"
#include "ui/setup_window.h"

// The window. SiteDesk carries the removal out; the page's line offers to undo it.
class Form4 : public SetupWindow {
  Q_OBJECT

 public:
  Form4(const Program& program, SiteDesk& desk, QWidget* mainWindow);

  void ShowTexts() override;
  void ProgramEnds() override { mayClose_ = true; }

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void MakeLayout();
  void ShowSite();
  void Remove();
  void Take(const SiteOutcome& outcome);

  const Program& program_;
  SiteDesk& desk_;
  QLabel* Label2;
  SitePicker* picker_;
  QLabel* urlLabel_;
  QLabel* lbl_Url;
  QLabel* fault_;
  QPushButton* cmdRemove;
  QPushButton* cmdClose;
  bool removing_ = false;
  bool mayClose_ = false;  // even while removing
  QStringList notWritten_;
};
