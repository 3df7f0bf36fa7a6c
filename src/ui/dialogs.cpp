// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/dialogs.h"

#include <QFileDialog>
#include <QMessageBox>
#include <QPointer>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>

#include "core/program.h"

using namespace Qt::StringLiterals;

namespace {

// The role of the button that was pressed; InvalidRole where none was. A box is a child of its parent, which may be
// closed and deleted with the program while the box is on the screen: then the box has gone with it.
QMessageBox::ButtonRole Answer(const QPointer<QMessageBox>& box) {
  box->setObjectName(u"UniMsgBox"_s);
  box->setTextFormat(Qt::PlainText);
  box->exec();
  if (box == nullptr) return QMessageBox::InvalidRole;
  const QMessageBox::ButtonRole role = box->buttonRole(box->clickedButton());
  delete box;
  return role;
}

// The path that was chosen; empty where none was. The dialog may go with its parent as a box may.
QString Chosen(const QPointer<QFileDialog>& dialog) {
  // The desktop's own dialog would be in the language of the desktop.
  dialog->setOption(QFileDialog::DontUseNativeDialog);
  const bool accepted = dialog->exec() == QDialog::Accepted;
  if (dialog == nullptr) return {};
  QString path = accepted ? dialog->selectedFiles().value(0) : QString();
  delete dialog;
  return path;
}

}  // namespace

void Dialogs::Inform(QWidget* parent, const QString& text, bool exclamation) {
  Answer(new QMessageBox(exclamation ? QMessageBox::Warning : QMessageBox::Information, Program::Title(), text,
                         QMessageBox::Ok, parent));
}

bool Dialogs::AskRetry(QWidget* parent, const QString& text) {
  auto* box =
      new QMessageBox(QMessageBox::Warning, Program::Title(), text, QMessageBox::Retry | QMessageBox::Cancel, parent);
  box->setDefaultButton(QMessageBox::Retry);
  return Answer(box) == QMessageBox::AcceptRole;
}

bool Dialogs::AskSecond(QWidget* parent, const QString& text, const QString& first, const QString& second) {
  auto* box = new QMessageBox(QMessageBox::Question, Program::Title(), text, QMessageBox::NoButton, parent);
  QPushButton* firstButton = box->addButton(first, QMessageBox::RejectRole);
  box->addButton(second, QMessageBox::AcceptRole);
  box->setDefaultButton(firstButton);
  box->setEscapeButton(firstButton);
  return Answer(box) == QMessageBox::AcceptRole;
}

QString Dialogs::AskSaveFile(QWidget* parent, const QString& folder, const QString& name, const QString& filter) {
  const QPointer<QFileDialog> dialog = new QFileDialog(parent, Program::Title(), folder, filter);
  dialog->setAcceptMode(QFileDialog::AcceptSave);
  dialog->setDefaultSuffix(filter.section("(*."_L1, 1).section(u')', 0, 0).section(u' ', 0, 0));
  dialog->selectFile(name);
  return Chosen(dialog);
}

QString Dialogs::AskFolder(QWidget* parent, const QString& folder) {
  const QPointer<QFileDialog> dialog = new QFileDialog(parent, Program::Title(), folder);
  dialog->setFileMode(QFileDialog::Directory);
  dialog->setOption(QFileDialog::ShowDirsOnly);
  return Chosen(dialog);
}

bool Dialogs::PrintDialog(QWidget* parent, QPrinter& printer) {
  const QPointer<QPrintDialog> dialog(new QPrintDialog(&printer, parent));
  // A picture is one page.
  dialog->setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintShowPageSize);
  const int result = dialog->exec();
  // As a box it goes with its parent.
  if (dialog == nullptr) return false;
  delete dialog;
  return result == QDialog::Accepted;
}
