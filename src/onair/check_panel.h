// SPDX-License-Identifier: GPL-3.0-or-later
// A filter panel of the feed's windows, picBand or picMode: the button that says what is chosen, and the check boxes
// that drop down from it. The window hands it the boxes and takes them back when the panel closes.
#pragma once

#include <QCheckBox>
#include <QFrame>
#include <QLabel>
#include <QToolButton>

#include "onair/check_boxes.h"
#include "ui/bar_label.h"

// One panel with its button.
class CheckPanel : public QFrame {
  Q_OBJECT

 public:
  // The given names of its controls.
  struct Names {
    QString panel;
    QString button;
    QString box;
    QString close;
  };
  static Names BandNames();
  static Names ModeNames();

  // bar: where the button stands; window: above which the boxes open.
  CheckPanel(const Names& names, int boxes, QWidget* bar, QWidget* window);

  BarLabel* Button() { return button_; }
  // title above the boxes, and heard with them; close: what the closing image is called.
  void SetTexts(const QString& title, const QStringList& captions, const QString& close);
  // The summary is cut to the button's told width, and heard whole.
  void SetSummary(const QString& summary);
  // Not while the panel is open: then the user's ticks are kept.
  void SetBoxes(const CheckBoxes& boxes);
  // Hands the boxes out and hides; nothing where it is not open.
  void Close();

 Q_SIGNALS:
  void Closed(const CheckBoxes& boxes);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Open();
  void ShowBoxes();
  void ShowCaption();
  bool StepByKey(int key);

  BarLabel* button_;
  QLabel title_;
  QToolButton close_;
  QList<QCheckBox*> checks_;
  CheckBoxes boxes_;
  QString summary_;
};
