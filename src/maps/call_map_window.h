// SPDX-License-Identifier: GPL-3.0-or-later
// The base of the maps of many stations: a label stands for the call in its id, a press on it opens the menu of that
// call, and the menu's first entry looks the call up.
#pragma once

#include "maps/map_window.h"

class CallMapWindow : public MapWindow {
  Q_OBJECT

 public:
  using MapWindow::MapWindow;

  void MnuPopupClick(int index) override;
  // The call database has changed: stations may have got a place.
  virtual void Rebuild() = 0;

 Q_SIGNALS:
  // The lookup of a call is wanted; at: its label on the screen.
  void LookupWanted(const QString& call, const QRect& at);

 protected:
  void LabelPressed(const QString& name, const QPoint& at, bool byKeyboard) override;
  // The label of a call; -1: it has none.
  qsizetype LabelOf(const QString& call);
  // False at the first call; from then on brings the window to the front.
  bool BringToFront();
  bool IsOpened() const { return opened_; }

 private:
  QString menuCall_;  // whose menu was opened last
  bool opened_ = false;
};
