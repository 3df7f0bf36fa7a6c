// SPDX-License-Identifier: GPL-3.0-or-later
// Form11: the user's own callsign, position and unit of distances. The setup menu opens it, and the program opens it by
// itself at the start while no position is known. Closing stores what it shows.
#pragma once

#include <QLabel>
#include <QRadioButton>
#include <array>

#include "callbook/coordinate_fetch.h"
#include "callbook/fetch_group.h"
#include "callbook/own_location.h"
#include "ui/call_field.h"
#include "ui/save_line.h"
#include "ui/setup_window.h"

// The window of the own location.
class Form11 : public SetupWindow {
  Q_OBJECT

 public:
  // What the window uses; all of it outlives the window.
  struct Dependencies : CoordinateFetch::Dependencies {
    SignInBrowser browser;
  };

  Form11(const Dependencies& dependencies, QWidget* mainWindow);

  void ShowTexts() override;
  void ProgramEnds() override;

 Q_SIGNALS:
  // The own station has been stored; maps and distances are to be made anew.
  void LocationSaved();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void MakeLayout();
  void TakeCall();
  void TakePlace();
  void ShowGrid();
  void Save();

  Program& program_;
  CoordinateFetch fetch_;
  OwnLocation location_;
  QLabel* intro_;
  QLabel* callLabel_;
  CallField* txtCall;
  QLabel* lblWrongCall_;
  FetchGroup* place_;
  QLabel* lblGrid;
  QLabel* lblDx;
  std::array<QRadioButton*, 2> optMiKm;  // kilometres, miles
  QLabel* lblLocalDB;
  SaveLine* failure_;
  QPushButton* cmdClose;
  enum class Closing { No, Saving, Done } closing_ = Closing::No;
};
