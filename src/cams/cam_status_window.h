// SPDX-License-Identifier: GPL-3.0-or-later
// Form20: which cams answer, as a light and a call each. lblCam of the main window opens it; CamRound turns its lights,
// a press on one shows the cam.
#pragma once

#include "cams/cam_grid.h"
#include "cams/cam_round.h"
#include "ui/bar_label.h"
#include "ui/base_window.h"

class Form20 : public BaseWindow {
  Q_OBJECT

 public:
  Form20(const Program& program, CamRound& round, QWidget* owner);

  void ShowTexts() override;

 Q_SIGNALS:
  void CamWanted(const QString& call);

 protected:
  void PlaceWindow() override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Fill();

  const Program& program_;
  CamRound& round_;
  BarLabel mnuRefresh_;
  CamGrid grid_;
};
