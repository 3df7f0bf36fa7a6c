// SPDX-License-Identifier: GPL-3.0-or-later
// The line in a setup window that says which file could not be written, with the buttons to try again and to close the
// window all the same. A window that stores when it closes has one.
#pragma once

#include "ui/action_line.h"

// The line; hidden until a file could not be written.
class SaveLine : public ActionLine {
  Q_OBJECT

 public:
  explicit SaveLine(QWidget* parent);

  // Shows the line for a file; an empty path hides it.
  void SetFailure(const QString& path);
  void ShowTexts();

 Q_SIGNALS:
  void RetryWanted();
  void DiscardWanted();

 private:
  QString path_;
};
