// SPDX-License-Identifier: GPL-3.0-or-later
// frmInfo: what is told of a picture's file, in one text box over the window that the picture belongs to. The picture
// menus open it.
#pragma once

#include <QPlainTextEdit>

#include "core/program.h"
#include "display/source_file.h"
#include "platform/picture/picture_tool.h"
#include "platform/wanted.h"
#include "ui/base_window.h"

// The information window. There is one; a second choice shows its picture in the open one.
class frmInfo : public BaseWindow {
  Q_OBJECT

 public:
  // What it works with; all outlive it.
  struct Dependencies {
    const Program& program;
    PictureTool& tool;
  };

  frmInfo(const Dependencies& services, QWidget* mainWindow);

  // Shows what is known of the file at once, and the rest when the decoder has read it. The window takes size and place
  // of owner, above all windows.
  void ShowPictureInfo(const SourceFile& file, const QWidget* owner);
  void ShowTexts() override;

 protected:
  void PlaceWindow() override;

 private:
  void ShowInfo(QSize size, const QByteArray& facts);

  Dependencies services_;
  QPlainTextEdit* text_;
  SourceFile file_;
  QRect owner_;  // frame of the window that the picture belongs to
  Wanted wanted_;
};
