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
  // bar: the parent of label and button; window: the list opens on top of it. buttonName and listName are the object
  // names of button and list, such as "cmdMaps" and "lstMaps".
  MapChooser(const QString& buttonName, const QString& listName, QWidget* bar, QWidget* window);
  ~MapChooser() override;

  // maps: the word "Maps" in the present language.
  void SetTexts(const QString& maps);
  // lstMap: file names of all maps; current: index of the present one. The drop-down list is filled when it opens.
  void SetMaps(const QStringList& lstMap, int current);
  // Limits the button to a third of the window's width (in pixels); a longer name is elided.
  void FitToWindow(int width);
  void CloseList() { list_.hide(); }

 Q_SIGNALS:
  void Chosen(int index);
  // The list was closed without a choice.
  void Dismissed();

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
  QStringList filled_;  // the names that the list was last filled from
  int current_ = -1;
  int room_ = 0;  // pixels for the button's caption; 0: not known yet
  QLabel lblMaps_;
  BarLabel button_;
  QStringListModel names_;
  QListView list_;
};
