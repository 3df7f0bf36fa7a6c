// SPDX-License-Identifier: GPL-3.0-or-later
// Form6: what the author's list of sites would change in the user's. MainUpdates opens it while the main window is
// hidden, and carries out what it was closed with.
#pragma once

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <memory>

#include "core/program.h"
#include "sites/change_list.h"
#include "sites/site_list_plan.h"
#include "ui/base_window.h"

// Four lists, and one way out: the button and every other way of closing are the same. After a failure there is a
// second one, which changes nothing.
class Form6 : public BaseWindow {
  Q_OBJECT

 public:
  explicit Form6(const Program& program);

  void Take(const SiteListPlan& plan);
  // The changes of this plan could not be made: names the files, and marks the removals as they were.
  void TakeFailure(const QSet<int>& kept, const QStringList& notWritten);
  void ShowTexts() override;

 Q_SIGNALS:
  // The window is being closed. kept: rows of the removals that are not marked.
  void Decided(const SiteListPlan& plan, const QSet<int>& kept);

 protected:
  void closeEvent(QCloseEvent* event) override;
  void PlaceWindow() override;

 private:
  QWidget* Framed(QGroupBox* frame, ChangeList* list);
  void ShowHeading(QGroupBox* frame, ChangeList* list, TextLine heading);

  const Program& program_;
  std::shared_ptr<const SiteListPlan> plan_;
  QLabel* hint_;
  QGroupBox* addFrame_;
  QGroupBox* removeFrame_;
  QGroupBox* callsFrame_;
  QGroupBox* doneFrame_;
  ChangeList* List1;
  ChangeList* List2;
  ChangeList* List3;
  ChangeList* List4;
  QPushButton* markAll_;
  QPushButton* markNone_;
  QLabel* lblFailure_;
  QPushButton* cmdLeave_;
  QPushButton* cmdCancel;
  QStringList notWritten_;
  bool decided_ = false;
};
