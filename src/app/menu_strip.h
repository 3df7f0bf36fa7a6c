// SPDX-License-Identifier: GPL-3.0-or-later
// Pic: the bar of the main window with its labels, the call field and cmdGo. The main window connects its parts.
#pragma once

#include <QLineEdit>
#include <QPushButton>
#include <QWidget>

#include "core/language_file.h"
#include "ui/bar_label.h"
#include "ui/busy_sign.h"

class MenuStrip : public QWidget {
  Q_OBJECT

 public:
  explicit MenuStrip(QWidget* parent);

  // Height for the present font, in pixels.
  int BarHeight() const;
  void SetTexts(const LanguageTexts& texts);

  BarLabel* lblPages;
  BarLabel* lblRefresh;
  BusySign* imgRefresh;
  BarLabel* lblFind;
  BarLabel* lblCam;
  BarLabel* lblMap;
  QLineEdit* txtCall;
  QPushButton* cmdGo;
  BarLabel* lblOnAirNow;
  BarLabel* lblPropagation;
  BarLabel* lblSetup;

 protected:
  void paintEvent(QPaintEvent* event) override;
};
