// SPDX-License-Identifier: GPL-3.0-or-later
// Exposes a map view to assistive technology: its accessible name is the map's, its labels are its children, and
// clickable labels are buttons with a press action. MapView installs this and reports changes to it.
#pragma once

#include <QAccessibleWidget>
#include <QHash>
#include <QPointer>
#include <QWidget>

#include "maps/map_labels.h"

// The accessible interface of a MapView.
class AccessibleMapView : public QAccessibleWidget {
 public:
  // labels: those of the same widget.
  AccessibleMapView(QWidget* view, MapLabels* labels);
  ~AccessibleMapView() override;

  int childCount() const override;
  QAccessibleInterface* child(int index) const override;
  int indexOfChild(const QAccessibleInterface* child) const override;
  QAccessibleInterface* childAt(int x, int y) const override;
  QAccessibleInterface* focusChild() const override;

  // Serves all map views from the first call on.
  static void Install();
  // Report to assistive technology that the labels were replaced, and which label has the focus (-1: the map itself).
  static void LabelsChanged(QWidget* view);
  static void FocusMoved(QWidget* view, qsizetype focusedLabel);

 private:
  QWidget* View() const;

  MapLabels* source_;
  mutable QHash<int, QAccessible::Id> labels_;  // children by label index, made when first asked for
};

// The accessible interface of one label.
class AccessibleMapLabel : public QAccessibleInterface, public QAccessibleActionInterface {
 public:
  AccessibleMapLabel(QWidget* view, MapLabels* labels, int index);

  int Index() const { return index_; }
  bool isValid() const override;
  QObject* object() const override { return nullptr; }
  QWindow* window() const override;
  QAccessibleInterface* parent() const override;
  int childCount() const override { return 0; }
  QAccessibleInterface* child(int) const override { return nullptr; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  QString text(QAccessible::Text kind) const override;
  void setText(QAccessible::Text, const QString&) override {}
  QRect rect() const override;
  QAccessible::Role role() const override;
  QAccessible::State state() const override;
  void* interface_cast(QAccessible::InterfaceType type) override;

  QStringList actionNames() const override;
  void doAction(const QString& actionName) override;
  QStringList keyBindingsForAction(const QString&) const override { return {}; }

 private:
  bool IsClickable() const;

  QPointer<QWidget> view_;
  MapLabels* source_;  // valid as long as view_ is not null
  int index_;
};
