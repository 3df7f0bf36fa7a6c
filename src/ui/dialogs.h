// SPDX-License-Identifier: GPL-3.0-or-later
// The message boxes of the program. Windows take them by reference, so that a test can script the answers.
#pragma once

#include <QString>
#include <QWidget>

class Dialogs {
 public:
  Dialogs() = default;
  Dialogs(const Dialogs&) = delete;
  Dialogs& operator=(const Dialogs&) = delete;
  virtual ~Dialogs() = default;

  // A message with the title "Omni-Perch"; returns when it has been read.
  virtual void Inform(QWidget* parent, const QString& text, bool exclamation);
  // A question with Retry and Cancel; true for Retry.
  virtual bool AskRetry(QWidget* parent, const QString& text);
  // Path of a file to be written, in folder and called name unless the user wants it otherwise; the user has agreed to
  // replace one that is there. filter as in "bmp files (*.bmp)": its first ending is added to a name without one. Empty
  // when cancelled.
  virtual QString AskSaveFile(QWidget* parent, const QString& folder, const QString& name, const QString& filter);
};
