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
};
