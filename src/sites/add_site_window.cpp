// SPDX-License-Identifier: GPL-3.0-or-later
#include "sites/add_site_window.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "sites/not_written.h"

using namespace Qt::StringLiterals;

Form3::Form3(const Dependencies& dependencies, QWidget* mainWindow)
    : SetupWindow(mainWindow),
      deps_(dependencies),
      Option1(new QRadioButton(this)),
      Option2(new QRadioButton(this)),
      form_(new SiteForm(dependencies.form, u"cmdGetLatLon"_s, false, this)),
      hint_(new QLabel(this)),
      fault_(new QLabel(this)),
      cmdAdd(new QPushButton(this)),
      cmdClose(new QPushButton(this)) {
  setObjectName(u"Form3"_s);
  Option1->setObjectName(u"Option1"_s);
  Option2->setObjectName(u"Option2"_s);
  hint_->setObjectName(u"Label1"_s);
  fault_->setObjectName(u"lblFault"_s);
  cmdAdd->setObjectName(u"cmdAdd"_s);
  cmdClose->setObjectName(u"cmdClose"_s);
  Option1->setChecked(true);
  MakeLayout();
  SetDefaultButton(cmdAdd);
  connect(Option2, &QRadioButton::toggled, this, &Form3::ChooseList);
  connect(form_, &SiteForm::Edited, this, &Form3::ShowButtons);
  connect(cmdAdd, &QPushButton::clicked, this, &Form3::Add);
  connect(cmdClose, &QPushButton::clicked, this, &QWidget::close);
  form_->CallBox()->setFocus();
  ShowButtons();
}

void Form3::MakeLayout() {
  for (QLabel* label : {hint_, fault_}) {
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
  }
  fault_->hide();
  auto* choice = new QHBoxLayout;
  choice->addWidget(Option1);
  choice->addWidget(Option2);
  choice->addStretch(1);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(cmdAdd);
  buttons->addWidget(cmdClose);
  auto* rows = new QVBoxLayout(this);
  rows->addLayout(choice);
  rows->addWidget(hint_);
  rows->addWidget(form_);
  rows->addStretch(1);
  rows->addWidget(fault_);
  rows->addLayout(buttons);
  const QList<QWidget*> chain = QList<QWidget*>{Option1, Option2} + form_->TabChain() << cmdAdd << cmdClose;
  for (qsizetype i = 1; i < chain.size(); ++i) setTabOrder(chain[i - 1], chain[i]);
}

void Form3::ShowTexts() {
  const LanguageTexts& texts = deps_.form.lookUps.program.language;
  setWindowTitle(texts[TextLine::kSetupAddSite].trimmed());
  setAccessibleName(windowTitle());
  Option1->setText(texts[TextLine::kAddToDsstv]);
  Option2->setText(texts[TextLine::kAddToWx]);
  hint_->setText(texts[TextLine::kAddHint1]);
  cmdAdd->setText(texts[TextLine::kAddButton]);
  cmdClose->setText(texts[TextLine::kCloseWord].trimmed());
  for (QAbstractButton* button : {static_cast<QAbstractButton*>(Option1), static_cast<QAbstractButton*>(Option2),
                                  static_cast<QAbstractButton*>(cmdAdd), static_cast<QAbstractButton*>(cmdClose)}) {
    button->setAccessibleName(button->text());
  }
  form_->ShowTexts();
  ShowNotWritten(fault_, notWritten_);
}

void Form3::ChooseList() {
  form_->SetList(List());
  ShowButtons();
}

void Form3::ShowButtons() {
  cmdAdd->setEnabled(form_->Fields().IsComplete() && !adding_);
}

// The boxes stay as they are until the answer is there, so that what was added is what they show.
void Form3::SetAdding(bool adding) {
  adding_ = adding;
  if (adding) {
    form_->EndLooking();
    focused_ = focusWidget();
  }
  for (QWidget* part : {static_cast<QWidget*>(Option1), static_cast<QWidget*>(Option2), static_cast<QWidget*>(form_)}) {
    part->setEnabled(!adding);
  }
  ShowButtons();
  if (!adding && focused_ != nullptr) focused_->setFocus();
}

void Form3::Add() {
  const SiteFields fields = form_->Fields();
  if (!fields.IsComplete() || adding_) return;
  SetAdding(true);
  deps_.desk.Add(List(), fields, this, [this](const SiteOutcome& outcome) { Take(outcome); });
}

void Form3::Take(const SiteOutcome& outcome) {
  SetAdding(false);
  notWritten_ = outcome.notWritten;
  ShowNotWritten(fault_, notWritten_);
  if (!outcome.duplicate.isEmpty()) {
    deps_.dialogs.Inform(this, outcome.duplicate, false);
  } else if (outcome.IsDone()) {
    close();
  }
}

void Form3::closeEvent(QCloseEvent* event) {
  // An addition that is done closes the window by itself, one that fails has to be told.
  if (adding_ && !mayClose_) {
    event->ignore();
    return;
  }
  form_->EndLooking();
  SetupWindow::closeEvent(event);
}
