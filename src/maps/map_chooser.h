// SPDX-License-Identifier: GPL-3.0-or-later
// The part of a map window's bar that changes the map: a label, a button with the present map's name, and the list that
// drops down from it over the window. MapWindow owns one.
#pragma once

#include <QLabel>
#include <QListView>
#include <QStringListModel>
#include <QWidget>

#include "ui/bar_label.h"

// Shows the names of the maps and hands out the one that the user chose.
class MapChooser : public QWidget {
  Q_OBJECT

 public:
  // bar: where label and button stand; window: above which the list opens. The names of button and list are the
  // window's own, such as "cmdMaps" and "lstMaps".
  MapChooser(const QString& buttonName, const QString& listName, QWidget* bar, QWidget* window);
  ~MapChooser() override;

  // maps: the word for maps.
  void SetTexts(const QString& maps);
  // lstMap and an index in it. The list itself is filled when it opens.
  void SetMaps(const QStringList& lstMap, int current);
  // The button takes at most a third of the window's width; the rest of a long name is left out.
  void FitToWindow(int width);
  void CloseList() { list_.hide(); }

 Q_SIGNALS:
  void Chosen(int index);
  // The list was closed without a choice.
  void Left();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void ShowCaption();
  void Toggle();
  void PlaceList();
  void Choose(int index);
  bool ListKey(int key);

  QWidget* window_;
  QStringList lstMap_;
  QStringList filled_;  // what the list was filled from
  int current_ = -1;
  int room_ = 0;  // pixels for the button's caption; 0: not known yet
  QLabel lblMaps_;
  BarLabel button_;
  QStringListModel names_;
  QListView list_;
};
