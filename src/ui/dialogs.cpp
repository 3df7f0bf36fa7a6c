// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/dialogs.h"

#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>

#include "core/program.h"

using namespace Qt::StringLiterals;

void Dialogs::Inform(QWidget* parent, const QString& text, bool exclamation) {
  QMessageBox box(exclamation ? QMessageBox::Warning : QMessageBox::Information, Program::Title(), text,
                  QMessageBox::Ok, parent);
  box.setTextFormat(Qt::PlainText);
  box.exec();
}

bool Dialogs::AskRetry(QWidget* parent, const QString& text) {
  QMessageBox box(QMessageBox::Warning, Program::Title(), text, QMessageBox::Retry | QMessageBox::Cancel, parent);
  box.setTextFormat(Qt::PlainText);
  box.setDefaultButton(QMessageBox::Retry);
  return box.exec() == QMessageBox::Retry;
}

bool Dialogs::AskSecond(QWidget* parent, const QString& text, const QString& first, const QString& second) {
  QMessageBox box(QMessageBox::Question, Program::Title(), text, QMessageBox::NoButton, parent);
  box.setTextFormat(Qt::PlainText);
  QPushButton* firstButton = box.addButton(first, QMessageBox::RejectRole);
  const QPushButton* secondButton = box.addButton(second, QMessageBox::AcceptRole);
  box.setDefaultButton(firstButton);
  box.setEscapeButton(firstButton);
  box.exec();
  return box.clickedButton() == secondButton;
}

QString Dialogs::AskSaveFile(QWidget* parent, const QString& folder, const QString& name, const QString& filter) {
  QFileDialog dialog(parent, Program::Title(), folder, filter);
  // The desktop's own dialog would be in the language of the desktop.
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setDefaultSuffix(filter.section("(*."_L1, 1).section(u')', 0, 0).section(u' ', 0, 0));
  dialog.selectFile(name);
  return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}
