// SPDX-License-Identifier: GPL-3.0-or-later
// Form5: names and order of the 20 pages, opened from the setup menu. What it edits is in PageOrder; closing it carries
// that out, and puts page 1 on the screen.
#pragma once

#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>

#include "core/program.h"
#include "sites/page_mover.h"
#include "sites/page_order.h"
#include "ui/setup_window.h"

// The window.
class Form5 : public SetupWindow {
  Q_OBJECT

 public:
  // What it uses; all outlive it.
  struct Dependencies {
    Program& program;
    PageMover& mover;
  };

  Form5(const Dependencies& dependencies, QWidget* mainWindow);
  void ShowTexts() override;
  // Names and order of the pages are carried out, as by closing.
  void ProgramEnds() override { close(); }
  int SelectedPageRow() const { return SelectedPageRow_; }  // from 0

 protected:
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void PlaceWindow() override;

 private:
  void MakeControls();
  QWidget* MakePagesSide();
  QWidget* MakePictureSide();
  void ConnectSignals();
  // Shows all captions, and the picture of the selected row.
  void ShowRows();
  void SelectRow(int row);
  // Fills the small picture of a row's page.
  void ShowPageSites(int row);
  void NameControls();
  // A step of the selected row, -1: up, 1: down.
  void MoveRow(int step);
  void Apply();
  void Applied(bool moved, const QStringList& notWritten);

  Program& program_;
  PageMover& mover_;
  PageOrder order_;
  int SelectedPageRow_ = 0;
  // What closing is waiting for: nothing, the files, or nothing any more.
  enum class Closing { No, Applying, Done } closing_ = Closing::No;

  QLabel* Label1_ = nullptr;
  QFrame* picList_ = nullptr;
  QTableWidget* lblList_ = nullptr;  // the column beside it, lblPg, has the numbers
  QLabel* nameLabel_ = nullptr;
  QLineEdit* Text1_ = nullptr;
  QPushButton* cmdUp_ = nullptr;
  QPushButton* cmdDown_ = nullptr;
  QGroupBox* lblFrame_ = nullptr;
  QList<QLabel*> lblPage_;
  QLabel* Label2_ = nullptr;
  QLabel* lblFailure_ = nullptr;
  QPushButton* cmdLeave_ = nullptr;
  QPushButton* cmdClose_ = nullptr;
};
