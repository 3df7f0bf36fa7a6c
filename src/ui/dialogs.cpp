// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/dialogs.h"

#include <QMessageBox>

#include "core/program.h"

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
