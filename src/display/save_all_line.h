// SPDX-License-Identifier: GPL-3.0-or-later
// The line at the bottom of a window that tells how many of its pictures have been saved, with a button to stop.
#pragma once

#include "display/save_all.h"
#include "ui/action_line.h"

// The line; a child of the window whose pictures are saved. It goes with the window, and the saving goes on.
class SaveAllLine : public ActionLine {
  Q_OBJECT

 public:
  SaveAllLine(SaveAll& saving, QWidget* window);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void ShowProgress();
  void Place();

  SaveAll& saving_;
};
