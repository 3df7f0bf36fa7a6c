// SPDX-License-Identifier: GPL-3.0-or-later
// Form18, the setup window with the ten texts whose senders' pictures are not shown.
#pragma once

#include <QLabel>
#include <QPushButton>
#include <array>

#include "sites/block_list.h"
#include "ui/clean_field.h"
#include "ui/setup_window.h"

// The window. Whoever opens it shows the page anew when it has been closed.
class Form18 : public SetupWindow {
  Q_OBJECT

 public:
  Form18(Program& program, QWidget* mainWindow);

  void ShowTexts() override;

 Q_SIGNALS:
  // lstBlock has been written.
  void ListChanged();

 protected:
  void PlaceWindow() override;

 private:
  void MakeLayout();
  void Store();

  Program& program_;
  QLabel* Label1;
  std::array<CleanField*, kBlockBoxes> Text1{};
  QPushButton* cmdBlock;
};
