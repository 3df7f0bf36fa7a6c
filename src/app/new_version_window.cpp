// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/new_version_window.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

Form22::Form22(const Program& program, QWidget* mainWindow)
    : BaseWindow(mainWindow),
      program_(program),
      Label1(new QLabel(this)),
      cmdYes(new QPushButton(this)),
      cmdNo(new QPushButton(this)) {
  setObjectName(u"Form22"_s);
  Label1->setObjectName(u"Label1"_s);
  cmdYes->setObjectName(u"cmdYes"_s);
  cmdNo->setObjectName(u"cmdNo"_s);
  Label1->setTextFormat(Qt::PlainText);
  Label1->setMinimumWidth(320);
  Label1->setWordWrap(true);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(cmdYes);
  buttons->addWidget(cmdNo);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(16, 16, 16, 12);
  column->setSpacing(16);
  column->addWidget(Label1);
  column->addLayout(buttons);
  connect(cmdYes, &QPushButton::clicked, this, [this]() {
    Q_EMIT PageWanted();
    close();
  });
  connect(cmdNo, &QPushButton::clicked, this, &Form22::close);
  SetDefaultButton(cmdYes);
}

void Form22::Take(const QString& version) {
  version_ = version;
  ShowTexts();
}

void Form22::ShowTexts() {
  const LanguageTexts& texts = program_.language;
  setWindowTitle(u"Omni-Perch  "_s + tr("New version"));
  // A line end stands behind the told text, which ends without one.
  const QString text = texts[TextLine::kNewVersion].trimmed() + u'\n' + u"Omni-Perch "_s + version_;
  Label1->setText(text);
  cmdYes->setText(texts[TextLine::kYesWord].trimmed());
  cmdNo->setText(texts[TextLine::kNoWord].trimmed());
  for (QPushButton* button : {cmdYes, cmdNo}) {
    button->setAccessibleName(button->text());
    button->setAccessibleDescription(text);
  }
}
