// SPDX-License-Identifier: GPL-3.0-or-later
// A line in a window that says something and offers what can be done about it: undo, save, discard, try again.
#pragma once

#include <QFrame>
#include <QLabel>
#include <QPushButton>

// The line; hidden while it has no text.
class ActionLine : public QFrame {
  Q_OBJECT

 public:
  // Names of the line and of its buttons, at most two.
  ActionLine(const QString& name, const QStringList& buttons, QWidget* parent);

  // Shows a text with the captions of the buttons; an empty text hides the line.
  void SetLine(const QString& text, const QStringList& captions);
  QPushButton* Button(int index) const { return buttons_.at(index); }

 Q_SIGNALS:
  // A button was pressed; index from 0.
  void Pressed(int index);

 private:
  QLabel* text_;
  QList<QPushButton*> buttons_;
};
