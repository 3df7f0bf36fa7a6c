// SPDX-License-Identifier: GPL-3.0-or-later
// The notice in the middle of a page on which no site stands: says what to do next, with a button for each step. Form1
// owns the only one, and tells it that the lists have been read; its FirstSteps decide what it says.
#pragma once

#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

#include "app/first_steps.h"
#include "app/page_logic.h"
#include "app/services.h"

// The notice. It hides itself when there is nothing to say.
class EmptyPage : public QFrame {
  Q_OBJECT

 public:
  EmptyPage(Services& services, PageLogic& logic, QWidget* mainWindow);

  FirstSteps& Steps() { return steps_; }

  // Where the cells are; the notice stands in the middle of it.
  void SetPage(const QRect& page);
  // The Tab key goes from this widget to the buttons.
  void FollowInTabOrder(QWidget* widget);
  // Shows all texts in the present language.
  void ShowTexts();
  // How the reading of the author's list goes on that the user has wanted.
  void AuthorListCame();
  void AuthorListFailed();

 Q_SIGNALS:
  void AuthorListWanted();

 private:
  QPushButton* AddButton(const QString& name);
  void Show();
  QString Advice() const;
  // Names the copy and says what putting it back would change.
  void ShowCopy();
  void Place();
  // How much room the parts leave free; on a page that is too low for all of it they stand closer.
  struct Density {
    int widest;
    QMargins margins;
    int spacing;
    bool heading;
  };
  // Sizes the notice; returns its height.
  int Fit(const Density& density);
  void Arrange(int columns);

  FirstSteps steps_;
  const Program& program_;
  const Commands& commands_;
  enum class AuthorList { None, Fetching, Failed } authorList_ = AuthorList::None;
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
