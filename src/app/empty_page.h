// SPDX-License-Identifier: GPL-3.0-or-later
// The notice in the middle of a page on which no site stands: says what to do next, with a button for each step. Form1
// owns the only one; FirstSteps decides what it says.
#pragma once

#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

#include "app/first_steps.h"
#include "ui/commands.h"

// The notice. It hides itself when there is nothing to say.
class EmptyPage : public QFrame {
  Q_OBJECT

 public:
  EmptyPage(FirstSteps& steps, const Program& program, const Commands& commands, QWidget* mainWindow);

  // Where the cells are; the notice stands in the middle of it.
  void SetPage(const QRect& page);
  // Shows all texts in the present language.
  void ShowTexts();

 Q_SIGNALS:
  void AuthorListWanted();

 private:
  QPushButton* AddButton(const QString& name);
  void Show();
  // Names the copy and says what putting it back would change.
  void ShowCopy();
  void Place();
  void Arrange(int columns);

  FirstSteps& steps_;
  const Program& program_;
  const Commands& commands_;
  QRect page_;
  QStringList notWritten_;  // when the copy was put back
  QLabel* heading_;
  QLabel* text_;
  QGridLayout* buttons_;
  QPushButton* location_;
  QPushButton* author_;
  QPushButton* add_;
  QPushButton* index_;
  QLabel* copyText_;
  QPushButton* putBack_;
};
