// SPDX-License-Identifier: GPL-3.0-or-later
// The two filter panels of frmOnAirNow and of frmMapOnAir, and their way to the session and back. Each of the windows
// owns one.
#pragma once

#include "onair/check_panel.h"
#include "onair/on_air_session.h"

// picBand and picMode: show what is ticked, and hand it to the session when they close.
class FilterPanels : public QObject {
  Q_OBJECT

 public:
  // bar: where the buttons stand; window: above which the boxes open. All three outlive it.
  FilterPanels(OnAirSession& session, const Program& program, QWidget* bar, QWidget* window);

  BarLabel* cmdBand() { return picBand_.Button(); }
  BarLabel* cmdMode() { return picMode_.Button(); }
  void ShowTexts();
  // The window closes: what was ticked in an open panel counts.
  void Close();

 private:
  void ShowFilter();

  OnAirSession& session_;
  const Program& program_;
  CheckPanel picBand_;
  CheckPanel picMode_;
};
