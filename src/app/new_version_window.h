// SPDX-License-Identifier: GPL-3.0-or-later
// Form22: asks whether to open the author's page, as a newer version is there. MainUpdates opens it, once a run.
#pragma once

#include <QLabel>
#include <QPushButton>

#include "core/program.h"
#include "ui/base_window.h"

// The text and two buttons.
class Form22 : public BaseWindow {
  Q_OBJECT

 public:
  Form22(const Program& program, QWidget* mainWindow);

  // version: as in "6.51".
  void Take(const QString& version);
  void ShowTexts() override;

 Q_SIGNALS:
  // cmdYes was pressed; the window closes.
  void PageWanted();

 private:
  const Program& program_;
  QString version_;
  QLabel* Label1;
  QPushButton* cmdYes;
  QPushButton* cmdNo;
};
