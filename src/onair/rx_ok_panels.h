// SPDX-License-Identifier: GPL-3.0-or-later
// The two panels over the map of frmMapRxOk: the legend of its colours, and what becomes of its look-ups.
#pragma once

#include <QFrame>
#include <QLabel>

#include "core/program.h"
#include "onair/rx_ok_lookups.h"
#include "ui/bar_label.h"

// The legend. Mouse events pass through it to the map.
class RxOkLegend : public QFrame {
  Q_OBJECT

 public:
  explicit RxOkLegend(QWidget* parent);
  void SetTexts(const LanguageTexts& language);

 private:
  QLabel lblLast_;
  QLabel lblPrevious_;
  QLabel lblGreenLine_;
  QLabel lblBlueLine_;
};

// The panel of the look-ups. It shows while one is under way, and stays when one has failed; once the user has closed
// it, it stays closed for as long as the window is open.
class RxOkLookupPanel : public QFrame {
  Q_OBJECT

 public:
  explicit RxOkLookupPanel(QWidget* parent);
  void SetTexts(const LanguageTexts& language, const QString& callbookName);
  void Show(RxOkLookups::State state);
  // Closes it; the given name is that of its button.
  void CloseLookUp();

 Q_SIGNALS:
  void Resized();

 private:
  void TakeTexts();

  RxOkLookups::State state_ = RxOkLookups::State::Idle;
  bool closed_ = false;
  QString asking_;
  QLabel Label1_;
  QLabel Label2_;
  BarLabel cmdCloseLookUp_;
};
