// SPDX-License-Identifier: GPL-3.0-or-later
// The actions on one picture that the menus of the page, the history, the viewer and the lookup window offer: finds the
// file that a choice is about, and has it copied, saved or mailed. Form1 owns the only one.
#pragma once

#include <QObject>
#include <QWidget>

#include "app/page_logic.h"
#include "app/services.h"
#include "app/windows.h"
#include "display/picture_copy.h"
#include "display/source_file.h"

// Handlers of the commands about a picture.
class PictureActions : public QObject {
  Q_OBJECT

 public:
  // What it works with; all outlive it. It is a child of the main window.
  struct Dependencies {
    Services& services;
    PageLogic& logic;
    Windows& windows;
    QWidget* mainWindow;
  };

  explicit PictureActions(const Dependencies& dependencies);

  // Finds the file of the picture that a choice is about: the window whose menu it was says which one. Call it in the
  // handler of the choice itself. found is called once, later; with a file that has vanished where there is none.
  void FindSourceFile(const MenuChoice& choice, const SourceFiles::Found& found);
  // The clipboard's side of copy and paste.
  PictureCopy& Clipboard() { return copy_; }
  // Says in one line, in the window of the choice, what cannot be done.
  void Tell(const MenuChoice& choice, const QString& text) const;

 private:
  void RegisterCommands();
  void CopyPicture(const MenuChoice& choice);
  // The operator's picture, saved as Desktop.bmp from the window's picture first.
  void FindDesktopBmp(const Form12& window, const SourceFiles::Found& found);

  Dependencies deps_;
  SourceFiles files_;
  PictureCopy copy_;
};
