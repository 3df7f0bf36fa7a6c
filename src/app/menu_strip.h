// SPDX-License-Identifier: GPL-3.0-or-later
// Pic: the bar of the main window with its labels, the call field and cmdGo. The main window connects its controls;
// labels for which the bar is too narrow move into the menu of lblMore.
#pragma once

#include <QLineEdit>
#include <QPushButton>
#include <QWidget>

#include "core/language_file.h"
#include "ui/bar_label.h"
#include "ui/busy_sign.h"
#include "ui/menu_entry.h"

// The bar. It places its controls itself, because a layout of the toolkit would cut captions instead of moving or
// shortening labels in the given order.
class MenuStrip : public QWidget {
  Q_OBJECT

 public:
  explicit MenuStrip(QWidget* parent);

  // Height for the present font, in pixels.
  int BarHeight() const;
  void SetTexts(const LanguageTexts& texts);

  // Colours pic1 as the sign that the author's list of sites has come.
  void ShowListSign(bool isPrimary);

  // The labels that are in the menu of lblMore at present, in the order of the bar.
  QList<MenuEntry> MoreEntries() const;
  // Presses one of them, by the index of its entry.
  void PressMoved(int index);

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
  BarLabel* lblMore;
  QWidget* pic1;  // a stripe at the left edge, in the height of the bar; hidden until the list of sites has come

 protected:
  bool event(QEvent* event) override;
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  // How the labels are shortened and moved to fit into the bar.
  struct Fit {
    QList<BarLabel*> moved;  // in the menu of lblMore
    bool brief = false;      // the brief captions are shown
    bool least = true;       // every label has at least its least width
    int widest = 0;          // greatest width of a label, in pixels, unless its least width is larger
    int field = 0;           // width of txtCall

    int WidthOf(const BarLabel* label) const;
  };

  // The labels that can move into the menu of lblMore, in the order in which they do; hidden ones too.
  QList<BarLabel*> Movable() const { return {lblPropagation, lblOnAirNow, lblCam}; }
  QList<BarLabel*> LabelsBeside(const QList<BarLabel*>& moved) const;
  int RoomFor(qsizetype labels, int field) const;
  int FieldWidth(int letters) const;
  int SignWidth() const;
  int ButtonWidth() const;
  Fit FitLabels() const;
  void Arrange();
  // Places a control in the middle of the bar's height; returns its right edge.
  int Place(QWidget* part, int left, int partWidth);
};
