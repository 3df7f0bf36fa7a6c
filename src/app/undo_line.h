// SPDX-License-Identifier: GPL-3.0-or-later
// The line below the page that tells the last change of places and offers to take it back. The main window owns the
// only one, and shows it while there is such a change.
#pragma once

#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <optional>

#include "sites/page_sites.h"

// What was changed, and a button.
class UndoLine : public QFrame {
  Q_OBJECT

 public:
  explicit UndoLine(QWidget* parent);

  // Hidden without a change.
  void SetChange(const std::optional<PlacesChange>& change);

 Q_SIGNALS:
  void Pressed();

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void ShowTexts();

  std::optional<PlacesChange> change_;
  QLabel* text_;
  QPushButton* undo_;
};
