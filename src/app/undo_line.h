// SPDX-License-Identifier: GPL-3.0-or-later
// The line below the page that names the last change of places and offers to undo it. The main window owns the only
// one, and shows it while there is such a change.
#pragma once

#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <optional>

#include "sites/page_sites.h"

// The text of the change and the button "Undo".
class UndoLine : public QFrame {
  Q_OBJECT

 public:
  explicit UndoLine(QWidget* parent);

  // Shows a change; without one the line is hidden.
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
