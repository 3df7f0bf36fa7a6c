// SPDX-License-Identifier: GPL-3.0-or-later
// The message boxes of the program. Windows take them by reference, so that a test can script the answers.
#pragma once

#include <QString>
#include <QWidget>

class QPrinter;

// Shows the boxes; a test overrides it.
class Dialogs {
 public:
  Dialogs() = default;
  Dialogs(const Dialogs&) = delete;
  Dialogs& operator=(const Dialogs&) = delete;
  virtual ~Dialogs() = default;

  // Shows a message titled "Omni-Perch"; returns when the user has closed it.
  virtual void Inform(QWidget* parent, const QString& text, bool exclamation);
  // Asks a question with the buttons Retry and Cancel; true for Retry.
  virtual bool AskRetry(QWidget* parent, const QString& text);
  // Asks a question with two buttons of these captions; true for the second.
  virtual bool AskSecond(QWidget* parent, const QString& text, const QString& first, const QString& second);
  // Asks for the path of a file to be written; folder and name are the suggestion. The user has agreed to replace an
  // existing file. filter as in "bmp files (*.bmp)": its first ending is added to a name without one. Empty if
  // cancelled.
  virtual QString AskSaveFile(QWidget* parent, const QString& folder, const QString& name, const QString& filter);
  // Asks for a printer, or for the file to print to, with the page of printer as the suggestion; false if cancelled.
  virtual bool PrintDialog(QWidget* parent, QPrinter& printer);
  // Asks for an existing folder, beginning at one; empty if cancelled.
  virtual QString AskFolder(QWidget* parent, const QString& folder);
};
